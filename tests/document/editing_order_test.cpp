// What the user does while work is still waiting for its turn.

#include "canvas/hand.h"
#include "edited_document.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

using namespace lineara;
using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr std::uint64_t grandma = 102;
constexpr std::uint64_t grandpa = 103;
constexpr std::uint64_t child = 104;
constexpr std::uint64_t partner = 105;
constexpr std::uint64_t kid = 106;

class EditingOrder : public testing::Test
{
protected:
    EditedDocument edited{*threeGenerations()};
    const QByteArray before = edited.text();

    Person& person(std::uint64_t number) { return *edited.person(number); }
};

} // namespace

TEST_F(EditingOrder, WhoIsSelectedAfterTheCommandIsNotRemoved)
{
    edited.hold();
    edited.click(person(child));
    edited.document->remove();
    edited.click(person(kid));
    edited.release();
    EXPECT_EQ(edited.person(child), nullptr);
    ASSERT_NE(edited.person(kid), nullptr);
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(kid));
    EXPECT_TRUE(edited.document->isRemovable());
    EXPECT_EQ(edited.journal().depth(), 1u);
}

TEST_F(EditingOrder, RemovingTwiceRemovesOnce)
{
    edited.hold();
    edited.click(person(child));
    edited.document->remove();
    EXPECT_FALSE(edited.document->isRemovable());
    edited.document->remove();
    edited.release();
    EXPECT_EQ(edited.person(child), nullptr);
    EXPECT_THAT(edited.pool().persons(), SizeIs(4));
    EXPECT_EQ(edited.journal().depth(), 1u);
}

TEST_F(EditingOrder, WhoIsAboutToLeaveCanNotBeSelected)
{
    edited.hold();
    edited.click(person(child));
    edited.document->remove();
    edited.click(person(kid));
    edited.click(person(child));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(kid));
    edited.release();
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(kid));
}

TEST_F(EditingOrder, ARemovalWaitsBehindALinkWithoutTheNodeComingBack)
{
    edited.hold();
    edited.linkUnsettled(person(grandma), person(partner), partnerLink);
    edited.click(person(partner));
    edited.document->remove();
    bool seen = false;
    const auto watch = edited.context().observe([&](const Change&) {
        const Person* const leaving = edited.person(partner);
        seen = seen || (leaving && edited.canvas().scene().shows(*leaving));
    });
    edited.release();
    EXPECT_FALSE(seen);
    EXPECT_EQ(edited.person(partner), nullptr);
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(4));
}

TEST_F(EditingOrder, WhoIsRemovedBeforeJoiningTheFamilyIsGoneAfterwards)
{
    edited.hold();
    const RecordId id = edited.addUnsettled();
    edited.click(*edited.context().person(id));
    edited.document->remove();
    edited.release();
    EXPECT_EQ(edited.context().person(id), nullptr);
    EXPECT_THAT(edited.pool().persons(), SizeIs(5));
    EXPECT_THAT(edited.canvas().personLayer().nodes(), SizeIs(5));
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
}

TEST_F(EditingOrder, TheRuleForALinkIsChosenWhenItsTurnComes)
{
    EditedDocument fresh;
    Person& a = fresh.add();
    Person& b = fresh.add();
    Person& c = fresh.add();
    fresh.hold();
    fresh.linkUnsettled(a, b, partnerLink);
    fresh.linkUnsettled(b, c, offspringLink);
    fresh.release();
    EXPECT_EQ(a.generation(), 2);
    EXPECT_EQ(b.generation(), 2);
    EXPECT_EQ(c.generation(), 1);
}

TEST_F(EditingOrder, UndoneBeforeItsTurnAnAddedPersonLeavesNoTrace)
{
    EditedDocument fresh;
    const QByteArray empty = fresh.text();
    fresh.hold();
    fresh.addUnsettled();
    fresh.document->undo();
    fresh.release();
    EXPECT_EQ(fresh.text(), empty);
    EXPECT_TRUE(fresh.document->window().isOnboardingVisible());
    EXPECT_TRUE(fresh.journal().canRedo());
    EXPECT_THAT(fresh.list->rows, IsEmpty());
    EXPECT_EQ(fresh.document->selectionType(), QStringLiteral("none"));
    fresh.redo();
    EXPECT_THAT(fresh.pool().persons(), SizeIs(1));
    EXPECT_THAT(fresh.list->rows, SizeIs(1));
    EXPECT_FALSE(fresh.document->window().isOnboardingVisible());
}

TEST_F(EditingOrder, UndoAndRedoBeforeTheTurnOfALinkEndAsAfterTheLink)
{
    EditedDocument other{*threeGenerations()};
    other.link(*other.person(kid), *other.person(grandpa), partnerLink);
    edited.hold();
    edited.linkUnsettled(person(kid), person(grandpa), partnerLink);
    edited.document->undo();
    edited.document->redo();
    edited.release();
    for (const std::uint64_t number : {grandma, grandpa, child, partner, kid})
        EXPECT_EQ(person(number).generation(), other.person(number)->generation());
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(7));
    edited.undo();
    EXPECT_EQ(edited.text(), before);
}

