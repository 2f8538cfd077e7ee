#include "plain_raster.h"

#include <gtest/gtest.h>

#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <random>

namespace lineara {
namespace {

constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb ink = 0xFF204060;

int inked(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == ink ? 1 : 0;
    return count;
}

TEST(PlainRaster, ColoursBothEndsAndAPixelForEachStepBetween)
{
    PlainRaster raster({20, 20}, white);
    raster.line({2.5, 3.5}, {9.5, 6.5}, ink);
    EXPECT_EQ(raster.image().pixel(2, 3), ink);
    EXPECT_EQ(raster.image().pixel(9, 6), ink);
    EXPECT_EQ(inked(raster.image()), 8);
}

TEST(PlainRaster, LineWithoutLengthIsOnePixel)
{
    PlainRaster raster({5, 5}, white);
    raster.line({2.5, 2.5}, {2.5, 2.5}, ink);
    EXPECT_EQ(inked(raster.image()), 1);
}

TEST(PlainRaster, DrawsTheLaterLineAloneWhereLinesCross)
{
    PlainRaster raster({5, 5}, white);
    raster.line({0.5, 2.5}, {4.5, 2.5}, 0x80808080);
    raster.line({2.5, 0.5}, {2.5, 4.5}, ink);
    raster.line({2.5, 0.5}, {2.5, 4.5}, ink);
    EXPECT_EQ(raster.image().pixel(2, 2), ink);
}

TEST(PlainRaster, LineBesideTheImageDrawsNothing)
{
    PlainRaster raster({10, 10}, white);
    raster.line({-5, 3}, {-1, 8}, ink);
    raster.line({-20, 5}, {5, -20}, ink);
    raster.line({0, 10.5}, {9, 10.5}, ink);
    EXPECT_EQ(inked(raster.image()), 0);
    PlainRaster empty({0, 0}, white);
    empty.line({0, 0}, {3, 3}, ink);
    EXPECT_TRUE(empty.image().isNull());
}

// What lies within the image is where the whole line would be, however far away its ends are.
TEST(PlainRaster, CutsLongLinesWhereTheImageEnds)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> near(1, 39);
    std::uniform_real_distribution<double> far(-1e6, 1e6);
    for (int round = 0; round < 2'000; ++round) {
        const QPointF within(near(random), near(random));
        const QPointF beyond(far(random), far(random));
        PlainRaster raster({40, 40}, white);
        raster.line(within, beyond, ink);
        EXPECT_GT(inked(raster.image()), 0);
        const QPointF way = beyond - within;
        const double length = std::hypot(way.x(), way.y());
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 40; ++x) {
                if (raster.image().pixel(x, y) != ink)
                    continue;
                const QPointF middle(x + 0.5, y + 0.5);
                const double off = std::abs((middle.x() - within.x()) * way.y() - (middle.y() - within.y()) * way.x());
                ASSERT_LT(off / length, 1.0);
            }
    }
}

TEST(PlainRaster, FillsThePixelsWhoseMiddlesLieWithin)
{
    PlainRaster raster({10, 10}, white);
    const std::array square{QPointF(2, 3), QPointF(6, 3), QPointF(6, 5), QPointF(2, 5)};
    raster.fill(square, ink);
    EXPECT_EQ(inked(raster.image()), 8);
    EXPECT_EQ(raster.image().pixel(2, 3), ink);
    EXPECT_EQ(raster.image().pixel(5, 4), ink);
}

TEST(PlainRaster, LaysTranslucentColoursOverOneAnother)
{
    PlainRaster raster({1, 1}, white);
    const std::array all{QPointF(0, 0), QPointF(1, 0), QPointF(1, 1), QPointF(0, 1)};
    raster.fill(all, qPremultiply(qRgba(255, 255, 255, 255)));
    raster.fill(all, qPremultiply(qRgba(0, 0, 0, 51)));
    EXPECT_EQ(raster.image().pixel(0, 0), qRgb(204, 204, 204));
}

// Middles of pixels, tested one by one against the outline that a path makes of the same points.
TEST(PlainRaster, FillsByTheWindingRuleWhateverTheOutline)
{
    std::mt19937 random(9);
    std::uniform_real_distribution<double> place(-20, 60);
    for (int round = 0; round < 500; ++round) {
        QPolygonF outline;
        for (int point = 0; point < 7; ++point)
            outline << QPointF(place(random), place(random));
        PlainRaster raster({40, 40}, white);
        raster.fill(outline, ink);
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 40; ++x)
                ASSERT_EQ(raster.image().pixel(x, y) == ink,
                          outline.containsPoint(QPointF(x + 0.5, y + 0.5), Qt::WindingFill))
                    << x << ", " << y;
    }
}

TEST(PlainRaster, OutlineBesideTheImageFillsNothing)
{
    PlainRaster raster({10, 10}, white);
    raster.fill({}, ink);
    const std::array below{QPointF(2, 12), QPointF(6, 12), QPointF(6, 15)};
    raster.fill(below, ink);
    const std::array beside{QPointF(-9, 2), QPointF(-3, 2), QPointF(-3, 8)};
    raster.fill(beside, ink);
    EXPECT_EQ(inked(raster.image()), 0);
}

} // namespace
} // namespace lineara
