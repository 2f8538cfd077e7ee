// What a canvas shows of itself: where it starts, scrolling, zooming, hits, hints and painting.

#include "canvas/family_picture.h"
#include "canvas/tree_view.h"
#include "elements/node_layout.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

namespace lineara {
namespace {

/// A family of 40 x 9 persons, several views wide and high.
void addManyRows(ShownFamily& family)
{
    for (int row = 1; row <= 9; ++row)
        for (int place = 0; place < 40; ++place)
            family.add(place * 152, row);
}

void turnWheel(TreeView& view, QPoint angle, Qt::KeyboardModifiers modifiers, QPointF at = {300, 200})
{
    QWheelEvent event(at, view.viewport()->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

void sendMouse(TreeView& view, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

QImage pictureOf(TreeView& view)
{
    QImage image(view.viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    view.viewport()->render(&image);
    return image;
}

bool isBlank(const QImage& image)
{
    QImage white(image.size(), image.format());
    white.fill(Qt::white);
    return image == white;
}

bool isInView(const TreeView& view, const Person& person)
{
    const Frame node = person.leafView()->frame();
    const QRectF pixels(view.toViewport({node.x, node.y + node.height}),
                        view.toViewport({node.x + node.width, node.y}));
    return QRectF(view.viewport()->rect()).contains(pixels);
}

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

TEST(Hit, FindsPartsOfNodesAboveLinks)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    LeafView& node = *parent.leafView();
    EXPECT_EQ(view.hit(node.partnerHandle().frame().centre()).part, NodePart::PartnerHandle);
    EXPECT_EQ(view.hit(node.childHandle().frame().centre()).part, NodePart::ChildHandle);
    EXPECT_EQ(view.hit(node.imageFrame().centre()).part, NodePart::Image);
    const CanvasHit panel = view.hit(node.infoFrame().centre());
    EXPECT_EQ(panel.part, NodePart::Info);
    EXPECT_EQ(panel.node, &node);
    EXPECT_EQ(panel.link, nullptr);
    const CanvasHit background = view.hit({node.frame().x + 0.5, node.frame().y + 0.5});
    EXPECT_EQ(background.node, &node);
    EXPECT_EQ(background.part, std::nullopt);
}

TEST(Hit, FindsLinksBetweenNodesAndNothingBesideThem)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    const Frame upper = parent.leafView()->frame();
    const CanvasPoint between{upper.centre().x, upper.y - 30};
    EXPECT_EQ(view.hit(between).link, view.branchLayer().layers()[0].get());
    EXPECT_EQ(view.hit(between).node, nullptr);
    EXPECT_EQ(view.hit({between.x + 6, between.y}), CanvasHit{});
}

TEST(Hit, FindsTheTopmostOfOverlappingNodesAndLinks)
{
    ShownFamily family;
    Person& parent = family.add(100);
    Person& child = family.add(100);
    Person& other = family.add(100);
    parent.addChild(child);
    parent.addChild(other);
    TreeView& view = family.processAndShow();
    const Frame upper = parent.leafView()->frame();
    EXPECT_EQ(view.hit(other.leafView()->frame().centre()).node, other.leafView());
    EXPECT_EQ(view.hit({upper.centre().x, upper.y - 30}).link, view.branchLayer().layers()[1].get());
}

TEST(Hit, FindsANodeWhereFloatsKnowNoSinglePoints)
{
    ShownFamily family;
    family.add(0, 1);
    const Person& far = family.add(20'000'001, 1);
    TreeView& view = family.show();
    view.zoomTo(4, {0, 0});
    view.reveal(far);
    const Frame node = far.leafView()->frame();
    EXPECT_EQ(node.x, 20'000'001);
    const QPointF corner = view.toViewport({node.x, node.y + node.height});
    const auto hitAtPixel = [&](QPointF pixel) { return view.hit(view.toCanvas(pixel)).node; };
    EXPECT_EQ(hitAtPixel(corner + QPointF(0.5, 0.5)), far.leafView());
    EXPECT_EQ(hitAtPixel(corner + QPointF(-0.5, 0.5)), nullptr);
    EXPECT_EQ(hitAtPixel(view.toViewport({node.x + node.width, node.y}) + QPointF(-0.5, -0.5)), far.leafView());
    EXPECT_EQ(hitAtPixel(view.toViewport({node.x + node.width, node.y}) + QPointF(0.5, -0.5)), nullptr);
}

TEST(Painting, FarNodeIsDrawnExactlyAsANearOne)
{
    std::vector<QImage> pictures;
    for (const int x : {20'000'001, 1}) {
        ShownFamily family;
        family.add(x, 1);
        family.add(0, 20);
        family.add(x + 1000, 20);
        TreeView& view = family.show();
        view.zoomTo(4, {0, 0});
        view.scrollTo((x - 1) * 4.0, 220 * 4);
        pictures.push_back(pictureOf(view));
    }
    EXPECT_EQ(pictures[0], pictures[1]);
}

TEST(Painting, IsWhiteInEveryTheme)
{
    ShownFamily family;
    family.add(100, 1);
    TreeView& view = family.show();
    const QImage light = pictureOf(view);
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(30, 30, 30));
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    const QImage inTheDark = pictureOf(view);
    QApplication::setPalette(before);
    EXPECT_EQ(light.pixelColor(899, 0), QColor(Qt::white));
    EXPECT_EQ(light, inTheDark);
}

TEST(Painting, LinksAreSmoothAgainSoonAfterTheViewHasMoved)
{
    ShownFamily family;
    addManyRows(family);
    family.pool.persons()[40]->addChild(*family.pool.persons()[3]);
    TreeView& view = family.processAndShow();
    view.actualSize();
    view.scrollTo(0, 0);
    const QImage atRest = pictureOf(view);
    turnWheel(view, {0, 120}, Qt::NoModifier);
    turnWheel(view, {0, -120}, Qt::NoModifier);
    EXPECT_NE(pictureOf(view), atRest);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictureOf(view) == atRest; }));
}

