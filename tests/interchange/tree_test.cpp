#include "gedcom_tree.h"

#include "import_notes.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

/// A tree together with what was told while it was built.
struct Grown
{
    explicit Grown(std::string_view text) : tree(GedcomTree::read(text, notes, Progress())) { notes.writeTo(report); }

    std::string told() const { return report.notes.join(u'\n').toStdString(); }
    std::string text(NodeIndex index) const { return tree.text(index).toStdString(); }

    ImportNotes notes;
    GedcomTree tree;
    ImportReport report;
};

TEST(GedcomTree, LinesStandBelowTheLastLineOfALowerLevel)
{
    const Grown grown("0 @I1@ INDI\n1 BIRT\n2 DATE 1900\n2 PLAC Rome\n1 SEX M\n0 TRLR");
    ASSERT_EQ(grown.tree.records().size(), 2u);
    std::string tags;
    for (const NodeIndex child : grown.tree.children(0))
        tags += std::string(grown.tree[child].line.tag) + " ";
    EXPECT_EQ(tags, "BIRT SEX ");
    const auto birth = grown.tree.child(0, "BIRT");
    ASSERT_TRUE(birth);
    EXPECT_EQ(grown.tree[*grown.tree.child(*birth, "PLAC")].line.value, "Rome");
    EXPECT_EQ(grown.tree[*grown.tree.child(*birth, "PLAC")].parent, birth);
    EXPECT_FALSE(grown.tree.child(*birth, "SEX"));
    EXPECT_EQ(grown.told(), "");
}

TEST(GedcomTree, ContinuationsAreJoined)
{
    const Grown grown("0 @N1@ NOTE first \n1 CONC half\n1 CONT second\n1 SOUR @S1@\n1 CONT\n1 CONT fourth");
    EXPECT_EQ(grown.text(0), "first half\nsecond\n\nfourth");
}

TEST(GedcomTree, AContinuationIsNeverAPointer)
{
    const Grown grown("0 @N1@ NOTE write to\n1 CONT @home@");
    EXPECT_EQ(grown.text(0), "write to\n@home@");
}

TEST(GedcomTree, OlderVersionsDoubleEveryAtSign)
{
    const Grown grown("0 @N1@ NOTE a@@b, @@c\n1 CONC  and cut @\n1 CONC @here");
    EXPECT_EQ(grown.text(0), "a@b, @c and cut @here");
}

TEST(GedcomTree, VersionSevenDoublesTheFirstAtSignOfALineOnly)
{
    const Grown grown(
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @N1@ SNOTE @@ one leading\n1 CONT doubled @@ inside\n1 CONT @@@@@");
    EXPECT_EQ(grown.text(3), "@ one leading\ndoubled @@ inside\n@@@@");
}

TEST(GedcomTree, ALineThatSkipsALevelIsToldWithAllBelowIt)
{
    const Grown grown("0 @I1@ INDI\n1 BIRT\n4 DATE 1 JAN 1900\n5 TIME 12:00\n1 SEX M");
    EXPECT_EQ(grown.tree.size(), 3u);
    EXPECT_EQ(grown.report.notTaken, 2u);
    EXPECT_EQ(grown.told(), "line 3: DATE \"1 JAN 1900\" was not taken: its level skips at least one\n"
                            "line 4: TIME \"12:00\" was not taken: it belongs to line 3, which was not taken");
}

TEST(GedcomTree, LinesBelowAnUnreadableRecordDoNotMoveToAnotherOne)
{
    const Grown grown("0 @I1@ INDI\n0 @I2 INDI\n1 NAME John /Doe/\n0 TRLR");
    EXPECT_FALSE(grown.tree.child(0, "NAME"));
    EXPECT_EQ(grown.tree.size(), 2u);
    EXPECT_EQ(grown.report.unreadableLines, 1u);
    EXPECT_EQ(grown.report.notTaken, 1u);
    EXPECT_THAT(grown.told(),
                HasSubstr("line 2: \"0 @I2 INDI\" could not be read: its cross-reference has no closing @"));
}

TEST(GedcomTree, ALineWithoutLevelLeavesItsNeighboursAlone)
{
    const Grown grown("0 @I1@ INDI\n1 NOTE a text\nwith a plain line break\n2 CONT and more\n1 SEX M");
    EXPECT_EQ(grown.report.unreadableLines, 1u);
    EXPECT_EQ(grown.text(1), "a text\nand more");
    EXPECT_TRUE(grown.tree.child(0, "SEX"));
}

TEST(GedcomTree, ADoubledCrossReferenceMeansTheFirstRecord)
{
    const Grown grown("0 @I1@ INDI\n0 @I1@ INDI\n1 SEX M");
    EXPECT_EQ(grown.tree.target("I1"), NodeIndex{0});
    EXPECT_EQ(grown.tree.target("I2"), std::nullopt);
    EXPECT_EQ(grown.told(), "line 2: \"I1\" is defined by line 1 already; what points at it means the record there");
}

} // namespace
} // namespace lineara
