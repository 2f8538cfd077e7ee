#include "elements/node_painter.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "node_shapes.h"

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace lineara {
namespace {

using tests::Family;

class NodePainterTest : public testing::Test
{
protected:
    NodePainterTest() { Family::moveTo(ann, {80, 80}); }

    /// The canvas from (0, 0) to (160, 160), each point `scale` pixels wide.
    QImage painted(NodePainter& painter, double scale = 1, Detail detail = Detail::Full,
                   Motion motion = Motion::Still) const
    {
        const int pixels = static_cast<int>(160 * scale);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter canvas(&image);
        canvas.scale(scale, scale);
        canvas.translate(0, 160);
        painter.beginPicture(canvas, motion);
        painter.paint(canvas, *ann.leafView(), detail);
        return image;
    }

    static QRgb at(const QImage& image, CanvasPoint point)
    {
        const double scale = image.width() / 160.0;
        const QPointF pixel = (toPicture(point) + QPointF(0, 160)) * scale;
        return image.pixel(pixel.toPoint());
    }

    Family family;
    Person& ann = family.add(u"Ann Lee"_qs);
    LeafView& node = *ann.leafView();
    NodePainter screen{NodePainter::Medium::Screen};
    NodePainter document{NodePainter::Medium::Document};
};

TEST(NodeShapes, LeafStandsUprightInThePicture)
{
    const QPainterPath leaf = turnedLeaf(-0.2);
    const QPointF tip(leaf.elementAt(9));
    EXPECT_NEAR(tip.x(), 44.94, 0.005);
    EXPECT_NEAR(tip.y(), -44.10, 0.005);
}

TEST_F(NodePainterTest, PartsAreWhereTheNodeSays)
{
    const QImage image = painted(screen);
    const Frame panel = node.infoFrame();
    EXPECT_EQ(at(image, {panel.x + 4, panel.centre().y}), colours::panelBackground().rgba());
    EXPECT_EQ(at(image, node.partnerHandle().frame().centre()), colours::partnerFill().rgba());
    EXPECT_EQ(at(image, node.childHandle().frame().centre()), colours::offspringFill().rgba());
    const Frame leaves = node.imageFrame();
    const QRgb leaf = at(image, {leaves.centre().x, leaves.y + 20});
    EXPECT_GT(qGreen(leaf), qRed(leaf) + 50);
    EXPECT_EQ(at(image, {leaves.x + 1, leaves.y + 60}), QColor(Qt::white).rgba());
    EXPECT_EQ(at(image, {1, 1}), QColor(Qt::white).rgba());
}

TEST_F(NodePainterTest, HoveredHandleIsOrangeOnTheScreenAlone)
{
    node.childHandle().mouseEntered();
    const QImage seen = painted(screen);
    EXPECT_EQ(at(seen, node.childHandle().frame().centre()), colours::handleHover().rgba());
    EXPECT_EQ(at(seen, node.partnerHandle().frame().centre()), colours::partnerFill().rgba());
    const QImage filed = painted(document);
    EXPECT_EQ(at(filed, node.childHandle().frame().centre()), colours::offspringFill().rgba());
}

TEST_F(NodePainterTest, ScreenAndDocumentAgree)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        const QImage onScreen = painted(screen, scale);
        const QImage inDocument = painted(document, scale);
        int differing = 0;
        for (int y = 0; y < onScreen.height(); ++y) {
            for (int x = 0; x < onScreen.width(); ++x) {
                const QColor a = onScreen.pixelColor(x, y);
                const QColor b = inDocument.pixelColor(x, y);
                differing += std::abs(a.green() - b.green()) > 96 ? 1 : 0;
            }
        }
        // Pixmaps are put at whole pixels, which moves an edge by half a pixel at most.
        EXPECT_LT(differing, 20) << "at scale " << scale;
    }
}

