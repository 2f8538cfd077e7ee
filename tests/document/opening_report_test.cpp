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

TEST(OpeningReport, HidesNothingThatWasNotTaken)
{
    OpenedFamily family;
    family.importReport.emplace();
    family.importReport->keptLines = 1;
    family.importReport->refusedLinks = 2;
    family.importReport->notTaken = 3;
    family.importReport->unreadableLines = 4;
    family.importReport->leftFiles = {QStringLiteral("speech.mp3")};
    const auto report = openingReport(family);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->summary,
              QStringLiteral("Persons taken over: 0, partner links: 0, parent links: 0. "
                             "Lines kept beside them: 1. Links refused: 2. Lines not taken: 3. "
                             "Lines that can't be read: 4. Files of the archive that are not kept: 1."));
}
