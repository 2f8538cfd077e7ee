// How steps come into the history and leave it, and what comes to them late.

#include "model/dump.h"

#include <gmock/gmock.h>

namespace lineara {

namespace {

using test::dump;

struct Family
{
    ObjectContext context;
    Journal& journal = context.journal();
    Pool& pool = context.insertPool();
    Person& a = member();
    Person& b = member();

    Person& member()
    {
        Person& person = context.insertPerson();
        pool.addPerson(person);
        return person;
    }
    std::string text() const { return dump(context); }
};

} // namespace

TEST(JournalSteps, HaveNumbersThatNoOtherStepEverGets)
{
    Family family;
    EXPECT_EQ(family.journal.latestStep(), StepId());
    EXPECT_EQ(family.journal.undoStep(), std::nullopt);
    const StepId first = family.journal.begin(u"First"_qs);
    family.a.setX(1);
    const StepId empty = family.journal.begin(u"Empty"_qs);
    EXPECT_EQ(family.journal.undoStep(), first);
    EXPECT_EQ(family.journal.latestStep(), empty);
    family.journal.undo();
    EXPECT_EQ(family.journal.undoStep(), std::nullopt);
    EXPECT_EQ(family.journal.redoStep(), first);
    const StepId later = family.journal.begin(u"Later"_qs);
    family.a.setX(2);
    EXPECT_LT(first, empty);
    EXPECT_LT(empty, later);
    EXPECT_EQ(family.journal.redoStep(), std::nullopt);
}

TEST(JournalSteps, WithoutAChangeTakeNothingFromRedo)
{
    Family family;
    family.a.setX(0);
    family.journal.begin(u"Move"_qs);
    family.a.setX(1);
    family.journal.undo();
    family.journal.begin(u"Nothing"_qs);
    EXPECT_TRUE(family.journal.canRedo());
    family.a.setX(7);
    family.a.setX(0);
    family.journal.begin(u"Nothing again"_qs);
    EXPECT_TRUE(family.journal.canRedo());
    EXPECT_EQ(family.journal.depth(), 0u);
    family.journal.redo();
    EXPECT_EQ(family.a.x(), 1);
}

TEST(JournalSteps, AReservedOneKeepsItsPlaceUntilItsChangesCome)
{
    Family family;
    const StepId reserved = family.journal.reserve(u"Remove"_qs);
    EXPECT_EQ(family.journal.undoName(), u"Remove"_qs);
    family.journal.begin(u"Move"_qs);
    family.a.setX(3);
    EXPECT_EQ(family.journal.depth(), 2u);
    family.journal.undo();
    EXPECT_EQ(family.journal.undoStep(), reserved);
    family.journal.amend();
    family.b.setX(4);
    family.journal.undo();
    EXPECT_EQ(family.b.x(), std::nullopt);
    family.journal.redo();
    EXPECT_EQ(family.b.x(), 4);
}

TEST(JournalSteps, RolledBackLeaveNoTrace)
{
    Family family;
    family.journal.begin(u"Move"_qs);
    family.a.setX(1);
    family.journal.undo();
    const std::string before = family.text();
    family.journal.begin(u"Drag"_qs);
    family.a.setX(50);
    family.context.shiftX(family.pool, -20);
    family.journal.rollBack();
    EXPECT_EQ(family.text(), before);
    EXPECT_FALSE(family.journal.canUndo());
    ASSERT_TRUE(family.journal.canRedo());
    family.journal.redo();
    EXPECT_EQ(family.a.x(), 1);
    family.journal.rollBack();
    EXPECT_EQ(family.a.x(), 1);
}

TEST(JournalSteps, ReplayingIsToldWhileItLasts)
{
    Family family;
    std::vector<bool> replaying;
    const Subscription watch = family.context.observe([&](const Change& change) {
        if (!std::holds_alternative<Replayed>(change))
            replaying.push_back(family.journal.replaying());
    });
    family.journal.begin(u"Move"_qs);
    family.a.setX(1);
    family.journal.undo();
    family.journal.redo();
    family.journal.begin(u"Drag"_qs);
    family.a.setX(2);
    family.journal.rollBack();
    EXPECT_THAT(replaying, testing::ElementsAre(false, true, true, false, true));
    EXPECT_FALSE(family.journal.replaying());
}

class AmendedStep : public testing::Test
{
protected:
    AmendedStep()
    {
        family.journal.begin(u"First"_qs);
        family.a.setX(100);
        family.journal.begin(u"Second"_qs);
        // Belongs to the first by its sense, but came while the second was open.
        family.context.shiftX(family.pool, -30);
        family.b.setX(7);
        both = family.text();
        family.journal.undo();
        family.journal.amend();
        family.context.shiftX(family.pool, -30);
        first = family.text();
    }

