#include "elements/leaf_image_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/node_layout.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cmath>
#include <numbers>

namespace lineara {
namespace {

using tests::Family;

class LeafImageViewTest : public testing::Test
{
protected:
    void setPicture(const QByteArray& bytes)
    {
        const QString fileName = folder.filePath(u"picture"_qs);
        QFile file(fileName);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        ann.changePic(fileName);
    }

    static QByteArray png(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        return bytes;
    }

    void expectLeaves() const
    {
        EXPECT_EQ(view.widthConstraint(), (PlacementConstraint{72, 999}));
        EXPECT_EQ(view.leafOpacity(), 1.0);
        EXPECT_EQ(view.imageLayer().contents, nullptr);
        EXPECT_EQ(view.imageLayer().borderWidth, 0);
    }

    void expectPicture(double width) const
    {
        EXPECT_EQ(view.widthConstraint(), (PlacementConstraint{width, 999}));
        EXPECT_EQ(view.leafOpacity(), 0.0);
        const ImageLayer layer = view.imageLayer();
        EXPECT_NE(layer.contents, nullptr);
        EXPECT_EQ(layer.frame, (Frame{0, 0, width, 72}));
        EXPECT_EQ(layer.borderWidth, 3.0);
        EXPECT_EQ(layer.borderColor, QColor::fromRgbF(0.72f, 0.72f, 0.72f, 0.7f));
    }

