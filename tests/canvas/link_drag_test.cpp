// Links that are made by dragging a handle to somebody.

#include "dragged_link.h"
#include "elements/colours.h"

#include <gmock/gmock.h>

#include <QScrollBar>
#include <QTest>

namespace lineara {
namespace {

using testing::ElementsAre;

TEST_F(DraggedLink, RunsFromTheHandlesCentreToThePointer)
{
    show();
    hand->press(hand->partnerHandle(ann));
    EXPECT_FALSE(band());
    hand->drag({450, 300});
    EXPECT_EQ(band(), (RubberBand{colours::partnerStroke(), ann.leafView()->partnerHandle().frame().centre(),
                                  view->toCanvas({450, 300})}));
    hand->drag({500, 310});
    EXPECT_EQ(band()->to, view->toCanvas({500, 310}));
    hand->release();
    EXPECT_TRUE(isOver());

    hand->press(hand->childHandle(ann));
    hand->drag({450, 300});
    EXPECT_EQ(band()->strokeColor, colours::offspringStroke());
    hand->release();
}

TEST_F(DraggedLink, IsMadeWhereItIsDropped)
{
    show();
    hand->press(hand->childHandle(ann));
    hand->drag(hand->panel(bob));
    hand->release();
    ASSERT_TRUE(request_);
    EXPECT_EQ(request_->family, &family.pool);
    EXPECT_EQ(request_->from, ann.recordId());
    EXPECT_EQ(request_->to, bob.recordId());
    EXPECT_EQ(request_->type, offspringLink);
    EXPECT_TRUE(isOver());
    EXPECT_THAT(announced.log, ElementsAre("connectionDrag", "connectionEnd", "createLink"));
}

TEST_F(DraggedLink, CanBeDroppedOnEveryPartOfANode)
{
    show();
    const auto isMadeAt = [&](QPointF place) {
        request_.reset();
        hand->press(hand->partnerHandle(ann));
        hand->drag(place);
        hand->release();
        return request_ && request_->to == bob.recordId();
    };
    EXPECT_TRUE(isMadeAt(hand->panel(bob)));
    EXPECT_TRUE(isMadeAt(hand->picture(bob)));
    EXPECT_TRUE(isMadeAt(hand->partnerHandle(bob)));
    EXPECT_TRUE(isMadeAt(hand->background(bob)));
    EXPECT_FALSE(isMadeAt(hand->panel(bob) + QPointF(200, 0)));
}

TEST_F(DraggedLink, DroppedWhereTwoNodesOverlapGoesToTheUpper)
{
    Person& upper = family.add(600, 1);
    show();
    upper.setX(*bob.x() + 20);
    const QPointF place = hand->background(upper);
    ASSERT_TRUE(bob.leafView()->frame().contains(view->toCanvas(place)));
    hand->press(hand->partnerHandle(ann));
    hand->drag(place);
    hand->release();
    EXPECT_EQ(request_->to, upper.recordId());
}

TEST_F(DraggedLink, DroppedOnNobodyOrARefusedOneEndsInSilence)
{
    ann.addChild(bob);
    show();
    for (const QPointF& place : {hand->panel(bob), QPointF(850, 100), hand->panel(ann)}) {
        hand->press(hand->childHandle(bob));
        hand->drag({600, 200});
        hand->drag(hand->panel(ann));
        EXPECT_TRUE(band());
        hand->drag(place);
        hand->release();
        EXPECT_TRUE(isOver());
    }
    EXPECT_FALSE(request_);
    EXPECT_FALSE(family.context.journal().canUndo());
    EXPECT_EQ(view->branchLayer().layers().size(), 1u);
}

TEST_F(DraggedLink, DroppedBeyondTheViewMissesTheNodeThatLiesThere)
{
    Person& far = family.add(950, 1);
    show();
    view->scrollTo(0, 0);
    const QPointF place = hand->panel(far);
    ASSERT_GT(place.x(), 900);
    hand->press(hand->partnerHandle(ann));
    hand->drag(place);
    EXPECT_FALSE(marks().linkTarget);
    hand->release();
    EXPECT_FALSE(request_);
    EXPECT_TRUE(isOver());
}

TEST_F(DraggedLink, ClickOnAHandleAnnouncesOnlyTheEndAndMakesNothing)
{
    show();
    hand->click(hand->partnerHandle(ann));
    QCoreApplication::processEvents();
    EXPECT_THAT(announced.log, ElementsAre("connectionEnd"));
    EXPECT_FALSE(request_);
    EXPECT_EQ(ann.x(), 100);
}

TEST_F(DraggedLink, EveryDragEventIsAnnouncedOnceAndNeverMovesTheNode)
{
    show();
    hand->press(hand->partnerHandle(ann));
    for (int event = 0; event < 5; ++event)
        hand->dragBy({10, 5});
    EXPECT_EQ(std::ranges::count(announced.log, "connectionDrag"), 5);
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(std::ranges::count(announced.log, "PersonClicked"), 0);
    EXPECT_EQ(ann.x(), 100);
}

TEST_F(DraggedLink, IsNotOfTheOtherFamilyThatIsOpen)
{
    ShownFamily other;
    Person& there = other.add(100, 1);
    other.add(400, 1);
    TreeView& otherView = other.show();
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->panel(bob));
    EXPECT_FALSE(otherView.personLayer().connection());
    hand->release();
    EXPECT_EQ(request_->family, &family.pool);
    EXPECT_EQ(view->branchLayer().layers().size(), 1u);
    EXPECT_TRUE(otherView.branchLayer().layers().empty());
    EXPECT_TRUE(there.linkLayers().empty());
}

TEST_F(DraggedLink, ShowsAtEachNodeWhetherItIsPossible)
{
    Person& child = family.add(700, 1);
    ann.addChild(child);
    show();
    hand->press(hand->childHandle(child));
    hand->drag({600, 100});
    EXPECT_FALSE(marks().linkTarget);
    hand->drag(hand->panel(bob));
    EXPECT_EQ(marks().linkTarget, (LinkTarget{bob.leafView(), offspringLink.toString(), true}));
    hand->drag(hand->background(bob));
    EXPECT_EQ(marks().linkTarget, (LinkTarget{bob.leafView(), offspringLink.toString(), true}));
    hand->drag(hand->panel(ann));
    EXPECT_EQ(marks().linkTarget, (LinkTarget{ann.leafView(), offspringLink.toString(), false}));
    hand->drag(hand->panel(child));
    EXPECT_FALSE(marks().linkTarget);
    hand->release();
    EXPECT_TRUE(isOver());
}

TEST_F(DraggedLink, AsksTheRulesOncePerNodeEntered)
{
    show();
    hand->press(hand->childHandle(ann));
    hand->drag(hand->panel(bob));
    EXPECT_TRUE(marks().linkTarget->isPossible);
    // The rules would answer otherwise from now on.
    bob.addChild(ann);
    hand->dragBy({3, 0});
    EXPECT_TRUE(marks().linkTarget->isPossible);
    hand->drag({600, 100});
    hand->drag(hand->panel(bob));
    EXPECT_FALSE(marks().linkTarget->isPossible);
    hand->release();
    EXPECT_FALSE(request_);
}

TEST_F(DraggedLink, EndsOnEscapeWithoutATrace)
{
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->panel(bob));
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_TRUE(isOver());
    EXPECT_FALSE(ann.leafView()->partnerHandle().isHighlighted());
    hand->dragBy({5, 0});
    EXPECT_TRUE(isOver());
    hand->release();
    EXPECT_FALSE(request_);
    EXPECT_EQ(std::ranges::count(announced.log, "connectionEnd"), 0);
}

