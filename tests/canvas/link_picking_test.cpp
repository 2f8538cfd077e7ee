// Links that are picked with the mouse, and who on the canvas the keyboard concerns.

#include "elements/colours.h"
#include "hand.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PickedLink : public testing::Test
{
protected:
    void show()
    {
        view = &family.processAndShow();
        view->actualSize();
        hand.emplace(*view);
    }
    /// A pixel within the link's outline.
    QPointF on(const LinkLayer& link) const
    {
        const QPainterPath& outline = link.path();
        const QRectF box = outline.boundingRect();
        for (double y = box.top(); y < box.bottom(); ++y) {
            for (double x = box.left(); x < box.right(); ++x) {
                const CanvasPoint point = toCanvas(QPointF(x, y));
                if (outline.contains({x, y}) && !view->hit(point).node)
                    return view->toViewport(point);
            }
        }
        ADD_FAILURE();
        return {};
    }
    LinkLayer& link(std::size_t at) const { return *view->branchLayer().layers()[at]; }
    std::vector<std::string> delivered()
    {
        QCoreApplication::processEvents();
        return std::exchange(announced.log, {});
    }

    ShownFamily family;
    Person& parent = family.add(100);
    Person& partner = family.add(400);
    Person& child = family.add(250);
    TreeView* view = nullptr;
    std::optional<Hand> hand;
    Announcements announced{family.pool};
};

TEST_F(PickedLink, TurnsBlueAndIsAnnouncedLater)
{
    parent.addPartner(partner);
    parent.addChild(child);
    show();
    hand->press(on(link(0)));
    EXPECT_EQ(link(0).strokeColor(), colours::selectedStroke());
    EXPECT_THAT(announced.log, IsEmpty());
    EXPECT_THAT(delivered(), ElementsAre("LinkSelection"));
    hand->release();

    hand->click(on(link(1)));
    EXPECT_EQ(link(0).strokeColor(), colours::partnerStroke());
    EXPECT_EQ(link(1).strokeColor(), colours::selectedStroke());
    EXPECT_THAT(delivered(), ElementsAre("LinkSelection"));
}

TEST_F(PickedLink, IsLetGoByAPressOnEmptyCanvas)
{
    parent.addPartner(partner);
    show();
    hand->click(on(link(0)));
    delivered();
    hand->press({5, 5});
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
    EXPECT_THAT(delivered(), ElementsAre("LinkSelection none"));
    hand->release();
}

TEST_F(PickedLink, PressOnEmptyCanvasIsAnnouncedEvenIfNothingWasSelected)
{
    show();
    hand->click({5, 5});
    EXPECT_THAT(delivered(), ElementsAre("LinkSelection none"));
}

TEST_F(PickedLink, IsLetGoInSilenceWhenANodeIsClicked)
{
    parent.addPartner(partner);
    show();
    hand->click(on(link(0)));
    delivered();
    hand->click(hand->panel(child));
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
    EXPECT_THAT(delivered(), ElementsAre("PersonDragEnded", "PersonClicked"));
}

TEST_F(PickedLink, LosesItsBlueWhenAPersonIsSelectedElsewhere)
{
    parent.addPartner(partner);
    show();
    hand->click(on(link(0)));
    view->focus(child);
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
}

TEST_F(PickedLink, UnderANodesBackgroundIsOutOfReach)
{
    parent.addChild(child);
    show();
    const QPointF place = on(link(0));
    const CanvasPoint point = view->toCanvas(place);
    Person& cover = family.add(static_cast<std::int32_t>(point.x) - 1);
    view->addViewForPerson(cover);
    cover.leafView()->setYConstant(-(point.y - 1));
    view->nodeMoved(*cover.leafView());
    ASSERT_EQ(view->hit(point).node, cover.leafView());
    ASSERT_FALSE(view->hit(point).part);
    hand->click(place);
    EXPECT_THAT(delivered(), IsEmpty());
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
}

TEST_F(PickedLink, HasNoOutlineMadeByAPointerThatPasses)
{
    parent.addPartner(partner);
    show();
    const QPointF place = on(link(0));
    link(0).dropPath();
    hand->hover(place);
    EXPECT_FALSE(link(0).hasPath());
    hand->press(place);
    EXPECT_TRUE(link(0).hasPath());
    hand->release();
}

