// What stays where it is on the screen while places on the canvas change.

#include "canvas/tree_view.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "view_driver.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>

namespace lineara {
namespace {

const QString longName = QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen");

/// A row of three at the left edge, and somebody in another row.
class Steady : public testing::Test
{
protected:
    Steady()
    {
        family.show();
        view().zoomTo(1, {0, 0});
        view().scrollTo(0, 0);
    }
    TreeView& view() { return *family.view; }
    void drop(Person& person)
    {
        NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family.pool, person.recordId()});
    }

    ShownFamily family;
    Person& first = family.add(0, 1, longName);
    Person& second = family.add(152, 1, longName);
    Person& third = family.add(304, 1, longName);
    Person& other = family.add(500, 2);
};

TEST_F(Steady, EverybodyKeepsTheirPixelsWhenASolvedRowShiftsTheFamily)
{
    const QPointF before = family.pixelOf(other);
    third.setX(140);
    const QPointF dropped = family.pixelOf(third);
    drop(third);
    view().settle();
    EXPECT_EQ(first.x(), 0);
    EXPECT_EQ(third.x(), 152);
    EXPECT_EQ(other.x(), 512);
    EXPECT_EQ(family.pixelOf(other), before);
    EXPECT_EQ(family.pixelOf(third), dropped);
}

TEST_F(Steady, AWiderNodeThatPushesItsRowOverTheEdgeLeavesTheOthersOnTheirPixels)
{
    second.setName(QStringLiteral("Al"));
    first.setX(0);
    second.setX(*first.x() + first.leafView()->width() + 10);
    third.setX(*second.x() + second.leafView()->width() + 10);
    Person& fourth = family.add(*third.x() + third.leafView()->width() + 10, 1, longName);
    view().addViewForPerson(fourth);
    family.pool.arrangeGenerations();
    view().refreshHierarchy();
    view().settle();
    const QPointF before = family.pixelOf(other);
    const QPointF last = family.pixelOf(fourth);
    first.setX(1);
    first.setX(-12);
    second.setName(longName);
    view().settle();
    EXPECT_EQ(first.x(), 0);
    EXPECT_EQ(other.x(), 512);
    EXPECT_EQ(family.pixelOf(other), before);
    EXPECT_NE(family.pixelOf(fourth), last);
}

TEST_F(Steady, ADraggedNodeStaysAtTheEdgeAndAllOthersGiveWay)
{
    view().setPointerHold(PointerHold::Node);
    const QPointF edge = family.pixelOf(first);
    const QPointF before = family.pixelOf(other);
    for (int event = 0; event < 30; ++event) {
        first.setX(*first.x() - 1);
        QCoreApplication::processEvents();
        EXPECT_EQ(first.x(), 0);
        EXPECT_EQ(family.pixelOf(first), edge);
    }
    EXPECT_EQ(other.x(), 530);
    EXPECT_EQ(family.pixelOf(other), before + QPointF(30, 0));
    drop(first);
    view().setPointerHold(PointerHold::None);
    QCoreApplication::processEvents();
    EXPECT_EQ(family.pixelOf(first), edge);
    EXPECT_EQ(family.pixelOf(other), before + QPointF(30, 0));
}

TEST_F(Steady, TheLastShiftOfADragIsNotMadeUpForAfterTheRelease)
{
    const QPointF edge = family.pixelOf(first);
    view().setPointerHold(PointerHold::Node);
    first.setX(-5);
    drop(first);
    view().setPointerHold(PointerHold::None);
    view().settle();
    EXPECT_EQ(first.x(), 0);
    EXPECT_EQ(family.pixelOf(first), edge);
}

TEST_F(Steady, ADragTakenBackLeavesTheViewWhereItWas)
{
    const QPointF before = family.pixelOf(other);
    family.context.journal().begin(QStringLiteral("Move Person"));
    view().setPointerHold(PointerHold::Node);
    first.setX(-30);
    view().settle();
    family.context.journal().rollBack();
    view().settle();
    view().setPointerHold(PointerHold::None);
    EXPECT_EQ(first.x(), 0);
    EXPECT_EQ(family.pixelOf(other), before);
}

TEST_F(Steady, UndoAndRedoOfAShiftMoveNobodyElseOnTheScreen)
{
    view().scrollTo(0, 0);
    family.context.journal().begin(QStringLiteral("Move Person"));
    third.setX(140);
    drop(third);
    view().settle();
    const QPointF before = family.pixelOf(other);
    family.context.journal().undo();
    view().settle();
    EXPECT_EQ(other.x(), 500);
    EXPECT_EQ(family.pixelOf(other), before);
    family.context.journal().redo();
    view().settle();
    EXPECT_EQ(family.pixelOf(other), before);
}

TEST_F(Steady, AShiftIsFollowedAtEveryZoomToThePixel)
{
    for (const double zoom : {0.3, 0.5, 2.0, 3.0}) {
        view().zoomTo(zoom, {0, 0});
        view().scrollTo(0, 0);
        const QPointF before = family.pixelOf(other);
        view().adjustBy(-37);
        view().settle();
        EXPECT_LE(std::abs(family.pixelOf(other).x() - before.x()), 0.5);
        EXPECT_EQ(family.pixelOf(other).y(), before.y());
    }
}

TEST_F(Steady, ScrollBarsAndResizingLeaveAFollowedViewAlone)
{
    view().setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    const QPointF before = family.pixelOf(other);
    view().adjustBy(-300);
    view().settle();
    EXPECT_EQ(family.pixelOf(other).x(), before.x());
    view().resize(view().width() - 50, view().height());
    QCoreApplication::processEvents();
    EXPECT_EQ(family.pixelOf(other).x(), before.x());
    view().scrollTo(-1000, 0);
    EXPECT_EQ(family.pixelOf(first).x(), *first.x());
}

