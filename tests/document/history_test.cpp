#include "canvas/hand.h"
#include "canvas/rows_at_rest.h"
#include "canvas/view_driver.h"
#include "listed_document.h"

#include <QTest>

#include <gmock/gmock.h>

using namespace lineara;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

double height(const Person& person)
{
    return person.leafView()->yConstraint()->constant;
}

/// Undo and redo give back the texts on both sides of a step.
void expectExact(EditedDocument& edited, const std::function<void()>& gesture)
{
    const QByteArray before = edited.text();
    const std::size_t depth = edited.journal().depth();
    gesture();
    const QByteArray after = edited.text();
    ASSERT_NE(after, before);
    ASSERT_EQ(edited.journal().depth(), depth + 1);
    for (int round = 0; round < 2; ++round) {
        edited.undo();
        EXPECT_EQ(edited.text(), before);
        edited.redo();
        EXPECT_EQ(edited.text(), after);
    }
}

} // namespace

TEST(History, AddingAPersonIsOneExactStep)
{
    EditedDocument edited(*threeGenerations());
    expectExact(edited, [&] { edited.add(); });
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Add Person"));
}

TEST(History, ALinkIsOneExactStepWithEverythingItMoved)
{
    EditedDocument edited(*threeGenerations());
    Person& founder = edited.add();
    edited.add();
    expectExact(edited, [&] { edited.link(founder, *edited.person(103), offspringLink); });
    expectExact(edited, [&] { edited.link(founder, *edited.person(102), partnerLink); });
}

TEST(History, ARemovalIsOneExactStepWithLinksPictureAndPlace)
{
    EditedDocument edited(*threeGenerations());
    {
        const Journal::Pause pause(edited.journal());
        edited.person(104)->changePic(QStringLiteral(LINEARA_SAMPLES "/no such picture"));
    }
    edited.click(*edited.person(104));
    expectExact(edited, [&] { edited.remove(); });
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Remove Person"));
    edited.undo();
    EXPECT_TRUE(edited.canvas().scene().shows(*edited.person(104)));
    EXPECT_THAT(edited.person(104)->linkLayers(), SizeIs(4));
    EXPECT_THAT(edited.list->rows, SizeIs(5));
}

TEST(History, RemovingALinkIsOneExactStep)
{
    EditedDocument edited(*threeGenerations());
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    expectExact(edited, [&] { edited.remove(); });
}

TEST(History, OrderWithinEverySetComesBack)
{
    // With the order A, B, C the engine gives C another generation than with B, C, A.
    ObjectContext family;
    Pool& pool = family.insertPool();
    Person& a = family.insertPerson();
    Person& b = family.insertPerson();
    Person& c = family.insertPerson();
    for (Person* const person : {&a, &b, &c})
        pool.addPerson(*person);
    a.addChild(b);
    a.addPartner(c);
    b.addPartner(c);
    EditedDocument edited(family);
    ASSERT_EQ(edited.person(104)->generation(), 1);
    edited.click(*edited.person(102));
    expectExact(edited, [&] { edited.remove(); });
    edited.undo();
    EXPECT_EQ(edited.person(104)->generation(), 1);
    edited.clickNothing();
    edited.remove();
    EXPECT_EQ(edited.person(104)->generation(), 1);
}

TEST(History, AShapeFollowsItsLinkThroughUndoAndRedo)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(1));
    // Two newcomers need no run of the engine, and only that makes the lists.
    EXPECT_THAT(edited.pool().partners(), IsEmpty());
    edited.undo();
    EXPECT_THAT(edited.canvas().branchLayer().layers(), IsEmpty());
    EXPECT_THAT(one.linkLayers(), IsEmpty());
    edited.redo();
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(1));
    EXPECT_THAT(edited.pool().partners(), SizeIs(1));
}

TEST(History, ALinkDrawnAgainAndAgainHasOneShape)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    edited.link(one, other, partnerLink);
    edited.link(other, one, partnerLink);
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(1));
}

TEST(History, WhoLosesItsRowByUndoHangsWhereItHungBefore)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    one.leafView()->setYConstant(-60);
    other.leafView()->setYConstant(-300);
    edited.link(one, other, partnerLink);
    EXPECT_EQ(height(one), -230);
    edited.undo();
    EXPECT_EQ(height(one), -60);
    EXPECT_EQ(height(other), -300);
    edited.redo();
    EXPECT_EQ(height(one), -230);
}

