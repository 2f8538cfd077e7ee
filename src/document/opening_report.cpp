#include "opening_report.h"

#include <QCoreApplication>

namespace lineara {

namespace {

struct ReportTexts
{
    Q_DECLARE_TR_FUNCTIONS(ReportTexts)
};

QString importSummary(const ImportReport& report)
{
    QString summary = ReportTexts::tr("%1 persons, %2 partner links and %3 parent links were taken over.")
                          .arg(report.persons)
                          .arg(report.partnerLinks)
                          .arg(report.offspringLinks);
    if (report.refusedLinks > 0)
        summary += QLatin1Char(' ') + ReportTexts::tr("Links refused: %1.").arg(report.refusedLinks);
    if (report.notTaken + report.unreadableLines > 0)
        summary +=
            QLatin1Char(' ') + ReportTexts::tr("Lines not taken: %1.").arg(report.notTaken + report.unreadableLines);
    return summary;
}

} // namespace

std::optional<OpeningReport> openingReport(const OpenedFamily& family)
{
    if (family.importReport)
        return OpeningReport{importSummary(*family.importReport), family.importReport->notes.join(u'\n')};
    if (family.repairs.isEmpty())
        return std::nullopt;
    return OpeningReport{ReportTexts::tr("The file was damaged and has been mended in memory: %n remark(s).", nullptr,
                                         static_cast<int>(family.repairs.size())),
                         family.repairs.join(u'\n')};
}

} // namespace lineara