TEST_F(EditingOrder, AStepThatWasNeverSettledIsSettledWhenUndoComesToIt)
{
    EditedDocument fresh;
    Person& a = fresh.add();
    Person& b = fresh.add();
    Person& c = fresh.add();
    Person& d = fresh.add();
    const QByteArray unlinked = fresh.text();
    fresh.hold();
    fresh.linkUnsettled(a, b, partnerLink);
    fresh.linkUnsettled(c, d, partnerLink);
    fresh.release();
    const QByteArray both = fresh.text();
    fresh.undo();
    EXPECT_THAT(c.partners(), IsEmpty());
    EXPECT_EQ(c.generation(), std::nullopt);
    EXPECT_THAT(a.partners(), SizeIs(1));
    EXPECT_EQ(a.generation(), 1);
    EXPECT_EQ(b.generation(), 1);
    const QByteArray one = fresh.text();
    fresh.undo();
    EXPECT_EQ(fresh.text(), unlinked);
    fresh.redo();
    EXPECT_EQ(fresh.text(), one);
    fresh.redo();
    EXPECT_EQ(fresh.text(), both);
    fresh.undo();
    EXPECT_EQ(fresh.text(), one);
}

TEST_F(EditingOrder, ARemovalThatWasOvertakenIsDoneAgainAfterUndo)
{
    edited.hold();
    edited.click(person(kid));
    edited.document->remove();
    edited.linkUnsettled(person(grandma), person(partner), partnerLink);
    edited.release();
    const QByteArray both = edited.text();
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Link Partner"));
    edited.undo();
    EXPECT_EQ(edited.person(kid), nullptr);
    EXPECT_THAT(person(grandma).partners(), SizeIs(1));
    EXPECT_EQ(person(child).generation(), 1);
    EXPECT_THAT(edited.list->rows, SizeIs(4));
    edited.undo();
    EXPECT_EQ(edited.text(), before);
    EXPECT_THAT(edited.list->rows, SizeIs(5));
    EXPECT_TRUE(edited.canvas().scene().shows(person(kid)));
    edited.redo();
    edited.redo();
    EXPECT_EQ(edited.text(), both);
}

TEST_F(EditingOrder, WhoJoinsLateIsAMemberAfterUndo)
{
    edited.hold();
    const RecordId id = edited.addUnsettled();
    edited.linkUnsettled(person(grandma), person(partner), partnerLink);
    edited.release();
    const QByteArray both = edited.text();
    edited.undo();
    EXPECT_EQ(edited.context().person(id)->pool(), &edited.pool());
    EXPECT_THAT(edited.list->rows, Contains(id));
    EXPECT_TRUE(edited.canvas().scene().shows(*edited.context().person(id)));
    edited.undo();
    EXPECT_EQ(edited.text(), before);
    edited.redo();
    edited.redo();
    EXPECT_EQ(edited.text(), both);
}

TEST_F(EditingOrder, AChangeMadeAfterTheUndoCommandIsNotWhatItTakesBack)
{
    edited.link(person(grandma), person(partner), partnerLink);
    edited.hold();
    edited.document->undo();
    const RecordId id = edited.addUnsettled();
    edited.release();
    EXPECT_NE(edited.context().person(id), nullptr);
    EXPECT_THAT(person(grandma).partners(), SizeIs(2));
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Add Person"));
}

TEST_F(EditingOrder, SeveralUndoCommandsInAHurryTakeBackAsManySteps)
{
    edited.link(person(grandma), person(partner), partnerLink);
    edited.link(person(grandma), person(kid), partnerLink);
    edited.hold();
    edited.linkUnsettled(person(partner), person(kid), partnerLink);
    for (int command = 0; command < 3; ++command)
        edited.document->undo();
    edited.release();
    EXPECT_EQ(edited.text(), before);
    EXPECT_TRUE(edited.journal().canRedo());
}

TEST_F(EditingOrder, WhatWasDueStaysDueIfTheUserGoesOnBeforeItsTurn)
{
    EditedDocument fresh;
    Person& a = fresh.add();
    Person& b = fresh.add();
    Person& c = fresh.add();
    Person& d = fresh.add();
    fresh.hold();
    fresh.linkUnsettled(a, b, partnerLink);
    fresh.linkUnsettled(c, d, partnerLink);
    fresh.release();
    const QByteArray both = fresh.text();
    fresh.hold();
    fresh.document->undo();
    fresh.document->redo();
    fresh.release();
    EXPECT_EQ(fresh.text(), both);
    fresh.undo();
    EXPECT_EQ(a.generation(), 1);
    EXPECT_EQ(c.generation(), std::nullopt);
}

