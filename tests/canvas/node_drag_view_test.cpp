// Where a dragged node and everybody else are on the screen.

#include "dragged_node.h"

#include <QTest>

namespace lineara {
namespace {

TEST_F(DraggedNode, StaysUnderThePointerPastTheLeftEdgeWhileTheOthersAreShifted)
{
    Person& ann = family.add(0);
    Person& bob = family.add(400);
    show();
    hand->press(hand->panel(ann));
    for (int event = 0; event < 30; ++event) {
        hand->dragBy({-1, 0});
        QCoreApplication::processEvents();
        EXPECT_EQ(ann.x(), 0);
    }
    EXPECT_EQ(bob.x(), 430);
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(bob.x(), 430);
    EXPECT_EQ(journal().depth(), 1u);
}

TEST_F(DraggedNode, FollowsTheWheel)
{
    showRows();
    view->scrollTo(400, 0);
    Person& ann = *family.pool.persons()[5];
    const int before = *ann.x();
    hand->press(hand->panel(ann));
    hand->dragBy({1, 0});
    const QPointF at = hand->panel(ann);
    turnWheel(*view, {0, -120}, Qt::ShiftModifier, hand->at());
    EXPECT_GT(*ann.x(), before + 10);
    EXPECT_EQ(hand->panel(ann), at);
    hand->release();
}

TEST_F(DraggedNode, KeepsWithTheCanvasWhenTheProgramScrolls)
{
    showRows();
    view->scrollTo(400, 0);
    Person& ann = *family.pool.persons()[5];
    hand->press(hand->panel(ann));
    hand->dragBy({1, 0});
    const int before = *ann.x();
    view->scrollTo(430, 0);
    hand->dragBy({5, 0});
    EXPECT_EQ(ann.x(), before + 5);
    hand->release();
}

TEST_F(DraggedNode, RunsOnWhileThePointerRestsAtTheEdge)
{
    showRows();
    view->scrollTo(400, 0);
    Person& ann = *family.pool.persons()[5];
    hand->press(hand->panel(ann));
    hand->drag({895, hand->at().y()});
    const int before = *ann.x();
    EXPECT_TRUE(QTest::qWaitFor([&] { return *ann.x() > before + 100; }));
    EXPECT_NEAR(hand->panel(ann).x(), 895, 1);
    hand->release();
    QCoreApplication::processEvents();
    const int after = *ann.x();
    QTest::qWait(50);
    EXPECT_EQ(ann.x(), after);
}

TEST_F(DraggedNode, IsRevealedToNobodyElseBeforeTheRelease)
{
    showRows();
    view->scrollTo(400, 0);
    Person& near = *family.pool.persons()[5];
    Person& far = *family.pool.persons()[35];
    hand->press(hand->panel(near));
    const CanvasPoint before = view->toCanvas({0, 0});
    view->reveal(far);
    EXPECT_EQ(view->toCanvas({0, 0}), before);
    hand->release();
    EXPECT_TRUE(isInView(*view, far));
}

TEST_F(DraggedNode, IsDrawnQuicklyWhileItMovesAndWellOnceItIsLetGo)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    ann.addChild(bob);
    show();
    const QImage atRest = pictureOf(*view);
    hand->press(hand->panel(ann));
    EXPECT_EQ(pictureOf(*view), atRest);
    hand->dragBy({1, 0});
    hand->dragBy({-1, 0});
    EXPECT_NE(pictureOf(*view), atRest);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(pictureOf(*view), atRest);
}

/// A row without room at the left edge, whose spacing shifts everybody, and another row above it.
class ShiftedBeneathTheHand : public DraggedNode
{
protected:
    ShiftedBeneathTheHand()
    {
        for (Person* const person : {&first, &second, &third})
            person->setName(QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen"));
        view = &family.show();
        view->zoomTo(1, {0, 0});
        view->scrollTo(0, 0);
        hand.emplace(*view);
    }
    /// Has the first pushed so many points to the left, as soon as the row is spaced.
    void crowdTheRowBy(int points)
    {
        third.setX(*second.x() - points);
        view->reconstrainCollisionsForPerson(third);
    }

    Person& first = family.add(0, 1);
    Person& second = family.add(152, 1);
    Person& third = family.add(304, 1);
    Person& dragged = family.add(500, 2);
    Person& bystander = family.add(700, 2);
};

TEST_F(ShiftedBeneathTheHand, StaysUnderItWhenASpacingIsDueAtThePress)
{
    crowdTheRowBy(12);
    const QPointF node = family.pixelOf(dragged);
    const QPointF other = family.pixelOf(bystander);
    hand->press(hand->panel(dragged));
    hand->dragBy({1, 0});
    EXPECT_EQ(dragged.x(), 513);
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(1, 0));
    EXPECT_EQ(family.pixelOf(bystander), other);
    hand->release();
}

TEST_F(ShiftedBeneathTheHand, StaysUnderItWhenASpacingIsDueAtTheFirstMovement)
{
    journal().begin(QStringLiteral("Edit Name"));
    bystander.setName(QStringLiteral("Bea"));
    const QPointF node = family.pixelOf(dragged);
    const QPointF other = family.pixelOf(bystander);
    hand->press(hand->panel(dragged));
    crowdTheRowBy(12);
    hand->dragBy({1, 0});
    EXPECT_EQ(bystander.x(), 712);
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(1, 0));
    EXPECT_EQ(family.pixelOf(bystander), other);
    hand->dragBy({5, 0});
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(6, 0));
    hand->release();
}

TEST_F(ShiftedBeneathTheHand, StaysUnderItWhenASpacingComesDuringTheDrag)
{
    const QPointF node = family.pixelOf(dragged);
    const QPointF other = family.pixelOf(bystander);
    hand->press(hand->panel(dragged));
    hand->dragBy({1, 0});
    crowdTheRowBy(12);
    view->settle();
    EXPECT_EQ(bystander.x(), 712);
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(1, 0));
    EXPECT_EQ(family.pixelOf(bystander), other);
    hand->dragBy({5, 0});
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(6, 0));
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(family.pixelOf(dragged), node + QPointF(6, 0));
    EXPECT_EQ(family.pixelOf(bystander), other);
}

TEST_F(ShiftedBeneathTheHand, IsBackWhereItWasOnTheScreenOnEscape)
{
    dragged.setX(0);
    const QPointF node = family.pixelOf(dragged);
    const QPointF other = family.pixelOf(bystander);
    hand->press(hand->panel(dragged));
    hand->dragBy({-30, 0});
    view->settle();
    EXPECT_EQ(family.pixelOf(bystander), other + QPointF(30, 0));
    crowdTheRowBy(52);
    view->settle();
    EXPECT_EQ(bystander.x(), 752);
    EXPECT_EQ(family.pixelOf(bystander), other + QPointF(30, 0));
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(bystander.x(), 700);
    EXPECT_EQ(family.pixelOf(dragged), node);
    EXPECT_EQ(family.pixelOf(bystander), other);
}

} // namespace
} // namespace lineara
