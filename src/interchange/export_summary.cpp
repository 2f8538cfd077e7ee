#include "interchange/export_report.h"

#include "import_notes.h"
#include "import_texts.h"

#include <QStringBuilder>

namespace lineara {

QString exportSums(const ExportReport& report)
{
    QString text;
    if (report.picturesLeftOut > 0)
        text += ImportTexts::tr("Pictures that only an export with pictures (.gdz) takes along: %1")
                    .arg(report.picturesLeftOut) %
                u'\n';
    if (!report.missingFiles.isEmpty())
        text += ImportTexts::tr("Files that the genealogy names and that are not there: %1")
                    .arg(report.missingFiles.size()) %
                u'\n';
    return text;
}

QString exportSummary(const ExportReport& report)
{
    QString text = exportSums(report);
    for (const QString& name : report.missingFiles)
        text += u"  " % printable(name) % u'\n';
    return text;
}

} // namespace lineara