TEST_F(DraggedLink, EndsWhenItsPersonDisappears)
{
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->panel(bob));
    view->removeViewForPerson(ann);
    EXPECT_TRUE(isOver());
    hand->dragBy({3, 0});
    hand->release();
    EXPECT_FALSE(request_);
}

TEST_F(DraggedLink, GoesOnWhenThePersonUnderThePointerDisappears)
{
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->panel(bob));
    view->removeViewForPerson(bob);
    EXPECT_FALSE(marks().linkTarget);
    EXPECT_TRUE(band());
    hand->dragBy({3, 0});
    hand->release();
    EXPECT_FALSE(request_);
}

TEST_F(DraggedLink, StaysAtThePointerWhileTheViewIsScrolled)
{
    showWide();
    hand->press(hand->partnerHandle(ann));
    hand->drag({450, 300});
    const auto isAtThePointer = [&] {
        return band()->to == view->toCanvas({450, 300}) &&
               band()->from == ann.leafView()->partnerHandle().frame().centre();
    };
    turnWheel(*view, {0, 120}, Qt::NoModifier, {450, 300});
    EXPECT_GT(view->toCanvas({0, 600}).y, 0);
    EXPECT_TRUE(isAtThePointer());
    view->horizontalScrollBar()->setValue(150);
    EXPECT_TRUE(isAtThePointer());
    view->scrollTo(70, 30);
    EXPECT_TRUE(isAtThePointer());
    hand->release();
}

TEST_F(DraggedLink, ScrollsOnWhileThePointerRestsAtTheEdge)
{
    showWide();
    hand->press(hand->partnerHandle(ann));
    hand->drag({905, 300});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->toCanvas({0, 0}).x > 100; }));
    EXPECT_EQ(band()->to, view->toCanvas({905, 300}));
    hand->drag({450, 300});
    const double left = view->toCanvas({0, 0}).x;
    QTest::qWait(50);
    EXPECT_EQ(view->toCanvas({0, 0}).x, left);
    hand->release();
}

TEST_F(DraggedLink, PlacesThePersonWithoutARowInTheSameStep)
{
    Person& newcomer = family.add(700);
    show();
    hand->press(hand->partnerHandle(newcomer));
    hand->drag(hand->panel(bob));
    hand->release();
    EXPECT_EQ(newcomer.x(), 421);
    EXPECT_EQ(family.context.journal().undoName(), u"Link Partner"_qs);
    family.context.journal().undo();
    EXPECT_EQ(newcomer.x(), 700);
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST_F(DraggedLink, WithoutAHandleStartsAtTheOrigin)
{
    show();
    NotificationCenter::defaultCenter().post(connectionDragNotification{&family.pool, u"partner"_qs, nullptr});
    EXPECT_EQ(band()->from, CanvasPoint{});
    NotificationCenter::defaultCenter().post(connectionEndNotification{&family.pool, u"partner"_qs, nullptr});
    EXPECT_FALSE(band());
}

TEST_F(DraggedLink, LiesBelowTheNodes)
{
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->panel(bob) + QPointF(0, -200));
    const QImage besides = pictureOf(*view);
    const QPointF middle = hand->picture(bob);
    hand->drag(hand->panel(bob) + QPointF(200, 0));
    EXPECT_EQ(pictureOf(*view).pixelColor(hand->panel(bob).toPoint()), besides.pixelColor(hand->panel(bob).toPoint()));
    EXPECT_NE(pictureOf(*view), besides);
    EXPECT_EQ(middle, hand->picture(bob));
    hand->release();
}

} // namespace
} // namespace lineara