TEST_F(Steady, AShiftBeneathAPressedPointerIsFollowedAtTheRelease)
{
    view().setPointerHold(PointerHold::Canvas);
    const QPointF before = family.pixelOf(other);
    view().adjustBy(-30);
    view().settle();
    EXPECT_EQ(family.pixelOf(other), before + QPointF(30, 0));
    view().setPointerHold(PointerHold::None);
    EXPECT_EQ(family.pixelOf(other), before);
}

TEST_F(Steady, ScrollingToAPersonWaitsForTheRelease)
{
    Person& far = family.add(5000, 2);
    view().addViewForPerson(far);
    view().settle();
    const QPointF before = family.pixelOf(first);
    view().setPointerHold(PointerHold::Node);
    view().reveal(far);
    EXPECT_EQ(family.pixelOf(first), before);
    view().setPointerHold(PointerHold::None);
    EXPECT_TRUE(isInView(view(), far));
    view().setPointerHold(PointerHold::Canvas);
    view().reveal(first);
    family.context.remove(first);
    view().setPointerHold(PointerHold::None);
    EXPECT_TRUE(isInView(view(), far));
}

TEST_F(Steady, CanvasGrowsToTheRightAndScrollBarsFollow)
{
    view().setPointerHold(PointerHold::Node);
    third.setX(4000);
    view().settle();
    const double reach = third.leafView()->frame().x + third.leafView()->width();
    EXPECT_EQ(view().canvasSize().width(), reach);
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), static_cast<int>(reach) - 900);
    third.setX(304);
    view().settle();
    EXPECT_EQ(view().canvasSize().width(), reach);
    view().setPointerHold(PointerHold::None);
    EXPECT_EQ(view().canvasSize().width(), 900);
}

/// Grandparent, parent and child in rows 3 to 1, taller than the view.
class CommonRowShift : public testing::Test
{
protected:
    CommonRowShift()
    {
        grandparent.addChild(parent);
        parent.addChild(child);
        family.processAndShow();
        view().zoomTo(1, {0, 0});
        view().scrollTo(0, 0);
    }
    TreeView& view() { return *family.view; }
    void shiftRows()
    {
        Person& unlinked = family.add(500);
        view().addViewForPerson(unlinked);
        family.pool.process();
        EXPECT_EQ(child.generation(), 2);
        view().refreshHierarchy();
    }

    ShownFamily family;
    Person& grandparent = family.add(0);
    Person& parent = family.add(200);
    Person& child = family.add(400);
};

TEST_F(CommonRowShift, LeavesEverybodyOnTheirPixelsFromTheFirstPictureOn)
{
    const QPointF pixels[] = {family.pixelOf(grandparent), family.pixelOf(parent), family.pixelOf(child)};
    shiftRows();
    EXPECT_EQ(family.pixelOf(grandparent), pixels[0]);
    EXPECT_EQ(family.pixelOf(child), pixels[2]);
    view().settle();
    EXPECT_EQ(family.pixelOf(grandparent), pixels[0]);
    EXPECT_EQ(family.pixelOf(parent), pixels[1]);
    EXPECT_EQ(family.pixelOf(child), pixels[2]);
    EXPECT_EQ(family.yConstant(child), rowConstant(2));
}

TEST_F(CommonRowShift, IsFollowedBackDown)
{
    shiftRows();
    view().settle();
    const QPointF before = family.pixelOf(child);
    family.context.remove(*family.pool.persons()[3]);
    family.pool.process();
    view().refreshHierarchy();
    EXPECT_EQ(family.pixelOf(child), before);
    view().settle();
    EXPECT_EQ(child.generation(), 1);
    EXPECT_EQ(family.pixelOf(child), before);
}

TEST_F(CommonRowShift, IsCountedOnceWhenRefreshedTwice)
{
    const QPointF before = family.pixelOf(child);
    shiftRows();
    view().refreshHierarchy();
    EXPECT_EQ(family.pixelOf(child), before);
    view().settle();
    EXPECT_EQ(family.pixelOf(child), before);
}

TEST_F(CommonRowShift, LetsNodesGlideOnFromWhereTheyAreOnTheScreen)
{
    grandparent.setGeneration(4);
    family.pool.arrangeGenerations();
    view().refreshHierarchy();
    ASSERT_TRUE(QTest::qWaitFor([&] { return family.yConstant(grandparent) < rowConstant(3); }));
    const QPointF before = family.pixelOf(grandparent);
    for (Person* const person : {&grandparent, &parent, &child})
        person->setGeneration(*person->generation() + 1);
    family.pool.arrangeGenerations();
    view().refreshHierarchy();
    EXPECT_EQ(family.pixelOf(grandparent), before);
    view().settle();
    EXPECT_EQ(family.yConstant(grandparent), rowConstant(5));
}

TEST_F(CommonRowShift, WaitsForTheReleaseOfAPointer)
{
    const QPointF before = family.pixelOf(child);
    view().setPointerHold(PointerHold::Node);
    shiftRows();
    EXPECT_EQ(family.pixelOf(child), before);
    view().settle();
    EXPECT_EQ(family.pixelOf(child), before - QPointF(0, 221));
    view().setPointerHold(PointerHold::None);
    EXPECT_EQ(family.pixelOf(child), before);
}

TEST_F(CommonRowShift, KeepsTheHeightsOfThoseWithoutRows)
{
    Person& unlinked = family.add(500);
    view().addViewForPerson(unlinked);
    unlinked.leafView()->setYConstant(-60);
    family.pool.process();
    view().refreshHierarchy();
    view().settle();
    EXPECT_EQ(family.yConstant(unlinked), -60);
}

} // namespace
} // namespace lineara