TEST(History, WhoComesBackByUndoHangsWhereItHungBefore)
{
    EditedDocument edited;
    Person& person = edited.add();
    const RecordId id = person.recordId();
    person.leafView()->setYConstant(-77);
    edited.click(person);
    edited.remove();
    edited.undo();
    EXPECT_EQ(height(*edited.context().person(id)), -77);
    edited.undo();
    edited.redo();
    EXPECT_EQ(height(*edited.context().person(id)), -77);
}

TEST(History, WhoLosesTheLastLinkStaysInTheOldRow)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    edited.clickLink(one, other, partnerLink);
    edited.remove();
    EXPECT_EQ(one.generation(), std::nullopt);
    EXPECT_EQ(height(one), -230);
    ASSERT_FALSE(edited.pool().generations().empty());
    EXPECT_THAT(edited.pool().generations()[0], SizeIs(2));
}

TEST(History, UndoSpacesNothing)
{
    EditedDocument edited(*threeGenerations());
    Person& kid = *edited.person(106);
    Person& other = edited.add();
    edited.link(*edited.person(104), other, offspringLink);
    {
        // Two nodes over each other, as a file may hold them.
        const Journal::Pause pause(edited.journal());
        other.setX(*kid.x() + 5);
    }
    edited.settle();
    Person& third = edited.add();
    edited.link(*edited.person(104), third, offspringLink);
    edited.undo();
    edited.undo();
    const QByteArray text = edited.text();
    edited.settle();
    EXPECT_EQ(edited.text(), text);
}

TEST(History, ASelectionThatIsGoneIsDropped)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    edited.clickLink(one, other, partnerLink);
    EXPECT_TRUE(edited.document->isRemovable());
    edited.undo();
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
    EXPECT_FALSE(edited.document->isRemovable());
    EXPECT_EQ(edited.canvas().branchLayer().selectedLink(), nullptr);
    edited.click(other);
    edited.undo();
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
    EXPECT_EQ(edited.document->selectionPerson(), nullptr);
}

TEST(History, ASelectionThatIsStillThereIsKept)
{
    EditedDocument edited(*threeGenerations());
    edited.link(*edited.person(102), *edited.person(105), partnerLink);
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    edited.undo();
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("offspring"));
    edited.click(*edited.person(105));
    edited.redo();
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(105));
}

TEST(History, RedoOfAnAddedPersonDoesNotEditItsName)
{
    EditedDocument edited;
    edited.add();
    edited.undo();
    edited.list->log.clear();
    edited.redo();
    EXPECT_THAT(edited.list->log, testing::Not(testing::Contains(testing::StartsWith("edit"))));
}

TEST(History, TheOnlyPersonOfAFamilyGoesAndComesBack)
{
    EditedDocument edited;
    const RecordId id = edited.add().recordId();
    edited.click(*edited.context().person(id));
    edited.remove();
    edited.canvas().setNeedsUpdateConstraints();
    edited.settle();
    edited.undo();
    EXPECT_THAT(edited.pool().generations()[0], testing::ElementsAre(id));
    EXPECT_TRUE(edited.canvas().scene().shows(*edited.context().person(id)));
    edited.add();
    EXPECT_THAT(edited.pool().persons(), SizeIs(2));
}

TEST(History, ASelectedLinkStaysSelectedWhileOthersAreMade)
{
    EditedDocument edited(*threeGenerations());
    LinkLayer& shape = *edited.canvas().branchLayer().layers().front();
    edited.canvas().branchLayer().select(shape);
    edited.clickLink(*shape.source(), *shape.target(), shape.linkType());
    edited.link(*edited.person(106), *edited.person(103), partnerLink);
    EXPECT_EQ(edited.canvas().branchLayer().selectedLink(), &shape);
    EXPECT_TRUE(edited.document->isRemovable());
    edited.undo();
    EXPECT_EQ(edited.canvas().branchLayer().selectedLink(), &shape);
}