TEST(Painting, BuildsPathsOnlyForLinksInView)
{
    ShownFamily family;
    std::vector<Person*> line;
    for (int person = 0; person < 20; ++person) {
        line.push_back(&family.add(0));
        if (person > 0)
            line[static_cast<std::size_t>(person) - 1]->addChild(*line.back());
    }
    TreeView& view = family.processAndShow();
    const auto paths = [&] {
        return std::ranges::count_if(view.branchLayer().layers(), [](const auto& link) { return link->hasPath(); });
    };
    view.scrollTo(0, 0);
    pictureOf(view);
    EXPECT_GT(paths(), 0);
    EXPECT_LT(paths(), 6);
    const LinkLayer& oldest = *line[0]->linkLayers()[0];
    EXPECT_FALSE(oldest.hasPath());
    view.scrollTo(0, 1e9);
    pictureOf(view);
    EXPECT_TRUE(oldest.hasPath());
    EXPECT_LT(paths(), 6);
    const QPainterPath* const kept = &oldest.path();
    view.scrollTo(0, 4000);
    pictureOf(view);
    EXPECT_EQ(&oldest.path(), kept);
    view.zoomTo(0.1, {0, 0});
    pictureOf(view);
    EXPECT_EQ(paths(), 0);
}

TEST(Painting, DrawsSomethingAtEveryZoom)
{
    ShownFamily family;
    addManyRows(family);
    TreeView& view = family.show();
    for (const double zoom : {8.0, 1.0, 0.5, 0.3, 0.15, 0.1, 0.02}) {
        view.zoomTo(zoom, {0, 0});
        const Frame panel = family.pool.persons()[20]->leafView()->infoFrame();
        view.scrollTo(panel.x * zoom - 100, panel.y * zoom - 100);
        const QPoint shown = view.toViewport(panel.centre()).toPoint();
        EXPECT_FALSE(isBlank(pictureOf(view).copy(shown.x() - 2, shown.y() - 2, 5, 5))) << zoom;
    }
}

TEST(Hints, HandlesAndShortenedNamesTellMore)
{
    ShownFamily family;
    const QString name = QStringLiteral("Maria Theresia Walburga Amalia Christina of Habsburg-Lorraine and Austria");
    const Person& person = family.add(100, 1, name);
    TreeView& view = family.show();
    const auto hintAt = [&](CanvasPoint point) {
        QToolTip::hideText();
        const QPoint pixel = view.toViewport(point).toPoint();
        QHelpEvent event(QEvent::ToolTip, pixel, view.viewport()->mapToGlobal(pixel));
        QCoreApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text();
    };
    const LeafView& node = *person.leafView();
    EXPECT_EQ(hintAt(node.partnerHandle().frame().centre()), u"Click and drag to connect to partner");
    EXPECT_EQ(hintAt(node.childHandle().frame().centre()), u"Click and drag to connect to child");
    EXPECT_EQ(hintAt(node.infoFrame().centre()), name);
}

TEST(FamilyPicture, HoldsAllNodesAndAMargin)
{
    ShownFamily family;
    family.add(100, 1);
    const Person& last = family.add(900, 3);
    const TreeView& view = family.show();
    const Frame right = last.leafView()->frame();
    const FamilyPicture picture(view.scene());
    EXPECT_EQ(picture.frame(), (Frame{80, 210, right.x + right.width - 100 + 40, right.y + right.height - 230 + 40}));
}

TEST(FamilyPicture, IsTheSameEveryTimeWhateverTheViewShows)
{
    QImage pictures[2];
    int next = 0;
    for (const double zoom : {1.0, 0.05}) {
        ShownFamily family;
        addManyRows(family);
        TreeView& view = family.show();
        view.zoomTo(zoom, {0, 0});
        const FamilyPicture picture(view.scene());
        QImage image(picture.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        picture.paint(painter);
        painter.end();
        pictures[next++] = image;
    }
    EXPECT_EQ(pictures[0], pictures[1]);
    EXPECT_EQ(pictures[0].pixelColor(0, 0), QColor(Qt::white));
}

TEST(FamilyPicture, OfAnEmptyFamilyIsAnEmptyMargin)
{
    ShownFamily family;
    EXPECT_EQ(FamilyPicture(family.show().scene()).size(), QSizeF(40, 40));
}

} // namespace
} // namespace lineara
