#include "import_failure.h"

namespace lineara {

Failure importFailure(const QString& name, const QString& reason)
{
    return {u"“%1” can't be imported: %2"_qs.arg(name, reason)};
}

Failure notGedcom(const QString& name)
{
    return importFailure(name, QStringLiteral("it is not a GEDCOM file."));
}

} // namespace lineara
