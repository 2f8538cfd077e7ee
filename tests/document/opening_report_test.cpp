#include "opening_report.h"

#include <gtest/gtest.h>

using namespace lineara;

namespace {

QString summaryOf(std::size_t persons, std::size_t partnerLinks, std::size_t offspringLinks)
{
    OpenedFamily family;
    family.importReport.emplace();
    family.importReport->persons = persons;
    family.importReport->partnerLinks = partnerLinks;
    family.importReport->offspringLinks = offspringLinks;
    const auto report = openingReport(family);
    return report ? report->summary : QString();
}

} // namespace

TEST(OpeningReport, SaysNumbersSoThatOneIsRightToo)
{
    EXPECT_EQ(summaryOf(1, 0, 1), QStringLiteral("Persons taken over: 1, partner links: 0, parent links: 1."));
    EXPECT_EQ(summaryOf(31, 10, 39), QStringLiteral("Persons taken over: 31, partner links: 10, parent links: 39."));
}
