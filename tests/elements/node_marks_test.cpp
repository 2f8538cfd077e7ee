#include "elements/node_marks.h"

#include "elements/colours.h"
#include "elements/family.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>

namespace lineara {
namespace {

class NodeMarksTest : public testing::Test
{
protected:
    QImage painted(const NodeMarks& marks) const
    {
        QImage image(400, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(0, 400);
        painter.setPen(Qt::red);
        paintMarksBelow(painter, marks);
        paintMarksAbove(painter, marks);
        EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
        return image;
    }
    QColor colourAt(const QImage& image, CanvasPoint point) const
    {
        return image.pixelColor((toPicture(point) + QPointF(0, 400)).toPoint());
    }
    static QImage blank()
    {
        QImage image(400, 400, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        return image;
    }

    tests::Family family;
    LeafView& node = *family.addAt({200, 200}).leafView();
};

TEST_F(NodeMarksTest, NothingIsMarkedWithoutReason)
{
    EXPECT_EQ(painted({}), blank());
}

TEST_F(NodeMarksTest, PossibleTargetsHaveAHaloInTheColourOfTheLink)
{
    const QImage partner = painted({nullptr, LinkTarget{&node, u"partner"_qs, true}});
    const QImage child = painted({nullptr, LinkTarget{&node, u"offspring"_qs, true}});
    const Frame frame = node.frame();
    const QColor pink = colourAt(partner, {frame.x - 4, frame.centre().y});
    EXPECT_GT(pink.red(), pink.green());
    EXPECT_NE(partner, child);
    EXPECT_EQ(colourAt(partner, {frame.x - 9, frame.centre().y}), QColor(Qt::white));
}

TEST_F(NodeMarksTest, RefusingTargetsAreVeiledAlikeForEveryType)
{
    QImage image = blank();
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.translate(0, 400);
    paintMarksAbove(painter, {nullptr, LinkTarget{&node, u"partner"_qs, false}});
    painter.end();
    EXPECT_GT(colourAt(image, node.frame().centre()).red(), 150);
    EXPECT_EQ(colourAt(image, {10, 10}), QColor(Qt::black));
}

TEST_F(NodeMarksTest, FocusIsARingOutsideOfThePanel)
{
    const QImage image = painted({&node, std::nullopt});
    const Frame panel = node.infoFrame();
    EXPECT_NE(colourAt(image, {panel.x - 3.5, panel.centre().y}), QColor(Qt::white));
    EXPECT_EQ(colourAt(image, {panel.x + 1, panel.centre().y}), QColor(Qt::white));
    EXPECT_EQ(colourAt(image, panel.centre()), QColor(Qt::white));
}

TEST_F(NodeMarksTest, CanBeSeenInASmallPicture)
{
    QImage image = blank();
    QPainter painter(&image);
    painter.translate(0, 400);
    painter.scale(0.02, 0.02);
    paintMarksBelow(painter, {&node, std::nullopt});
    painter.end();
    EXPECT_NE(image, blank());
}

} // namespace
} // namespace lineara
