// Nodes that are clicked and moved with the mouse.

#include "dragged_node.h"

#include <gmock/gmock.h>

#include <QTest>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DraggedNode, FollowsThePointerAsOneStep)
{
    Person& ann = family.add(200);
    family.add(0);
    show();
    hand->press(hand->panel(ann));
    for (int event = 0; event < 10; ++event)
        hand->dragBy({3, 0});
    hand->release();
    EXPECT_EQ(ann.x(), 230);
    EXPECT_EQ(journal().depth(), 1u);
    EXPECT_EQ(journal().undoName(), u"Move Person"_qs);
    journal().undo();
    EXPECT_EQ(ann.x(), 200);
}

TEST_F(DraggedNode, CanBeTakenAtItsPicture)
{
    Person& ann = family.add(200);
    show();
    hand->press(hand->picture(ann));
    hand->dragBy({12, 0});
    hand->release();
    EXPECT_EQ(ann.x(), 212);
}

TEST_F(DraggedNode, AnnouncesTheEndAtOnceAndTheClickLater)
{
    Person& ann = family.add(200);
    show();
    hand->press(hand->panel(ann));
    hand->dragBy({300, 0});
    hand->release();
    EXPECT_THAT(announced.log, ElementsAre("PersonDragEnded"));
    QCoreApplication::processEvents();
    EXPECT_THAT(announced.log, ElementsAre("PersonDragEnded", "PersonClicked"));
}

TEST_F(DraggedNode, ClickMakesItFirstResponderWithTheKeyboardFocusAndNoStep)
{
    Person& ann = family.add(200);
    show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    for (int click = 0; click < 100; ++click)
        hand->click(hand->panel(ann));
    EXPECT_EQ(view->firstResponderNode(), ann.leafView());
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(ann.x(), 200);
    EXPECT_FALSE(journal().canUndo());
}

TEST_F(DraggedNode, PressOnTheBackgroundDoesNothingAtAll)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    ann.addPartner(bob);
    show();
    LinkLayer& link = *view->branchLayer().layers().front();
    view->branchLayer().select(link);
    hand->press(hand->background(ann));
    hand->dragBy({30, -30});
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(ann.x(), 200);
    EXPECT_THAT(announced.log, IsEmpty());
    EXPECT_EQ(view->branchLayer().selectedLink(), &link);
    EXPECT_EQ(view->firstResponderNode(), nullptr);
}

TEST_F(DraggedNode, BackgroundOfTheUpperNodeCoversTheHandleOfTheLower)
{
    Person& lower = family.add(200);
    Person& upper = family.add(200);
    show();
    // The upper node's lower left corner is background; its left end is moved onto the handle of the lower one.
    const Frame handle = lower.leafView()->partnerHandle().frame();
    upper.setX(static_cast<std::int32_t>(handle.centre().x) - 2);
    ASSERT_EQ(view->hit(handle.centre()).node, upper.leafView());
    ASSERT_FALSE(view->hit(handle.centre()).part);
    hand->press(hand->partnerHandle(lower));
    hand->dragBy({30, 0});
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_THAT(announced.log, IsEmpty());
    EXPECT_EQ(lower.x(), 200);
}

TEST_F(DraggedNode, UnlinkedPersonIsPulledWithoutAStep)
{
    Person& ann = family.add(200);
    show();
    const double before = ShownFamily::yConstant(ann);
    hand->press(hand->panel(ann));
    hand->dragBy({0, -40});
    EXPECT_EQ(ShownFamily::yConstant(ann), before - 40);
    hand->dragBy({0, 200});
    hand->release();
    EXPECT_EQ(ShownFamily::yConstant(ann), 0);
    EXPECT_FALSE(journal().canUndo());
}

TEST_F(DraggedNode, LinkedPersonLeavesItsRowOnlyAfterItsLastLinkIsGone)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    ann.addPartner(bob);
    show();
    const double row = ShownFamily::yConstant(ann);
    hand->press(hand->panel(ann));
    hand->dragBy({5, -40});
    hand->release();
    EXPECT_EQ(ShownFamily::yConstant(ann), row);
    EXPECT_EQ(ann.x(), 205);

    ann.removePartner(bob);
    family.pool.process();
    view->refreshHierarchy();
    view->settle();
    const double free = ShownFamily::yConstant(ann);
    hand->press(hand->panel(ann));
    hand->dragBy({0, -20});
    hand->release();
    EXPECT_EQ(ShownFamily::yConstant(ann), free - 20);
}

TEST_F(DraggedNode, ShapesFollowAtEveryEvent)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    ann.addPartner(bob);
    show();
    hand->press(hand->panel(ann));
    hand->dragBy({37, 0});
    EXPECT_EQ(view->branchLayer().layers().front()->startPoint(), ann.leafView()->frame().centre());
    hand->release();
}

TEST_F(DraggedNode, MovesByWholePointsAtEveryZoom)
{
    Person& ann = family.add(200);
    family.add(1000);
    show();
    struct Case
    {
        double zoom;
        int pixels;
        int points;
    };
    for (const Case& drag : {Case{3, 90, 30}, Case{2, 100, 50}, Case{0.5, 50, 100}}) {
        view->zoomTo(drag.zoom, {450, 300});
        view->reveal(ann);
        for (const int direction : {1, -1}) {
            const int from = *ann.x();
            hand->press(hand->panel(ann));
            for (int pixel = 0; pixel < drag.pixels; ++pixel)
                hand->dragBy({static_cast<double>(direction), 0});
            hand->release();
            EXPECT_EQ(*ann.x() - from, direction * drag.points) << drag.zoom;
        }
    }
}

TEST_F(DraggedNode, TakesFractionsOfPixelsAsTheyComeAtFullSize)
{
    Person& ann = family.add(10);
    family.add(400);
    show();
    hand->press(hand->panel(ann));
    hand->dragBy({3.7, 0});
    hand->release();
    EXPECT_EQ(ann.x(), 13);
}

TEST_F(DraggedNode, SecondPressOfADoubleClickDragsToo)
{
    Person& ann = family.add(200);
    show();
    hand->click(hand->panel(ann));
    sendMouse(*view, QEvent::MouseButtonDblClick, hand->at(), Qt::LeftButton, Qt::LeftButton);
    hand->dragBy({20, 0});
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(ann.x(), 220);
    EXPECT_EQ(std::ranges::count(announced.log, "PersonClicked"), 2);
}

TEST_F(DraggedNode, OnlyTheLeftButtonCounts)
{
    Person& ann = family.add(200);
    show();
    sendMouse(*view, QEvent::MouseButtonPress, hand->panel(ann), Qt::RightButton, Qt::RightButton);
    sendMouse(*view, QEvent::MouseMove, hand->panel(ann) + QPointF(30, 0), Qt::NoButton, Qt::RightButton);
    sendMouse(*view, QEvent::MouseButtonRelease, hand->panel(ann), Qt::RightButton, Qt::NoButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(ann.x(), 200);
    EXPECT_THAT(announced.log, IsEmpty());

    hand->press(hand->panel(ann));
    sendMouse(*view, QEvent::MouseButtonPress, hand->at(), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    hand->dragBy({30, 0});
    hand->release();
    EXPECT_EQ(ann.x(), 230);
}

} // namespace
} // namespace lineara