TEST_F(NodePainterTest, MovingPictureIsStretchedAndARestingOneIsNot)
{
    const QImage exact = painted(screen, 1.25, Detail::Plain);
    EXPECT_EQ(painted(screen, 1.25, Detail::Plain, Motion::Moving), exact);
    const QImage moving = painted(screen, 1.5, Detail::Plain, Motion::Moving);
    EXPECT_EQ(at(moving, node.partnerHandle().frame().centre()), colours::partnerFill().rgba());
    EXPECT_NE(moving, painted(screen, 1.5, Detail::Plain));
}

TEST_F(NodePainterTest, DarkDesktopChangesNothing)
{
    const QImage light = painted(screen);
    const QPalette before = QGuiApplication::palette();
    QPalette dark(Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    QGuiApplication::setPalette(dark);
    NodePainter fresh;
    EXPECT_EQ(painted(fresh), light);
    QGuiApplication::setPalette(before);
}

TEST_F(NodePainterTest, TextIsDark)
{
    const QImage image = painted(screen, 4);
    const QRectF panel = toPicture(node.infoFrame());
    int darkPixels = 0;
    for (double y = panel.top() + 5; y < panel.bottom() - 9; y += 0.25) {
        for (double x = panel.left() + 5; x < panel.right() - 9; x += 0.25)
            darkPixels += qGray(at(image, toCanvas({x, y}))) < 80 ? 1 : 0;
    }
    EXPECT_GT(darkPixels, 100);
}

TEST_F(NodePainterTest, PainterIsLeftWhereItStood)
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter canvas(&image);
    canvas.scale(0.75, 0.75);
    canvas.translate(3, 7);
    const QTransform before = canvas.worldTransform();
    for (const Detail detail : {Detail::Full, Detail::Plain}) {
        screen.paint(canvas, node, detail);
        document.paint(canvas, node, detail);
        EXPECT_EQ(canvas.worldTransform(), before);
    }
}

TEST_F(NodePainterTest, DenseScreenGetsItsOwnPixels)
{
    QImage image(320, 320, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    QPainter canvas(&image);
    canvas.translate(0, 160);
    screen.paint(canvas, node, Detail::Full);
    canvas.end();
    image.setDevicePixelRatio(1);
    const QImage twice = painted(screen, 2);
    EXPECT_EQ(at(image, node.partnerHandle().frame().centre()), colours::partnerFill().rgba());
    EXPECT_EQ(at(image, node.childHandle().frame().centre()), colours::offspringFill().rgba());
    EXPECT_EQ(image.copy(0, 0, 320, 130), twice.copy(0, 0, 320, 130));
}

TEST(Detail, DependsOnTheZoom)
{
    EXPECT_EQ(detailAt(4, 100'000, Motion::Still), Detail::Full);
    EXPECT_EQ(detailAt(0.5, 100'000, Motion::Still), Detail::Full);
    EXPECT_EQ(detailAt(0.49, 100'000, Motion::Still), Detail::Plain);
    EXPECT_EQ(detailAt(0.15, 100'000, Motion::Still), Detail::Plain);
    EXPECT_EQ(detailAt(0.14, 100'000, Motion::Still), Detail::Coarse);
}

TEST(Detail, OfAFewNodesIsFineAtAnyZoom)
{
    EXPECT_EQ(detailAt(0.05, 400, Motion::Still), Detail::Full);
    EXPECT_EQ(detailAt(0.05, 401, Motion::Still), Detail::Plain);
    EXPECT_EQ(detailAt(0.05, 1'500, Motion::Still), Detail::Plain);
    EXPECT_EQ(detailAt(0.05, 1'501, Motion::Still), Detail::Coarse);
}

TEST(Detail, OfAMovingPictureIsAsFineAsThereIsTimeFor)
{
    EXPECT_EQ(detailAt(1, 200, Motion::Moving), Detail::Full);
    EXPECT_EQ(detailAt(0.05, 200, Motion::Moving), Detail::Full);
    EXPECT_EQ(detailAt(1, 201, Motion::Moving), Detail::Plain);
    EXPECT_EQ(detailAt(1, 700, Motion::Moving), Detail::Plain);
    EXPECT_EQ(detailAt(1, 701, Motion::Moving), Detail::Coarse);
}

} // namespace
} // namespace lineara
