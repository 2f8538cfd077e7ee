#include "opening_report.h"

#include <QCoreApplication>

#include <initializer_list>
#include <utility>

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
    const std::initializer_list<std::pair<QString, std::size_t>> others{
        {ReportTexts::tr("Lines kept beside them: %1."), report.keptLines},
        {ReportTexts::tr("Links refused: %1."), report.refusedLinks},
        {ReportTexts::tr("Lines not taken: %1."), report.notTaken},
        {ReportTexts::tr("Lines that can't be read: %1."), report.unreadableLines},
        {ReportTexts::tr("Files of the archive that are not kept: %1."),
         static_cast<std::size_t>(report.leftFiles.size())},
    };
    for (const auto& [text, count] : others)
        if (count > 0)
            summary += QLatin1Char(' ') + text.arg(count);
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
