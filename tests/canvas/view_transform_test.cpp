#include "canvas/view_transform.h"

#include <gtest/gtest.h>

#include <limits>

namespace lineara {
namespace {

/// A family of 5,000 x 3,000 points behind a view of 900 x 600 pixels.
ViewTransform largeFamily()
{
    ViewTransform view;
    view.setViewport({900, 600});
    view.setContent({5000, 3000}, {4800, 2900});
    return view;
}

TEST(ViewTransform, StartsAtTheBottomLeftCorner)
{
    const ViewTransform view = largeFamily();
    EXPECT_EQ(view.toView({0, 0}), QPointF(0, 600));
    EXPECT_EQ(view.toCanvas({0, 600}), (CanvasPoint{0, 0}));
    EXPECT_EQ(view.visible(), (Frame{0, 0, 900, 600}));
}

TEST(ViewTransform, PicturePlacesAgreeWithCanvasPlaces)
{
    ViewTransform view = largeFamily();
    view.zoomAt(2, {450, 300});
    view.setPlace(700, 900);
    const CanvasPoint point{512, 451};
    EXPECT_EQ(view.pictureToView().map(toPicture(point)), view.toView(point));
    EXPECT_EQ(view.toCanvas(view.toView(point)), point);
}

TEST(ViewTransform, CanvasIsNeverSmallerThanTheView)
{
    ViewTransform view;
    view.setViewport({900, 600});
    view.setContent({456, 494}, {200, 300});
    EXPECT_EQ(view.canvas(), QSizeF(900, 600));
    view.zoomAt(0.25, {0, 0});
    EXPECT_EQ(view.canvas(), QSizeF(3600, 2400));
    view.zoomAt(2, {0, 0});
    EXPECT_EQ(view.canvas(), QSizeF(456, 494));
}

TEST(ViewTransform, GrowingCanvasMovesNothingOnTheScreen)
{
    ViewTransform view = largeFamily();
    view.setPlace(1000, 700);
    const QPointF before = view.toView({1200, 900});
    view.setContent({9000, 3221}, {8800, 3121});
    EXPECT_EQ(view.toView({1200, 900}), before);
}

TEST(ViewTransform, ZoomKeepsThePointUnderThePointer)
{
    ViewTransform view = largeFamily();
    view.setPlace(1000, 700);
    const QPointF pointer(333, 222);
    for (const double zoom : {0.5, 1.7, 4.0}) {
        const CanvasPoint under = view.toCanvas(pointer);
        view.zoomAt(zoom, pointer);
        EXPECT_NEAR(view.toView(under).x(), pointer.x(), 0.51) << zoom;
        EXPECT_NEAR(view.toView(under).y(), pointer.y(), 0.51) << zoom;
    }
}

TEST(ViewTransform, ScrollsOnlyWithinTheCanvas)
{
    ViewTransform view = largeFamily();
    view.setPlace(-50, -50);
    EXPECT_EQ(view.left(), 0);
    EXPECT_EQ(view.bottom(), 0);
    view.setPlace(1e9, 1e9);
    EXPECT_EQ(view.left(), 5000 - 900);
    EXPECT_EQ(view.bottom(), 3000 - 600);
}

TEST(ViewTransform, SmallFamilyMayStandAnywhereInTheView)
{
    ViewTransform view;
    view.setViewport({900, 600});
    view.setContent({900, 494}, {300, 350});
    view.centre({100, 9, 200, 341}, 1);
    EXPECT_NEAR(view.toView({200, 179.5}).x(), 450, 0.5);
    EXPECT_NEAR(view.toView({200, 179.5}).y(), 300, 0.5);
}

TEST(ViewTransform, RevealScrollsNoFurtherThanNeeded)
{
    ViewTransform view = largeFamily();
    view.reveal({100, 100, 150, 150});
    EXPECT_EQ(view.visible(), (Frame{0, 0, 900, 600}));
    view.reveal({1000, 700, 150, 150});
    EXPECT_EQ(view.visible(), (Frame{250, 250, 900, 600}));
    view.reveal({100, 100, 150, 150});
    EXPECT_EQ(view.visible(), (Frame{100, 100, 900, 600}));
}

TEST(ViewTransform, FitShowsTheWholeFrame)
{
    const ViewTransform view = largeFamily();
    EXPECT_DOUBLE_EQ(view.zoomToFit({0, 0, 9000, 600}), 0.1);
    EXPECT_DOUBLE_EQ(view.zoomToFit({0, 0, 900, 2400}), 0.25);
}

TEST(ViewTransform, ScrollDistancesOfAnAbsurdCanvasFitIntoAnInt)
{
    ViewTransform view;
    view.setViewport({900, 600});
    view.setContent({900, 2147483647.0}, {900, 2147483647.0});
    view.zoomAt(8, {0, 0});
    EXPECT_LE(view.bottomRange().to, std::numeric_limits<int>::max());
    EXPECT_GT(view.zoom(), 0.5);
}

} // namespace
} // namespace lineara
