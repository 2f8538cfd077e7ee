// From gaps that are installed to neighbours that stand apart, and what it does to the records.

#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "rows_at_rest.h"
#include "spaced_family.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Spaced, InstallsAGapForEveryTwoOfARow)
{
    for (int person = 0; person < 4; ++person)
        addWide(person * 200, 1);
    addWide(0, 2);
    TreeView& view = family.show();
    view.constrainCollisionsForGeneration(1);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 6u);
    view.constrainCollisionsForGeneration(1);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 12u);
    view.constrainCollisionsForGeneration(2);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 12u);
    view.clearCollisionConstraints();
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 0u);
}

TEST_F(Spaced, InstallsNothingForARowThatDoesNotExist)
{
    addWide(0, 1);
    addWide(200, 1);
    TreeView& view = family.show();
    for (const std::optional<std::int32_t> row : {std::optional<std::int32_t>(), std::optional(-1), std::optional(2),
                                                  std::optional(std::numeric_limits<std::int32_t>::min()),
                                                  std::optional(std::numeric_limits<std::int32_t>::max())})
        view.constrainCollisionsForGeneration(row);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 0u);
}

TEST_F(Spaced, InstallsNothingBeforeThereAreRows)
{
    addWide(0, 1);
    family.view = std::make_unique<TreeView>(family.pool, QSize(900, 600), family.random);
    ASSERT_THAT(family.pool.generations(), IsEmpty());
    family.view->constrainCollisionsForGeneration(0);
    family.view->reconstrainCollisionsForPerson(*family.pool.persons()[0]);
    family.view->settle();
    EXPECT_EQ(family.view->collisionAvoidanceConstraints(), 0u);
}

TEST_F(Spaced, TakesTheGapsAwayOnceTheyAreStored)
{
    addWide(0, 1);
    Person& second = addWide(200, 1);
    TreeView& view = family.show();
    second.setX(50);
    drop(second);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 1u);
    view.settle();
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 0u);
    EXPECT_THAT(places(), ElementsAre(0, 152));
}

TEST_F(Spaced, OpeningSpacesEveryRowWithoutAStep)
{
    addWide(100, 2);
    addWide(100, 2);
    addWide(100, 1);
    addWide(150, 1);
    addWide(0);
    addWide(0);
    family.show();
    EXPECT_THAT(places(), ElementsAre(100, 252, 100, 252, 0, 0));
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST_F(Spaced, OpeningPutsRightWhatASolvedRowPushesLeftOfTheCanvas)
{
    addWide(0, 1);
    addWide(5, 1);
    addWide(6, 1);
    addWide(500, 2);
    family.show();
    EXPECT_THAT(places(), ElementsAre(0, 152, 304, 647));
}

TEST_F(Spaced, RowIsSolvedWithoutALeftBoundAndEverybodyIsShiftedByTheSame)
{
    addWide(0, 1);
    Person& second = addWide(200, 1);
    Person& third = addWide(400, 1);
    addWide(500, 2);
    TreeView& view = family.show();
    second.setX(5);
    third.setX(6);
    drop(third);
    view.settle();
    EXPECT_THAT(places(), ElementsAre(0, 152, 304, 647));
}

TEST_F(Spaced, EveryPassLeavesAPairOfLeastSizesAtEveryNode)
{
    Person& early = addWide(0, 1);
    TreeView& view = family.show();
    const auto before = early.leafView()->minimumSizePairs();
    Person& late = addWide(200, 1);
    view.addViewForPerson(late);
    view.settle();
    const auto sinceThen = early.leafView()->minimumSizePairs() - before;
    for (int pass = 0; pass < 10; ++pass) {
        view.setNeedsUpdateConstraints();
        view.settle();
    }
    EXPECT_EQ(early.leafView()->minimumSizePairs(), before + sinceThen + 10);
    EXPECT_EQ(late.leafView()->minimumSizePairs(), sinceThen + 10);
}

TEST_F(Spaced, KeepsTheOrderOfARow)
{
    addWide(300, 1);
    addWide(100, 1);
    Person& middle = addWide(200, 1);
    TreeView& view = family.show();
    view.settle();
    const auto settled = places();
    EXPECT_LT(settled[1], settled[2]);
    EXPECT_LT(settled[2], settled[0]);
    drop(middle);
    view.settle();
    EXPECT_EQ(places(), settled);
}

TEST_F(Spaced, PutsTheLaterOfTheRowRightWhereXIsEqual)
{
    addWide(0, 1);
    Person& second = addWide(200, 1);
    TreeView& view = family.show();
    second.setX(0);
    drop(second);
    view.settle();
    EXPECT_THAT(places(), ElementsAre(0, 152));
}

TEST_F(Spaced, ANewerOrderHoldsOverAnOlderOneThatHasNotTakenEffect)
{
    Person& first = addWide(0, 1);
    addWide(200, 1);
    TreeView& view = family.show();
    view.reconstrainCollisionsForPerson(first);
    first.setX(210);
    drop(first);
    view.settle();
    EXPECT_THAT(places(), ElementsAre(352, 200));
}

TEST_F(Spaced, ADropOnSomebodyIsPutRightAfterTheEvent)
{
    Person& first = addWide(0, 1);
    addWide(300, 1);
    family.show();
    moveTo(first, 280);
    EXPECT_THAT(places(), ElementsAre(280, 300));
    QCoreApplication::processEvents();
    EXPECT_THAT(places(), ElementsAre(280, 432));
    EXPECT_EQ(family.context.journal().depth(), 1u);
}

TEST_F(Spaced, ADropIsAtRestInTheSameEventWhenAsked)
{
    Person& first = addWide(0, 1);
    addWide(10, 1);
    addWide(300, 1);
    TreeView& view = family.show();
    moveTo(first, -40);
    view.settle();
    EXPECT_TRUE(isAtRest(family.pool));
    EXPECT_EQ(smallestX(family.pool), 0);
}

TEST_F(Spaced, DropsOfOtherFamiliesAreNoMatter)
{
    Person& first = addWide(0, 1);
    addWide(200, 1);
    TreeView& view = family.show();
    first.setX(150);
    ShownFamily other;
    other.add(0, 1);
    other.show();
    NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&other.pool, first.recordId()});
    NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family.pool, RecordId{999}});
    view.settle();
    EXPECT_THAT(places(), ElementsAre(150, 200));
}

TEST_F(Spaced, AHundredClicksInATightRowMoveNobodyAndLeaveNoStep)
{
    for (int person = 0; person < 40; ++person)
        family.add(person * 20, 1, QString(person % 17 + 1, u'm'));
    TreeView& view = family.show();
    ASSERT_TRUE(isAtRest(family.pool));
    const auto settled = places();
    for (std::size_t click = 0; click < 100; ++click) {
        family.context.journal().begin(QStringLiteral("Move Person"));
        drop(*family.pool.persons()[click % 40]);
        view.settle();
    }
    EXPECT_EQ(places(), settled);
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST_F(Spaced, ADropIsSpacedThoughItsRowMovesUpBeforeThePass)
{
    Person& child = addWide(100, 1);
    Person& one = addWide(100, 2);
    Person& other = addWide(400, 2);
    TreeView& view = family.show();
    view.settle();
    other.setX(130);
    NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family.pool, other.recordId()});
    child.setGeneration(2);
    one.setGeneration(3);
    other.setGeneration(3);
    family.pool.arrangeGenerations();
    view.refreshHierarchy();
    view.settle();
    EXPECT_GE(*other.x(), *one.x() + one.leafView()->width() + 10);
}

} // namespace
} // namespace lineara