    Family family;
    const std::string before = family.text();
    std::string first;
    std::string both;
};

TEST_F(AmendedStep, CanStillBeFollowedByWhatWasUndone)
{
    for (int round = 0; round < 2; ++round) {
        family.journal.redo();
        EXPECT_EQ(family.text(), both);
        family.journal.undo();
        EXPECT_EQ(family.text(), first);
    }
}

TEST_F(AmendedStep, IsOneStepForUndoAndRedo)
{
    EXPECT_EQ(family.journal.depth(), 1u);
    for (int round = 0; round < 2; ++round) {
        family.journal.undo();
        EXPECT_EQ(family.text(), before);
        family.journal.redo();
        EXPECT_EQ(family.text(), first);
    }
    family.journal.redo();
    EXPECT_EQ(family.text(), both);
}

TEST_F(AmendedStep, KeepsWhatCameLateUnderANewStep)
{
    family.journal.begin(u"Third"_qs);
    family.a.setX(1);
    const std::string third = family.text();
    EXPECT_FALSE(family.journal.canRedo());
    family.journal.undo();
    EXPECT_EQ(family.text(), first);
    family.journal.undo();
    EXPECT_EQ(family.text(), before);
    family.journal.redo();
    family.journal.redo();
    EXPECT_EQ(family.text(), third);
}

TEST_F(AmendedStep, IsAsItWasAfterANewStepIsRolledBack)
{
    family.journal.begin(u"Drag"_qs);
    family.a.setX(1);
    family.journal.rollBack();
    EXPECT_EQ(family.text(), first);
    family.journal.redo();
    EXPECT_EQ(family.text(), both);
}

TEST(JournalSteps, GoOnWhereAStepThatWasTakenBackHadInterruptedThem)
{
    Family family;
    const std::string before = family.text();
    family.journal.begin(u"First"_qs);
    family.a.setX(1);
    family.journal.begin(u"Taken Back"_qs);
    family.b.setX(2);
    family.journal.rollBack();
    family.b.setX(3);
    EXPECT_EQ(family.journal.undoName(), u"First"_qs);
    family.journal.begin(u"Not Even Changing Anything"_qs);
    family.journal.rollBack();
    family.a.setX(4);
    const std::string after = family.text();
    EXPECT_EQ(family.journal.depth(), 1u);
    family.journal.undo();
    EXPECT_EQ(family.text(), before);
    family.journal.redo();
    EXPECT_EQ(family.text(), after);
}

TEST(JournalSteps, ThatHadNoChangesYetWhenTheyWereInterruptedStillGetThem)
{
    Family family;
    const std::string before = family.text();
    family.journal.begin(u"Waiting"_qs);
    family.journal.begin(u"Taken Back"_qs);
    family.b.setX(2);
    family.journal.rollBack();
    family.b.setX(3);
    EXPECT_EQ(family.journal.undoName(), u"Waiting"_qs);
    family.journal.undo();
    EXPECT_EQ(family.text(), before);
}

TEST(JournalSteps, TakeInWhatHasBeenPutOffUntilTheNextOneBegins)
{
    Family family;
    int putOff = 0;
    Subscription watch = family.journal.beforeStep([&] { family.a.setX(++putOff); });
    family.journal.begin(u"First"_qs);
    family.b.setX(100);
    family.journal.reserve(u"Second"_qs);
    family.b.setX(200);
    EXPECT_EQ(family.a.x(), 2);
    family.journal.undo();
    EXPECT_EQ(family.a.x(), 2);
    EXPECT_EQ(family.b.x(), 100);
    family.journal.undo();
    EXPECT_NE(family.a.x(), 2);
    EXPECT_NE(family.b.x(), 100);
    watch = {};
    family.journal.begin(u"Third"_qs);
    EXPECT_EQ(putOff, 2);
}

} // namespace lineara
