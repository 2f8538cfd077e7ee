#include "gedcom_line.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace lineara {
namespace {

using testing::ElementsAre;

std::vector<GedcomLine> readLines(std::string_view text)
{
    std::vector<GedcomLine> lines;
    GedcomLineReader reader(text);
    while (const auto line = reader.next())
        lines.push_back(*line);
    return lines;
}

/// "number:level tag" of every line.
std::vector<std::string> outline(std::string_view text)
{
    std::vector<std::string> lines;
    for (const GedcomLine& line : readLines(text))
        lines.push_back(std::to_string(line.number) + ":" + std::to_string(line.level.value_or(99)) + " " +
                        std::string(line.tag));
    return lines;
}

TEST(GedcomLines, PartsOfALine)
{
    const auto lines = readLines("0 @I1@ INDI\n1 NAME John /Doe/\n1 FAMS @F1@\n1 BIRT");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].xref, "I1");
    EXPECT_EQ(lines[0].tag, "INDI");
    EXPECT_EQ(lines[0].value, "");
    EXPECT_EQ(lines[1].level, 1);
    EXPECT_EQ(lines[1].value, "John /Doe/");
    EXPECT_FALSE(lines[1].isPointer);
    EXPECT_TRUE(lines[2].isPointer);
    EXPECT_EQ(lines[2].value, "F1");
    EXPECT_EQ(lines[3].tag, "BIRT");
}

TEST(GedcomLines, EveryLineEndInAnyMixtureCountsOnce)
{
    EXPECT_THAT(outline("0 A\r\n1 B\n\r1 C\r1 D\n1 E"), ElementsAre("1:0 A", "2:1 B", "3:1 C", "4:1 D", "5:1 E"));
    EXPECT_THAT(outline("0 A\r1 B\r1 C\r"), ElementsAre("1:0 A", "2:1 B", "3:1 C"));
}

TEST(GedcomLines, BlankLinesAreSkippedButCounted)
{
    EXPECT_THAT(outline("\n0 A\n\n \t \n1 B\r\n\r\n1 C"), ElementsAre("2:0 A", "5:1 B", "7:1 C"));
    EXPECT_THAT(outline(""), ElementsAre());
    EXPECT_THAT(outline("\r\n\r\n"), ElementsAre());
}

TEST(GedcomLines, BlanksBeforeTheLevelAndBetweenThePartsDoNotMatter)
{
    const auto lines = readLines("  0  @I1@\t INDI\n\t1   SEX M");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].xref, "I1");
    EXPECT_EQ(lines[0].tag, "INDI");
    EXPECT_EQ(lines[1].tag, "SEX");
}

TEST(GedcomLines, BlanksInAndAroundAValueBelongToIt)
{
    const auto lines = readLines("2 CONC  two  words \n2 CONT ");
    EXPECT_EQ(lines[0].value, " two  words ");
    EXPECT_EQ(lines[1].value, "");
}

TEST(GedcomLines, OnlyAWholeValueBetweenAtSignsIsAPointer)
{
    const auto lines = readLines("1 A @F1@ \n1 A @#DJULIAN@\n1 A @@\n1 A @me@here@\n1 A a@b@\n1 A @\n1 A @a b@");
    EXPECT_TRUE(lines[0].isPointer);
    EXPECT_EQ(lines[0].value, "F1");
    for (std::size_t i = 1; i < 6; ++i)
        EXPECT_FALSE(lines[i].isPointer) << i;
    EXPECT_TRUE(lines[6].isPointer);
}

TEST(GedcomLines, DefectsAreNamedAndKeepTheLevelWhereThereIsOne)
{
    const auto lines = readLines("0 @I1 INDI\nno level at all\n100 NAME x\n1\n2 @I1@\n1 BI-RT x\n1 ?\n-1 NAME\n7NAME");
    ASSERT_EQ(lines.size(), 9u);
    const std::vector<LineDefect> defects = {
        LineDefect::UnterminatedXref, LineDefect::NoLevel, LineDefect::NoLevel, LineDefect::NoLevel,
        LineDefect::UnterminatedXref, LineDefect::NoTag,   LineDefect::NoTag,   LineDefect::NoLevel,
        LineDefect::NoLevel};
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i].defect, defects[i]) << i;
    EXPECT_EQ(lines[0].level, 0);
    EXPECT_EQ(lines[0].value, "0 @I1 INDI");
    EXPECT_TRUE(lines[0].xref.empty());
    EXPECT_EQ(lines[1].level, std::nullopt);
    EXPECT_EQ(lines[5].level, 1);
}

TEST(GedcomLines, ALineMayBeAsLongAsItLikes)
{
    const std::string value(3'000'000, 'x');
    const std::string text = "1 NOTE " + value + "\n1 SEX M\n";
    const auto lines = readLines(text);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].value, value);
    EXPECT_EQ(lines[1].number, 2u);
}

} // namespace
} // namespace lineara
