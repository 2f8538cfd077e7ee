// Drags of nodes that do not end with a release.

#include "dragged_node.h"
#include "rows_at_rest.h"

#include <gmock/gmock.h>

#include <QTest>

namespace lineara {
namespace {

using testing::IsEmpty;

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

TEST_F(DraggedNode, LeavesItsRowInOrderForAStepThatIsBegunMeanwhile)
{
    Person& ann = family.add(300, 1);
    Person& bob = family.add(500, 1);
    showRows();
    hand->press(hand->panel(ann));
    hand->dragBy({150, 0});
    ASSERT_FALSE(isAtRest(family.pool));
    journal().begin(u"Edit Notes"_qs);
    bob.setAdditional(u"Twin"_qs);
    hand->dragBy({60, 0});
    hand->release();
    view->settle();
    EXPECT_TRUE(isAtRest(family.pool));
    while (journal().canUndo()) {
        journal().undo();
        EXPECT_TRUE(isAtRest(family.pool)) << journal().redoName().toStdString();
    }
    while (journal().canRedo()) {
        journal().redo();
        EXPECT_TRUE(isAtRest(family.pool)) << journal().undoName().toStdString();
    }
}

TEST_F(DraggedNode, UndoneAndRedoneWhileItIsHeldStandsInOrder)
{
    Person& ann = family.add(300, 1);
    family.add(500, 1);
    showRows();
    const auto before = ann.x();
    hand->press(hand->panel(ann));
    hand->dragBy({150, 0});
    view->settle();
    journal().undo();
    EXPECT_EQ(ann.x(), before);
    journal().redo();
    EXPECT_TRUE(isAtRest(family.pool));
}

TEST_F(DraggedNode, KeepsOutOfAnEarlierStepThatIsOpenedAgainMeanwhile)
{
    Person& ann = family.add(200);
    show();
    journal().begin(u"Edit Name"_qs);
    ann.setName(u"Anne"_qs);
    view->settle();
    const auto before = ann.x();
    hand->press(hand->panel(ann));
    hand->dragBy({10, 0});
    hand->dragBy({-10, 0});
    journal().amend();
    hand->dragBy({20, 0});
    EXPECT_EQ(journal().undoName(), u"Move Person"_qs);
    QTest::keyClick(view, Qt::Key_Escape);
    EXPECT_EQ(ann.x(), before);
    EXPECT_EQ(ann.name(), u"Anne"_qs);
    EXPECT_EQ(journal().undoName(), u"Edit Name"_qs);
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

} // namespace
} // namespace lineara
