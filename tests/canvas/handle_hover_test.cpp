// What handles show and tell while the pointer is on them.

#include "dragged_link.h"
#include "elements/colours.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

namespace lineara {
namespace {

class HoveredHandle : public DraggedLink
{
protected:
    void show()
    {
        DraggedLink::show();
        activate(*view);
    }
    void showWide()
    {
        DraggedLink::showWide();
        activate(*view);
    }
    static void activate(QWidget& window)
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    bool isOrange(const ConnectorView& handle) const { return handle.circleFill() == colours::handleHover(); }
};

TEST_F(HoveredHandle, IsOrangeWhileThePointerIsInItsSquare)
{
    show();
    const ConnectorView& handle = ann.leafView()->partnerHandle();
    hand->hover(hand->panel(ann));
    EXPECT_FALSE(isOrange(handle));
    hand->hover(hand->partnerHandle(ann));
    EXPECT_TRUE(isOrange(handle));
    const Frame square = handle.frame();
    hand->hover(view->toViewport({square.x + 0.5, square.y + 1}));
    EXPECT_TRUE(isOrange(handle));
    hand->hover(hand->childHandle(ann));
    EXPECT_FALSE(isOrange(handle));
    EXPECT_TRUE(isOrange(ann.leafView()->childHandle()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view->viewport(), &leave);
    EXPECT_FALSE(isOrange(ann.leafView()->childHandle()));
}

TEST_F(HoveredHandle, IsNormalFromTheReleaseUntilThePointerComesBack)
{
    show();
    const ConnectorView& handle = ann.leafView()->partnerHandle();
    hand->press(hand->partnerHandle(ann));
    hand->dragBy({2, 0});
    EXPECT_TRUE(isOrange(handle));
    hand->release();
    EXPECT_FALSE(isOrange(handle));
    hand->hover(hand->at() + QPointF(1, 0));
    EXPECT_FALSE(isOrange(handle));
    hand->hover(hand->panel(ann));
    hand->hover(hand->partnerHandle(ann));
    EXPECT_TRUE(isOrange(handle));
}

TEST_F(HoveredHandle, StaysNormalWhileAnotherIsDragged)
{
    show();
    hand->press(hand->partnerHandle(ann));
    hand->drag(hand->partnerHandle(bob));
    EXPECT_TRUE(isOrange(ann.leafView()->partnerHandle()));
    EXPECT_FALSE(isOrange(bob.leafView()->partnerHandle()));
    hand->drag({600, 100});
    EXPECT_TRUE(isOrange(ann.leafView()->partnerHandle()));
    hand->release();
    EXPECT_FALSE(isOrange(ann.leafView()->partnerHandle()));
}

TEST_F(HoveredHandle, IsFoundAnewWhenTheCanvasMovesBeneathThePointer)
{
    showWide();
    hand->hover(hand->partnerHandle(ann));
    EXPECT_TRUE(isOrange(ann.leafView()->partnerHandle()));
    view->scrollTo(100, 0);
    EXPECT_FALSE(isOrange(ann.leafView()->partnerHandle()));
    view->scrollTo(0, 0);
    EXPECT_TRUE(isOrange(ann.leafView()->partnerHandle()));
}

TEST_F(HoveredHandle, LightsUpInTheActiveWindowOnly)
{
    show();
    const ConnectorView& handle = ann.leafView()->partnerHandle();
    hand->hover(hand->partnerHandle(ann));
    QWidget other;
    other.show();
    activate(other);
    EXPECT_FALSE(isOrange(handle));
    hand->hover(hand->panel(ann));
    hand->hover(hand->partnerHandle(ann));
    EXPECT_FALSE(isOrange(handle));
    activate(*view);
    EXPECT_TRUE(isOrange(handle));
}

TEST_F(HoveredHandle, MayDisappearWithItsNode)
{
    show();
    hand->hover(hand->partnerHandle(ann));
    view->removeViewForPerson(ann);
    EXPECT_FALSE(isOrange(ann.leafView()->partnerHandle()));
    hand->hover(hand->partnerHandle(bob));
    EXPECT_TRUE(isOrange(bob.leafView()->partnerHandle()));
}

TEST_F(HoveredHandle, TellsWhatItIsForWithinItsSquareOnly)
{
    show();
    const auto textAt = [&](QPointF place) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, place.toPoint(), view->viewport()->mapToGlobal(place.toPoint()));
        QCoreApplication::sendEvent(view->viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(textAt(hand->partnerHandle(ann)), u"Click and drag to connect to partner"_qs);
    EXPECT_EQ(textAt(hand->childHandle(ann)), u"Click and drag to connect to child"_qs);
    const Frame square = ann.leafView()->childHandle().frame();
    EXPECT_EQ(textAt(view->toViewport({square.x + 1, square.y + 1})), u"Click and drag to connect to child"_qs);
    EXPECT_EQ(textAt(hand->panel(ann)), QString());
    QToolTip::hideText();
}

} // namespace
} // namespace lineara