TEST(History, WhoIsLeftBehindByARemovalCountsAsUnlinked)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    edited.click(other);
    edited.remove();
    EXPECT_THAT(one.linkLayers(), IsEmpty());
    edited.undo();
    EXPECT_THAT(one.linkLayers(), SizeIs(1));
}

TEST(History, ThePersonConcernedComesIntoView)
{
    EditedDocument edited(*threeGenerations());
    edited.canvas().zoomTo(4, {0, 0});
    edited.click(*edited.person(102));
    edited.remove();
    edited.canvas().reveal(*edited.person(106));
    ASSERT_FALSE(isInView(edited.canvas(), *edited.person(103)));
    edited.undo();
    EXPECT_TRUE(isInView(edited.canvas(), *edited.person(102)));
}

TEST(History, ANameThatComesBackMovesNoRows)
{
    EditedDocument edited(*threeGenerations());
    edited.journal().begin(QStringLiteral("Edit Name"));
    edited.person(104)->setName(QStringLiteral("Somebody with a long name"));
    edited.settle();
    const auto rows = edited.pool().generations();
    const LinkLayer* const shape = edited.canvas().branchLayer().layers().front().get();
    edited.list->log.clear();
    edited.undo();
    EXPECT_EQ(edited.person(104)->name(), QStringLiteral("Child"));
    EXPECT_EQ(edited.pool().generations(), rows);
    EXPECT_EQ(edited.canvas().branchLayer().layers().front().get(), shape);
    EXPECT_THAT(edited.list->log, IsEmpty());
}

TEST(History, WhatIsTypedDuringAGlideIsAStepOfItsOwn)
{
    EditedDocument edited(*threeGenerations());
    Person& newcomer = edited.add();
    edited.linkUnsettled(*edited.person(106), newcomer, partnerLink);
    const auto waitForGenerations = [&] { return newcomer.generation().has_value(); };
    ASSERT_TRUE(QTest::qWaitFor(waitForGenerations));
    edited.journal().begin(QStringLiteral("Edit Name"));
    edited.person(104)->setName(QStringLiteral("Typed"));
    edited.settle();
    const auto places = [&] { return std::pair(newcomer.x(), edited.person(106)->x()); };
    const auto settled = places();
    edited.undo();
    EXPECT_EQ(places(), settled);
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Link Partner"));
}

TEST(History, WhatIsTypedAfterUndoWasAskedForIsNotWhatItTakesBack)
{
    ListedDocument edited(*threeGenerations());
    edited.pressRow(QStringLiteral("Kid"));
    edited.hold();
    edited.document->undo();
    edited.editName();
    edited.type(QStringLiteral("xy"));
    edited.release();
    EXPECT_EQ(edited.person(106)->name(), QStringLiteral("Kidxy"));
}

TEST(History, NothingToUndoIsNoMatter)
{
    EditedDocument edited(*threeGenerations());
    const QByteArray before = edited.text();
    edited.undo();
    edited.redo();
    EXPECT_EQ(edited.text(), before);
}

TEST(History, WhoIsLinkedBeforeJoiningAgainStandsInTheRow)
{
    EditedDocument edited(*threeGenerations());
    SerialQueue& queue = edited.document->poolProcessing();
    edited.hold();
    const RecordId id = edited.addUnsettled();
    bool hasJoined = false;
    WorkBlock pause;
    pause.onMainWaiting([&] {
        queue.setHeld(true);
        hasJoined = true;
    });
    queue.enqueue(std::move(pause));
    const Person& newcomer = *edited.context().person(id);
    edited.linkUnsettled(*edited.person(106), *edited.context().person(id), partnerLink);
    Hand hand(edited.canvas());
    hand.press(hand.panel(*edited.person(102)));
    hand.dragBy({5, 0});
    queue.setHeld(false);
    ASSERT_TRUE(runEventsUntil(hasJoined));
    // The drag is taken back, and with it the joining, which has its turn again after the link.
    QTest::keyClick(&edited.canvas(), Qt::Key_Escape);
    edited.release();
    ASSERT_EQ(newcomer.generation(), edited.person(106)->generation());
    EXPECT_THAT(edited.pool().generations()[static_cast<std::size_t>(*newcomer.generation())], Contains(id));
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(7));
    EXPECT_TRUE(isAtRest(edited.pool()));
}