TEST_F(PickedLink, IsPickedByTheSecondPressOfADoubleClick)
{
    parent.addPartner(partner);
    show();
    hand->click({5, 5});
    sendMouse(*view, QEvent::MouseButtonDblClick, on(link(0)), Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(view->branchLayer().selectedLink(), &link(0));
}

/// A window with the canvas and a field.
class KeyboardFocus : public PickedLink
{
protected:
    KeyboardFocus() { parent.addPartner(partner); }
    ~KeyboardFocus() override { view->setParent(nullptr); }

    void show()
    {
        PickedLink::show();
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(view);
        field = new QLineEdit;
        layout->addWidget(field);
        window.resize(900, 650);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        view->setFocus();
    }

    QWidget window;
    QLineEdit* field = nullptr;
};

TEST_F(KeyboardFocus, MovingToAFieldDeselectsTheLinkInSilence)
{
    show();
    hand->click(on(link(0)));
    delivered();
    field->setFocus();
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
    EXPECT_THAT(delivered(), IsEmpty());
}

TEST_F(KeyboardFocus, BorrowedByAMenuOrAnotherWindowLeavesTheLinkSelected)
{
    show();
    hand->click(on(link(0)));
    QMenu menu;
    menu.addAction(QStringLiteral("Remove"));
    menu.popup(window.mapToGlobal(QPoint(10, 10)));
    QCoreApplication::processEvents();
    EXPECT_EQ(view->branchLayer().selectedLink(), &link(0));
    menu.close();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(view->branchLayer().selectedLink(), &link(0));
}

TEST_F(KeyboardFocus, IsNotTakenFromAFieldByAnythingButAPress)
{
    show();
    field->setFocus();
    view->clearFirstResponder();
    view->focus(child);
    view->deselectLink();
    EXPECT_TRUE(field->hasFocus());
    hand->click(hand->panel(child));
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(view->firstResponderNode(), child.leafView());
    view->clearFirstResponder();
    EXPECT_EQ(view->firstResponderNode(), nullptr);
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(KeyboardFocus, IsTakenByALeftPressOnAPartAHandleALinkAndEmptyCanvas)
{
    show();
    for (const QPointF& place :
         {hand->panel(child), hand->picture(child), hand->partnerHandle(child), on(link(0)), QPointF(5, 5)}) {
        field->setFocus();
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, place.toPoint());
        EXPECT_TRUE(view->hasFocus());
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, place.toPoint());
    }
}

TEST_F(KeyboardFocus, StaysInAFieldAtAPressOnABackgroundOrWithAnotherButton)
{
    show();
    field->setFocus();
    const auto press = [&](Qt::MouseButton button, QPointF place) {
        QTest::mousePress(view->viewport(), button, {}, place.toPoint());
        EXPECT_TRUE(field->hasFocus());
        QTest::mouseRelease(view->viewport(), button, {}, place.toPoint());
        EXPECT_TRUE(field->hasFocus());
    };
    const CanvasPoint corner = view->toCanvas(hand->background(child).toPoint());
    ASSERT_EQ(view->hit(corner).node, child.leafView());
    ASSERT_FALSE(view->hit(corner).part);
    press(Qt::LeftButton, hand->background(child));
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        press(button, hand->panel(child));
        press(button, {5, 5});
    }
    QTest::keyClick(field, Qt::Key_Backtab);
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(KeyboardFocus, IsSeenAtTheNodeForAsLongAsItIsOnTheCanvas)
{
    show();
    hand->click(hand->panel(child));
    EXPECT_EQ(view->personLayer().marks().focused, child.leafView());
    const QImage focused = pictureOf(*view);
    field->setFocus();
    EXPECT_EQ(view->personLayer().marks().focused, nullptr);
    EXPECT_NE(pictureOf(*view), focused);
    view->setFocus();
    EXPECT_EQ(pictureOf(*view), focused);
}

TEST_F(KeyboardFocus, ClearingItClearsTheLinkToo)
{
    show();
    hand->click(on(link(0)));
    view->clearFirstResponder();
    EXPECT_EQ(view->branchLayer().selectedLink(), nullptr);
}

TEST_F(KeyboardFocus, EndsWithItsNode)
{
    show();
    hand->click(hand->panel(child));
    view->removeViewForPerson(child);
    EXPECT_EQ(view->firstResponderNode(), nullptr);
    EXPECT_EQ(view->personLayer().marks().focused, nullptr);
}

} // namespace
} // namespace lineara
