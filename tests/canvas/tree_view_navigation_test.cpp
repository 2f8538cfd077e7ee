// Where a canvas starts, and how it is scrolled and zoomed.

#include "canvas/tree_view.h"
#include "shown_family.h"
#include "view_driver.h"

#include <gtest/gtest.h>

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScrollBar>
#include <QTest>

namespace lineara {
namespace {

TEST(StartPlace, SmallFamilyStandsAtTheBottomCentre)
{
    ShownFamily family;
    const Person& left = family.add(0, 1);
    const Person& right = family.add(200, 1);
    TreeView& view = family.show();
    EXPECT_EQ(view.zoom(), 1);
    const double middle = (left.leafView()->frame().x + right.leafView()->frame().x + right.leafView()->width()) / 2;
    EXPECT_NEAR(view.toViewport({middle, 0}).x(), 450, 1);
    EXPECT_EQ(view.toViewport({0, 0}).y(), 600);
}

TEST(StartPlace, FamilyThatFitsAtHalfSizeIsShownWhole)
{
    ShownFamily family;
    for (int row = 1; row <= 4; ++row)
        family.add(row * 300, row);
    TreeView& view = family.show();
    EXPECT_LT(view.zoom(), 1);
    EXPECT_GE(view.zoom(), 0.5);
    for (const Person* const person : family.pool.persons())
        EXPECT_TRUE(isInView(view, *person));
}

TEST(StartPlace, LargeFamilyIsReadableWithThePersonOfTheLongestLineBelowItsAncestors)
{
    ShownFamily family;
    std::vector<Person*> line;
    for (int person = 0; person < 30; ++person) {
        line.push_back(&family.add(person * 400));
        if (person > 0)
            line[static_cast<std::size_t>(person) - 1]->addChild(*line.back());
    }
    TreeView& view = family.processAndShow();
    EXPECT_EQ(view.zoom(), 1);
    EXPECT_TRUE(isInView(view, *line.back()));
    EXPECT_GT(family.pixelOf(*line.back()).y(), 500);
}

TEST(StartPlace, EmptyRowsBelowAreNotWhatIsShown)
{
    ShownFamily family;
    const Person& parent = family.add(0, 5);
    const Person& child = family.add(300, 4);
    TreeView& view = family.show();
    EXPECT_GE(view.zoom(), 0.5);
    EXPECT_TRUE(isInView(view, parent));
    EXPECT_TRUE(isInView(view, child));
}

TEST(Fit, ShowsAllNodesAtAReadableSizeAndNotTheEmptyRows)
{
    ShownFamily family;
    const Person& parent = family.add(0, 5);
    const Person& child = family.add(3000, 4);
    TreeView& view = family.show();
    view.zoomTo(8, {0, 0});
    view.fit();
    EXPECT_TRUE(isInView(view, parent));
    EXPECT_TRUE(isInView(view, child));
    EXPECT_GT(view.zoom(), 0.25);
}

TEST(Fit, ReachesBelowTheLeastZoomForAVeryWideFamily)
{
    ShownFamily family;
    const Person& first = family.add(0, 1);
    const Person& last = family.add(1'000'000, 1);
    TreeView& view = family.show();
    view.fit();
    EXPECT_LT(view.zoom(), ViewTransform::smallestZoom);
    EXPECT_TRUE(isInView(view, first));
    EXPECT_TRUE(isInView(view, last));
    const double fitted = view.zoom();
    view.zoomOut();
    EXPECT_EQ(view.zoom(), fitted);
    view.zoomIn();
    EXPECT_GT(view.zoom(), fitted);
}

TEST(Zoom, StaysWithinItsLimits)
{
    ShownFamily family;
    family.add(0, 1);
    TreeView& view = family.show();
    for (int step = 0; step < 40; ++step)
        view.zoomIn();
    EXPECT_EQ(view.zoom(), ViewTransform::largestZoom);
    for (int step = 0; step < 80; ++step)
        view.zoomOut();
    EXPECT_EQ(view.zoom(), ViewTransform::smallestZoom);
    view.actualSize();
    EXPECT_EQ(view.zoom(), 1);
}

TEST(Zoom, IsToldOnceForEachChange)
{
    ShownFamily family;
    family.add(0, 1);
    TreeView& view = family.show();
    std::vector<double> told;
    QObject::connect(&view, &TreeView::zoomChanged, &view, [&](double zoom) { told.push_back(zoom); });
    view.zoomIn();
    view.actualSize();
    view.actualSize();
    EXPECT_EQ(told, (std::vector<double>{1.25, 1}));
}

TEST(Wheel, ScrollsUpAndDown)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const CanvasPoint before = view.toCanvas({0, 0});
    turnWheel(view, {0, 120}, Qt::NoModifier);
    EXPECT_GT(view.toCanvas({0, 0}).y, before.y);
    EXPECT_EQ(view.toCanvas({0, 0}).x, before.x);
    turnWheel(view, {0, -120}, Qt::NoModifier);
    EXPECT_EQ(view.toCanvas({0, 0}), before);
}

TEST(Wheel, ScrollsSidewaysWithShift)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const CanvasPoint before = view.toCanvas({0, 0});
    turnWheel(view, {0, -120}, Qt::ShiftModifier);
    EXPECT_GT(view.toCanvas({0, 0}).x, before.x);
    EXPECT_EQ(view.toCanvas({0, 0}).y, before.y);
}

