#include "gedcom_tree.h"

#include "import_notes.h"
#include "node_ledger.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

/// The tree of a record, and what a ledger tells of it.
struct Grown
{
    explicit Grown(const char* text, bool isVersionSeven = false)
        : tree(GedcomRecord{.text = text, .tag = {}, .xref = {}, .line = 1}, isVersionSeven)
    {
        NodeLedger ledger(tree, notes);
        ledger.open();
        ledger.close();
        notes.writeTo(report);
    }

    std::string told() const { return report.notes.join(u'\n').toStdString(); }
    std::string text(NodeIndex index) const { return tree.text(index).toStdString(); }

    GedcomTree tree;
    ImportNotes notes;
    ImportReport report;
};

TEST(GedcomTree, LinesStandBelowTheLastLineOfALowerLevel)
{
    const Grown grown("0 @I1@ INDI\n1 BIRT\n2 DATE 1900\n2 PLAC Rome\n1 SEX M\n");
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

TEST(GedcomTree, ForgetsTheLastRecordWhenItReadsAnother)
{
    GedcomTree tree(GedcomRecord{.text = "0 INDI\n5 X\n1 SEX M\n", .tag = {}, .xref = {}, .line = 7}, false);
    EXPECT_EQ(tree.size(), 2u);
    EXPECT_EQ(tree[1].line.number, 9u);
    tree.read({.text = "0 FAM\n", .tag = {}, .xref = {}, .line = 20}, false);
    EXPECT_EQ(tree.size(), 1u);
    EXPECT_TRUE(tree.strays().empty());
    EXPECT_EQ(tree[0].line.number, 20u);
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
    const Grown grown("0 @N1@ SNOTE @@ one leading\n1 CONT doubled @@ inside\n1 CONT @@@@@", true);
    EXPECT_EQ(grown.text(0), "@ one leading\ndoubled @@ inside\n@@@@");
}

TEST(GedcomTree, ALineThatSkipsALevelIsToldWithAllBelowIt)
{
    const Grown grown("0 @I1@ INDI\n1 BIRT\n4 DATE 1 JAN 1900\n5 TIME 12:00\n1 SEX M");
    EXPECT_EQ(grown.tree.size(), 3u);
    EXPECT_EQ(grown.report.notTaken, 2u);
    EXPECT_EQ(grown.told(), "line 3: DATE \"1 JAN 1900\" was not taken: its level skips at least one\n"
                            "line 4: TIME \"12:00\" was not taken: it belongs to line 3, which was not taken");
}

TEST(GedcomTree, LinesBelowAnUnreadableRecordHaveNoPlace)
{
    const Grown grown("0 @I2 INDI\n1 NAME John /Doe/\n");
    EXPECT_EQ(grown.tree.size(), 0u);
    EXPECT_EQ(grown.report.unreadableLines, 1u);
    EXPECT_EQ(grown.report.notTaken, 1u);
    EXPECT_THAT(grown.told(),
                HasSubstr("line 1: \"0 @I2 INDI\" could not be read: its cross-reference has no closing @"));
}

TEST(GedcomTree, ALineWithoutLevelLeavesItsNeighboursAlone)
{
    const Grown grown("0 @I1@ INDI\n1 NOTE a text\nwith a plain line break\n2 CONT and more\n1 SEX M");
    EXPECT_EQ(grown.report.unreadableLines, 1u);
    EXPECT_EQ(grown.text(1), "a text\nand more");
    EXPECT_TRUE(grown.tree.child(0, "SEX"));
}

} // namespace
} // namespace lineara
