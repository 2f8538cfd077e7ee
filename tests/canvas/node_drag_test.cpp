// Nodes that are clicked and moved with the mouse.

#include "hand.h"

#include <gmock/gmock.h>

#include <QTest>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DraggedNode : public testing::Test
{
protected:
    void show(QSize viewport = {900, 600})
    {
        view = &family.processAndShow(viewport);
        hand.emplace(*view);
    }
    /// Persons keep the rows that they were added in.
    void showRows()
    {
        addManyRows(family);
        view = &family.show();
        view->actualSize();
        hand.emplace(*view);
    }
    Journal& journal() { return family.context.journal(); }

    ShownFamily family;
    TreeView* view = nullptr;
    std::optional<Hand> hand;
    Announcements announced{family.pool};
};

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

TEST_F(DraggedNode, GoesBackOnEscapeWithEverybodyWhoWasShifted)
{
    Person& ann = family.add(0);
    Person& bob = family.add(400);
    show();
    const double height = ShownFamily::yConstant(ann);
    hand->press(hand->panel(ann));
    for (int event = 0; event < 10; ++event) {
        hand->dragBy({-10, -5});
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ann.x(), 0);
    EXPECT_EQ(bob.x(), 500);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ann.x(), 0);
    EXPECT_EQ(bob.x(), 400);
    EXPECT_EQ(ShownFamily::yConstant(ann), height);
    EXPECT_FALSE(journal().canUndo());
    EXPECT_FALSE(LeafView::isDragging());

    hand->dragBy({50, 50});
    hand->release();
    QCoreApplication::processEvents();
    EXPECT_EQ(ann.x(), 0);
    EXPECT_EQ(ShownFamily::yConstant(ann), height);
    EXPECT_THAT(announced.log, IsEmpty());
}

TEST_F(DraggedNode, TakenOnItsWayToARowEndsThereOnEscape)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    show();
    ann.addPartner(bob);
    family.pool.process();
    view->refreshHierarchy();
    const double row = rowConstant(ann.generation());
    ASSERT_NE(ShownFamily::yConstant(ann), row);
    hand->press(hand->panel(ann));
    hand->dragBy({30, 0});
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ShownFamily::yConstant(ann), row);
    EXPECT_EQ(ann.x(), 200);
}

TEST_F(DraggedNode, StaysOnEscapeInTheRowThatItWasGivenMeanwhile)
{
    for (const double pull : {0.0, -40.0}) {
        Person& ann = family.add(200);
        show();
        hand->press(hand->panel(ann));
        hand->dragBy({0, pull});
        ann.setGeneration(2);
        family.pool.arrangeGenerations();
        view->refreshHierarchy();
        view->settle();
        QTest::keyClick(view, Qt::Key_Escape);
        EXPECT_EQ(ShownFamily::yConstant(ann), rowConstant(2)) << pull;
        family.context.remove(ann);
    }
}

TEST_F(DraggedNode, CancelLeavesEarlierStepsAlone)
{
    Person& ann = family.add(200);
    show();
    journal().begin(u"Edit Name"_qs);
    ann.setName(u"Anne"_qs);
    hand->press(hand->panel(ann));
    hand->dragBy({0, -30});
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ann.name(), u"Anne"_qs);
    hand->press(hand->panel(ann));
    hand->dragBy({25, 0});
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ann.name(), u"Anne"_qs);
    EXPECT_EQ(journal().undoName(), u"Edit Name"_qs);
}

TEST_F(DraggedNode, KeepsAnotherStepThatWasBegunMeanwhileApart)
{
    Person& ann = family.add(200);
    show();
    hand->press(hand->panel(ann));
    hand->dragBy({10, 0});
    journal().begin(u"Edit Name"_qs);
    ann.setName(u"Anne"_qs);
    hand->dragBy({10, 0});
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ann.name(), u"Anne"_qs);
    EXPECT_EQ(ann.x(), 210);
}

TEST_F(DraggedNode, LostReleaseEndsItWithoutATrace)
{
    Person& ann = family.add(200);
    show();
    const auto lose = [&](const std::function<void()>& how) {
        hand->press(hand->panel(ann));
        hand->dragBy({30, 0});
        how();
        EXPECT_FALSE(LeafView::isDragging());
        EXPECT_EQ(ann.x(), 200);
        hand->press(hand->background(ann));
        hand->dragBy({30, 0});
        hand->release();
        EXPECT_EQ(ann.x(), 200);
    };
    const auto send = [&](QEvent::Type type, QObject* to) {
        QEvent event(type);
        QCoreApplication::sendEvent(to, &event);
    };
    lose([&] { send(QEvent::WindowDeactivate, view); });
    lose([&] { send(QEvent::UngrabMouse, view->viewport()); });
    lose([&] {
        view->hide();
        view->show();
    });
    lose([&] { hand->hover(hand->at()); });
    QCoreApplication::processEvents();
    EXPECT_THAT(announced.log, IsEmpty());
}

TEST_F(DraggedNode, DisappearsInTheMiddleOfItsDrag)
{
    Person& ann = family.add(200);
    Person& bob = family.add(500);
    show();
    hand->press(hand->panel(ann));
    hand->dragBy({30, 0});
    view->removeViewForPerson(ann);
    EXPECT_FALSE(LeafView::isDragging());
    hand->dragBy({30, 0});
    hand->release();
    hand->press(hand->background(bob));
    hand->dragBy({30, 0});
    hand->release();
    EXPECT_EQ(bob.x(), 500);
    EXPECT_THAT(announced.log, IsEmpty());
}

TEST_F(DraggedNode, WhoseCreationIsUndoneIsForgotten)
{
    Person& bob = family.add(500);
    show();
    journal().begin(u"Add Person"_qs);
    Person& ann = family.add(200);
    view->settle();
    const auto before = bob.x();
    hand->press(hand->panel(ann));
    journal().undo();
    EXPECT_FALSE(LeafView::isDragging());
    hand->press(hand->background(bob));
    hand->dragBy({30, 0});
    EXPECT_EQ(bob.x(), before);
    hand->release();
}

TEST_F(DraggedNode, EndsWithTheCanvas)
{
    Person& ann = family.add(200);
    show();
    hand->press(hand->panel(ann));
    family.view.reset();
    EXPECT_FALSE(LeafView::isDragging());
}

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

} // namespace
} // namespace lineara
