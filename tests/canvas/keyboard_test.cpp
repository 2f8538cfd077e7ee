// The arrow keys walk through the family.

#include "hand.h"

#include <gmock/gmock.h>

#include <QScrollBar>
#include <QTest>

namespace lineara {
namespace {

class Keyboard : public testing::Test
{
protected:
    void show()
    {
        view = &family.show();
        view->actualSize();
        clicks = NotificationCenter::defaultCenter().observe<PersonClickedNotification>(
            [this](const PersonClickedNotification& click) { clicked = click.person; });
    }
    const Person* at() const { return view->firstResponderNode() ? &view->firstResponderNode()->person() : nullptr; }
    const Person* walk(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(view, key);
        return at();
    }

    ShownFamily family;
    TreeView* view = nullptr;
    std::optional<RecordId> clicked;
    Subscription clicks;
};

TEST_F(Keyboard, WalksToParentChildPartnerAndNextInTheRow)
{
    Person& mother = family.add(100, 2);
    Person& father = family.add(300, 2);
    Person& elder = family.add(0, 1);
    Person& younger = family.add(320, 1);
    Person& stranger = family.add(500, 1);
    mother.addPartner(father);
    for (Person* const child : {&elder, &younger}) {
        mother.addChild(*child);
        father.addChild(*child);
    }
    show();
    view->focus(mother);
    EXPECT_EQ(walk({Qt::Key_Right}), &father);
    EXPECT_EQ(walk({Qt::Key_Down}), &younger);
    EXPECT_EQ(walk({Qt::Key_Right}), &stranger);
    EXPECT_EQ(walk({Qt::Key_Up}), &stranger);
    EXPECT_EQ(walk({Qt::Key_Right}), &stranger);
    EXPECT_EQ(walk({Qt::Key_Left, Qt::Key_Left}), &elder);
    EXPECT_EQ(walk({Qt::Key_Left}), &elder);
    EXPECT_EQ(walk({Qt::Key_Up}), &mother);
    EXPECT_EQ(walk({Qt::Key_Up}), &mother);
    EXPECT_EQ(walk({Qt::Key_Down}), &elder);
}

TEST_F(Keyboard, ClicksWhomItReachesAndShowsThem)
{
    Person& near = family.add(100, 1);
    Person& far = family.add(5000, 1);
    show();
    view->focus(near);
    view->reveal(near);
    ASSERT_FALSE(isInView(*view, far));
    walk({Qt::Key_Right});
    EXPECT_TRUE(isInView(*view, far));
    EXPECT_FALSE(clicked);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicked, far.recordId());
}

TEST_F(Keyboard, BeginsAtThePersonNearestToTheMiddleOfTheView)
{
    addManyRows(family);
    show();
    view->scrollTo(1520, 221);
    const Person* const first = walk({Qt::Key_Up});
    ASSERT_TRUE(first);
    const CanvasPoint centre = first->leafView()->frame().centre();
    const CanvasPoint middle = view->toCanvas({450, 300});
    EXPECT_LE(std::abs(centre.x - middle.x), 76);
    EXPECT_LE(std::abs(centre.y - middle.y), 111);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicked, first->recordId());
}

TEST_F(Keyboard, ReachesEverybodyOfARowHoweverTheyStand)
{
    std::vector<Person*> row;
    for (const int x : {100, 100, 100, 250, 250, 50})
        row.push_back(&family.add(x, 1));
    show();
    view->focus(*row.back());
    std::vector<const Person*> passed{at()};
    for (int step = 0; step < 5; ++step)
        passed.push_back(walk({Qt::Key_Right}));
    EXPECT_THAT(passed, testing::UnorderedElementsAreArray(row));
    for (int step = 0; step < 5; ++step)
        walk({Qt::Key_Left});
    EXPECT_EQ(at(), row.back());
}

TEST_F(Keyboard, PassesOverParentsWhoHaveLeftTheCanvas)
{
    Person& gone = family.add(100, 2);
    Person& there = family.add(300, 2);
    Person& child = family.add(200, 1);
    gone.addChild(child);
    there.addChild(child);
    show();
    view->removeViewForPerson(gone);
    view->focus(child);
    EXPECT_EQ(walk({Qt::Key_Up}), &there);
}

TEST_F(Keyboard, ScrollsWhereThereIsNobody)
{
    show();
    view->resize(300, 200);
    QCoreApplication::processEvents();
    ASSERT_LT(view->horizontalScrollBar()->value(), view->horizontalScrollBar()->maximum());
    const int before = view->horizontalScrollBar()->value();
    EXPECT_EQ(walk({Qt::Key_Right}), nullptr);
    EXPECT_GT(view->horizontalScrollBar()->value(), before);
}

TEST_F(Keyboard, ScrollsWithAModifier)
{
    addManyRows(family);
    show();
    view->scrollTo(500, 300);
    const double before = view->toCanvas({0, 0}).x;
    QTest::keyClick(view, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_GT(view->toCanvas({0, 0}).x, before);
    EXPECT_EQ(at(), nullptr);
}

TEST_F(Keyboard, ReturnAsksForTheNameOfThePersonReached)
{
    Person& person = family.add(100, 1);
    show();
    int asked = 0;
    QObject::connect(view, &TreeView::editNameRequested, view, [&] { ++asked; });
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(asked, 0);
    view->focus(person);
    QTest::keyClick(view, Qt::Key_Return);
    QTest::keyClick(view, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(asked, 2);
}

TEST_F(Keyboard, ForgetsWhereItWasWhenNobodyIsSelected)
{
    Person& left = family.add(100, 1);
    family.add(5000, 1);
    show();
    view->reveal(left);
    view->focus(left);
    view->clearFirstResponder();
    EXPECT_EQ(walk({Qt::Key_Right}), &left);
}

TEST_F(Keyboard, DoesNotWalkWhileSomethingIsDragged)
{
    Person& left = family.add(100, 1);
    family.add(400, 1);
    show();
    Hand hand(*view);
    view->focus(left);
    hand.press(hand.panel(left));
    hand.dragBy({0, 5});
    EXPECT_EQ(walk({Qt::Key_Right}), &left);
    hand.release();
}

TEST_F(Keyboard, EscapeDuringADragIsNobodysShortcut)
{
    Person& person = family.add(100, 1);
    show();
    const auto isTaken = [&] {
        QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
        asked.ignore();
        QCoreApplication::sendEvent(view, &asked);
        return asked.isAccepted();
    };
    EXPECT_FALSE(isTaken());
    Hand hand(*view);
    hand.press(hand.panel(person));
    EXPECT_TRUE(isTaken());
    hand.release();
    EXPECT_FALSE(isTaken());
}

} // namespace
} // namespace lineara
