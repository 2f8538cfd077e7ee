#include "gedcom_records.h"

#include "import_notes.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::ElementsAre;

std::vector<std::string> outlineOf(const GedcomRecords& records)
{
    std::vector<std::string> outline;
    for (RecordIndex index = 0; index < records.size(); ++index)
        outline.push_back(std::to_string(records[index].line) + " " + std::string(records[index].tag) + " " +
                          std::string(records[index].xref));
    return outline;
}

TEST(GedcomRecords, ReachFromLevelZeroToLevelZero)
{
    const std::string text = "\n0 HEAD\n1 CHAR x\n\n 0 @I1@ INDI\njunk\n1 SEX M\n0 @I2 INDI\n1 SEX M\n00 TRLR";
    const auto records = GedcomRecords::read(text, {});
    EXPECT_THAT(outlineOf(records), ElementsAre("1  ", "2 HEAD ", "5 INDI I1", "8  ", "10 TRLR "));
    std::string whole;
    for (RecordIndex index = 0; index < records.size(); ++index)
        whole += records[index].text;
    EXPECT_EQ(whole, text);
}

TEST(GedcomRecords, OfOneCrossReferenceMeanTheFirst)
{
    const auto records = GedcomRecords::read("0 @I1@ INDI\n0 @I2@ INDI\n0 @I1@ FAM\n", {});
    EXPECT_EQ(records.target("I1"), RecordIndex{0});
    EXPECT_EQ(records.target("I2"), RecordIndex{1});
    EXPECT_EQ(records.target("I3"), std::nullopt);
    ImportNotes notes;
    records.tellUnreachable(notes);
    ImportReport report;
    notes.writeTo(report);
    EXPECT_EQ(report.notes.join(u'\n').toStdString(),
              "line 3: \"I1\" is defined by line 1 already; what points at it means the record there");
}

TEST(GedcomRecords, TellTheirVersion)
{
    const auto versionOf = [](const char* text) { return std::string(GedcomRecords::read(text, {}).version()); };
    EXPECT_EQ(versionOf("0 HEAD\n1 SOUR X\n2 VERS 9\n1 GEDC\n2 VERS 5.5.1\n"), "5.5.1");
    EXPECT_EQ(versionOf("\n\n0 HEAD\n1 GEDC\n2 VERS 7.0\n"), "7.0");
    EXPECT_EQ(versionOf("0 HEAD\n1 SOUR X\n2 VERS 9\n"), "");
    EXPECT_EQ(versionOf("0 @I1@ INDI\n1 GEDC\n2 VERS 5.5\n"), "");
    EXPECT_EQ(versionOf(""), "");
    EXPECT_TRUE(GedcomRecords::read("0 HEAD\n1 GEDC\n2 VERS 7.0.14\n", {}).isVersionSeven());
}

} // namespace
} // namespace lineara