TEST_F(EditingOrder, ADragThatIsTakenBackLeavesWhatEarlierStepsHaveLedToMeanwhile)
{
    Person& first = edited.add();
    Person& second = edited.add();
    const QByteArray unlinked = edited.text();
    edited.hold();
    edited.linkUnsettled(first, second, partnerLink);
    Person& dragged = person(kid);
    edited.canvas().reveal(dragged);
    const auto x = dragged.x();
    Hand hand(edited.canvas());
    hand.press(hand.panel(dragged));
    hand.dragBy({5, 0});
    ASSERT_NE(dragged.x(), x);
    edited.release();
    EXPECT_EQ(first.generation(), 1);
    QTest::keyClick(&edited.canvas(), Qt::Key_Escape);
    edited.settle();
    EXPECT_EQ(dragged.x(), x);
    EXPECT_EQ(first.generation(), 1);
    EXPECT_EQ(second.generation(), 1);
    EXPECT_EQ(edited.journal().undoName(), u"Link Partner"_qs);
    edited.undo();
    EXPECT_EQ(edited.text(), unlinked);
}

TEST_F(EditingOrder, ANeighbourIsDraggedWhileARemovalWaitsAndTheWindowCloses)
{
    edited.hold();
    edited.click(person(partner));
    edited.document->remove();
    Hand hand(edited.canvas());
    hand.press(hand.panel(person(child)));
    hand.dragBy({40, 0});
    hand.release();
    edited.canvas().settle();
    EXPECT_FALSE(edited.canvas().scene().shows(person(partner)));
    edited.document->window().close();
    edited.document.reset();
    EditedDocument::deliver();
}

TEST_F(EditingOrder, ARowIgnoresWhoIsAboutToLeave)
{
    edited.hold();
    edited.click(person(partner));
    edited.document->remove();
    Hand hand(edited.canvas());
    hand.press(hand.panel(person(child)));
    hand.drag(edited.canvas().toViewport(person(partner).leafView()->infoFrame().centre()));
    hand.release();
    edited.canvas().settle();
    const std::int32_t dropped = *person(child).x();
    edited.release();
    EXPECT_EQ(person(child).x(), dropped);
    EXPECT_EQ(edited.journal().depth(), 2u);
}

TEST_F(EditingOrder, ANodeThatUndoTakesAwayIsLetGo)
{
    Person& added = edited.add();
    Hand hand(edited.canvas());
    hand.press(hand.panel(added));
    edited.undo();
    hand.release();
    const std::int32_t x = *person(kid).x();
    hand.press(hand.background(person(kid)));
    hand.dragBy({50, 0});
    hand.release();
    EXPECT_EQ(person(kid).x(), x);
}

TEST_F(EditingOrder, StepsOfTheQueueComeThroughADialogThatBlocks)
{
    Person& newcomer = edited.add();
    edited.linkUnsettled(person(kid), newcomer, partnerLink);
    QDialog dialog(&edited.document->window());
    bool done = false;
    edited.document->whenSettled([&] {
        done = true;
        dialog.accept();
    });
    QTimer::singleShot(60'000, &dialog, &QDialog::reject);
    dialog.exec();
    EXPECT_TRUE(done);
    EXPECT_EQ(newcomer.generation(), 1);
}

TEST(EditingOrderOfHops, ADragGivenUpWhileMissingWorkIsDoneAgainLeavesNoTrace)
{
    constexpr int mostHops = 8;
    for (int hops = 0; hops < mostHops; ++hops) {
        SCOPED_TRACE(hops);
        EditedDocument edited(*threeGenerations());
        Person& newcomer = edited.add();
        const QByteArray before = edited.text();
        edited.hold();
        edited.linkUnsettled(*edited.person(partner), newcomer, offspringLink);
        edited.linkUnsettled(*edited.person(kid), newcomer, partnerLink);
        edited.release();
        // What is missing after the undo waits until something is dragged, and is on its way when that is given up.
        std::optional<Subscription> replays = edited.context().observe([&](const Change& change) {
            if (std::holds_alternative<Replayed>(change))
                edited.hold();
        });
        edited.document->undo();
        while (!edited.journal().canRedo())
            QApplication::processEvents();
        replays.reset();
        Hand hand(edited.canvas());
        hand.press(hand.panel(*edited.person(grandma)));
        hand.dragBy({40, 0});
        edited.document->poolProcessing().setHeld(false);
        for (int hop = 0; hop < hops; ++hop) {
            QTest::qSleep(1);
            QApplication::processEvents();
        }
        QTest::keyClick(&edited.canvas(), Qt::Key_Escape);
        hand.release();
        edited.settle();
        edited.undo();
        ASSERT_EQ(edited.text(), before);
    }
}
