#include "opening_report.h"

#include <QCoreApplication>

namespace lineara {

namespace {

struct ReportTexts
{
    Q_DECLARE_TR_FUNCTIONS(ReportTexts)
};

/// The details tell the rest.
QString inOneLine(const ImportReport& report)
{
    QString summary = ReportTexts::tr("Persons taken over: %1, partner links: %2, parent links: %3.")
                          .arg(report.persons)
                          .arg(report.partnerLinks)
                          .arg(report.offspringLinks);
    if (report.keptLines > 0)
        summary += QLatin1Char(' ') + ReportTexts::tr("Lines kept beside them: %1.").arg(report.keptLines);
    if (report.refusedLinks > 0)
        summary += QLatin1Char(' ') + ReportTexts::tr("Links refused: %1.").arg(report.refusedLinks);
    if (report.unreadableLines > 0)
        summary += QLatin1Char(' ') + ReportTexts::tr("Lines that can't be read: %1.").arg(report.unreadableLines);
    if (!report.leftFiles.isEmpty())
        summary += QLatin1Char(' ') +
                   ReportTexts::tr("Files of the archive that are not kept: %1.").arg(report.leftFiles.size());
    return summary;
}

} // namespace

std::optional<OpeningReport> openingReport(const OpenedFamily& family)
{
    if (family.importReport)
        return OpeningReport{inOneLine(*family.importReport), importSummary(*family.importReport)};
    if (family.repairs.isEmpty())
        return std::nullopt;
    return OpeningReport{ReportTexts::tr("The file was damaged and has been mended in memory: %n remark(s).", nullptr,
                                         static_cast<int>(family.repairs.size())),
                         family.repairs.join(u'\n')};
}

} // namespace lineara