TEST(Wheel, ZoomsAtThePointerWithCtrl)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const QPointF pointer(300, 200);
    const CanvasPoint under = view.toCanvas(pointer);
    for (const int turn : {120, 120, 120, -120, -120, -120, -120}) {
        turnWheel(view, {0, turn}, Qt::ControlModifier, pointer);
        EXPECT_NEAR(view.toViewport(under).x(), pointer.x(), 4);
        EXPECT_NEAR(view.toViewport(under).y(), pointer.y(), 4);
    }
    EXPECT_LT(view.zoom(), 1);
}

TEST(Pinch, ZoomsAtThePointer)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const QPointF pointer(300, 200);
    const CanvasPoint under = view.toCanvas(pointer);
    QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, pointer, pointer,
                              view.viewport()->mapToGlobal(pointer), 0.5, {});
    QCoreApplication::sendEvent(view.viewport(), &event);
    EXPECT_DOUBLE_EQ(view.zoom(), 1.5);
    EXPECT_NEAR(view.toViewport(under).x(), pointer.x(), 1);
    EXPECT_NEAR(view.toViewport(under).y(), pointer.y(), 1);
}

TEST(Panning, MiddleButtonDragsTheCanvas)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const CanvasPoint grabbed = view.toCanvas({300, 300});
    sendMouse(view, QEvent::MouseButtonPress, {300, 300}, Qt::MiddleButton, Qt::MiddleButton);
    sendMouse(view, QEvent::MouseMove, {240, 380}, Qt::NoButton, Qt::MiddleButton);
    EXPECT_EQ(view.toCanvas({240, 380}), grabbed);
    sendMouse(view, QEvent::MouseButtonRelease, {240, 380}, Qt::MiddleButton, Qt::NoButton);
    sendMouse(view, QEvent::MouseMove, {100, 100}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(view.toCanvas({240, 380}), grabbed);
}

TEST(Panning, SpaceLetsTheLeftButtonDragTheCanvas)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    const CanvasPoint grabbed = view.toCanvas({300, 300});
    sendMouse(view, QEvent::MouseButtonPress, {300, 300}, Qt::LeftButton, Qt::LeftButton);
    sendMouse(view, QEvent::MouseMove, {340, 300}, Qt::NoButton, Qt::LeftButton);
    sendMouse(view, QEvent::MouseButtonRelease, {340, 300}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(view.toCanvas({300, 300}), grabbed);
    QTest::keyPress(&view, Qt::Key_Space);
    sendMouse(view, QEvent::MouseButtonPress, {300, 300}, Qt::LeftButton, Qt::LeftButton);
    sendMouse(view, QEvent::MouseMove, {340, 300}, Qt::NoButton, Qt::LeftButton);
    sendMouse(view, QEvent::MouseButtonRelease, {340, 300}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(view.toCanvas({340, 300}), grabbed);
}

TEST(ScrollBars, MoveTheView)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.horizontalScrollBar()->setValue(700);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->minimum());
    EXPECT_EQ(view.toCanvas({0, 0}).x, 700);
    EXPECT_EQ(view.toCanvas({0, 0}).y, view.canvasSize().height());
}

TEST(ScrollBars, AreNotNeededWhereEverythingIsInView)
{
    ShownFamily family;
    family.add(0, 1);
    TreeView& view = family.show();
    EXPECT_EQ(view.horizontalScrollBar()->minimum(), view.horizontalScrollBar()->maximum());
    EXPECT_EQ(view.verticalScrollBar()->minimum(), view.verticalScrollBar()->maximum());
}

TEST(Resizing, KeepsTheBottomEdgeWhereItIs)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    view.scrollTo(1000, 500);
    pictureOf(view);
    const CanvasPoint corner = view.toCanvas({0, 600});
    view.resize(800, 450);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.toCanvas({0, 450}), corner);
}

} // namespace
} // namespace lineara