    QTemporaryDir folder;
    Family family;
    Person& ann = family.add();
    LeafView& node = *ann.leafView();
    const LeafImageView& view = node.imageView();
};

TEST_F(LeafImageViewTest, PersonWithoutAPictureShowsLeaves)
{
    expectLeaves();
    EXPECT_EQ(node.imageFrame().width, 72);
}

TEST_F(LeafImageViewTest, PictureIsSeventyTwoPointsHigh)
{
    setPicture(png(200, 100));
    expectPicture(144);
    setPicture(png(50, 100));
    expectPicture(36);
    EXPECT_EQ(node.imageFrame().width, 36);
}

TEST_F(LeafImageViewTest, RemovedPictureBringsTheLeavesBack)
{
    const auto angles = view.rotations();
    setPicture(png(200, 100));
    EXPECT_EQ(node.width(), node_layout::greatestNodeWidth);
    ann.removePic();
    expectLeaves();
    EXPECT_LT(node.width(), node_layout::greatestNodeWidth);
    EXPECT_EQ(view.rotations(), angles);
}

TEST_F(LeafImageViewTest, DamagedPictureHidesTheLeavesAndHasNoWidth)
{
    const int before = node.width();
    for (const QByteArray& bytes : {png(64, 64).first(30), QByteArray("no picture"), QByteArray("")}) {
        setPicture(bytes);
        expectPicture(0);
        EXPECT_EQ(node.width(), before);
        EXPECT_TRUE(std::isfinite(node.imageFrame().x));
        ann.removePic();
        expectLeaves();
    }
}

TEST_F(LeafImageViewTest, GreatestWidthOfANodeBeatsAnEndlessPicture)
{
    setPicture(png(10000, 1));
    EXPECT_EQ(view.widthConstraint(), (PlacementConstraint{720000, 999}));
    EXPECT_EQ(node.width(), node_layout::greatestNodeWidth);
    EXPECT_EQ(node.imageFrame().width, node_layout::greatestNodeWidth);
}

TEST_F(LeafImageViewTest, SlotIsWholePointsWideWhileTheConstraintIsExact)
{
    ann.setName(u"Al"_qs);
    setPicture(png(1000, 667));
    EXPECT_DOUBLE_EQ(view.widthConstraint().constant, 72.0 * 1000 / 667);
    EXPECT_NEAR(view.widthConstraint().constant, 107.946, 0.001);
    EXPECT_EQ(node.imageFrame().width, 108);
    EXPECT_EQ(node.width(), 108);
}

TEST_F(LeafImageViewTest, PictureOfOnePointWidthIsShown)
{
    setPicture(png(1, 10000));
    EXPECT_DOUBLE_EQ(view.widthConstraint().constant, 72.0 / 10000);
    EXPECT_GE(node.width(), node_layout::leastNodeSize);
}

TEST(LeafImageView, AnglesStayInTheirRangesInStepsOfAHundredth)
{
    Family family;
    std::array<bool, 39> first{};
    std::array<bool, 39> second{};
    for (int count = 0; count < 2000; ++count) {
        const LeafImageView& view = family.add().leafView()->imageView();
        const auto [r0, r1] = view.rotations();
        EXPECT_GE(r0, -std::numbers::pi / 8);
        EXPECT_LE(r0, -std::numbers::pi / 8 + 0.38);
        EXPECT_GE(r1, 0);
        EXPECT_LE(r1, 0.38);
        const long step0 = std::lround((r0 + std::numbers::pi / 8) * 100);
        const long step1 = std::lround(r1 * 100);
        EXPECT_DOUBLE_EQ(r0, static_cast<double>(step0) / 100 - std::numbers::pi / 8);
        EXPECT_DOUBLE_EQ(r1, static_cast<double>(step1) / 100);
        first.at(static_cast<std::size_t>(step0)) = true;
        second.at(static_cast<std::size_t>(step1)) = true;
        EXPECT_EQ(view.rotations(), (std::array{r0, r1}));
    }
    EXPECT_THAT(first, testing::Each(true));
    EXPECT_THAT(second, testing::Each(true));
}

TEST(LeafImageView, EachAngleIsDrawnOnceBelowThirtyNine)
{
    class Counting final : public RandomSource
    {
    public:
        std::uint32_t below(std::uint32_t bound) override
        {
            bounds.push_back(bound);
            return static_cast<std::uint32_t>(bounds.size() * 10);
        }
        std::vector<std::uint32_t> bounds;
    };
    Counting random;
    ObjectContext context;
    LeafNursery nursery(context, random);
    LeafView& node = *context.insertPerson().leafView();
    node.imageView().refreshImage();
    node.imageView().drawDefaultImage();
    EXPECT_THAT(random.bounds, testing::ElementsAre(39, 39));
    EXPECT_DOUBLE_EQ(node.imageView().rotations()[0], 0.1 - std::numbers::pi / 8);
    EXPECT_DOUBLE_EQ(node.imageView().rotations()[1], 0.2);
}

TEST(LeafImageView, LeafIsTwentyEightWideAndFortyTwoHigh)
{
    const QPainterPath leaf = LeafImageView::leafOutline();
    EXPECT_EQ(leaf.elementCount(), 19);
    EXPECT_EQ(QPointF(leaf.elementAt(0)), QPointF(36, 3));
    EXPECT_EQ(QPointF(leaf.elementAt(9)), QPointF(36, 45));
    const QRectF box = leaf.boundingRect();
    EXPECT_DOUBLE_EQ(box.left(), 22);
    EXPECT_DOUBLE_EQ(box.right(), 50);
    EXPECT_DOUBLE_EQ(box.top(), 3);
    EXPECT_DOUBLE_EQ(box.bottom(), 45);
}

TEST(LeafImageView, LeafTurnsAboutTheBottomCentreOfItsBox)
{
    const QPainterPath right = LeafImageView::createRotatedLeaf(LeafImageView::leafOutline(), -0.2);
    EXPECT_NEAR(right.elementAt(9).x, 44.94, 0.005);
    EXPECT_NEAR(right.elementAt(9).y, 44.10, 0.005);
    const QPainterPath left = LeafImageView::createRotatedLeaf(LeafImageView::leafOutline(), 0.2);
    EXPECT_LT(left.elementAt(9).x, 36);
    QPainterPath pivot(QPointF(36, 0));
    pivot.lineTo(36, 10);
    EXPECT_EQ(QPointF(LeafImageView::createRotatedLeaf(pivot, 0.3).elementAt(0)), QPointF(36, 0));
}

TEST(LeafImageView, LookIsAsGiven)
{
    EXPECT_EQ(colours::leafFill(), QColor::fromRgbF(0.47f, 0.82f, 0.15f, 0.9f));
    EXPECT_EQ(colours::leafStroke(), QColor::fromRgbF(0.13f, 0.33f, 0.06f, 0.5f));
}

} // namespace
} // namespace lineara
