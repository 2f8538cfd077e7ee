#include "import_failure.h"

#include "import_texts.h"

namespace lineara {

Failure importFailure(const QString& name, const QString& reason)
{
    return {ImportTexts::tr("“%1” can't be imported: %2").arg(name, reason)};
}

Failure notGedcom(const QString& name)
{
    return importFailure(name, ImportTexts::tr("it is not a GEDCOM file."));
}

Failure stoppedImport(const QString& name)
{
    return importFailure(name, ImportTexts::tr("importing it was cancelled."));
}

} // namespace lineara
