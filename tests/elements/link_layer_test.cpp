#include "elements/link_layer.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/link_outline.h"
#include "elements/link_painter.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <map>

namespace lineara {
namespace {

using tests::Family;

class LinkLayerTest : public testing::Test
{
protected:
    /// A shape between two nodes with the given centres, laid out.
    std::unique_ptr<LinkLayer> link(CanvasPoint source, CanvasPoint target, const QString& type)
    {
        auto layer = std::make_unique<LinkLayer>(&family.addAt(source), &family.addAt(target), type);
        layer->layoutSublayers();
        return layer;
    }

    Family family;
};

/// The elements of a path as points of the canvas.
std::vector<CanvasPoint> elements(const QPainterPath& path)
{
    std::vector<CanvasPoint> points;
    for (int at = 0; at < path.elementCount(); ++at)
        points.push_back(toCanvas(QPointF(path.elementAt(at).x, path.elementAt(at).y)));
    return points;
}

/// Counts how often a closed outline goes round a point, for itself, to compare the shape's answers with.
class Winding
{
public:
    explicit Winding(const QPainterPath& path) : polygons_(path.toSubpathPolygons(QTransform::fromScale(zoom, zoom))) {}

    int round(CanvasPoint point) const
    {
        const QPointF p = toPicture(point) * zoom;
        int count = 0;
        for (const QPolygonF& polygon : polygons_) {
            for (qsizetype at = 0; at < polygon.size(); ++at)
                count += crossing(polygon[at], polygon[(at + 1) % polygon.size()], p);
        }
        return count;
    }

private:
    static constexpr double zoom = 64; // curves become lines more finely

    static int crossing(QPointF a, QPointF b, QPointF p)
    {
        const double side = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
        if (a.y() <= p.y() && b.y() > p.y() && side > 0)
            return 1;
        return a.y() > p.y() && b.y() <= p.y() && side < 0 ? -1 : 0;
    }

    QList<QPolygonF> polygons_;
};

TEST_F(LinkLayerTest, ElementsAreThoseOfTheOutline)
{
    const auto arch = link({100, 50}, {200, 50}, u"partner"_qs);
    EXPECT_THAT(elements(arch->path()), testing::ElementsAreArray(partnerOutline({100, 50}, {200, 50})));
    const auto ribbon = link({100, 0}, {160, 100}, u"offspring"_qs);
    EXPECT_THAT(elements(ribbon->path()), testing::ElementsAreArray(offspringOutline({100, 0}, {160, 100})));
}

TEST_F(LinkLayerTest, ArchRisesInThePicture)
{
    const auto arch = link({100, 50}, {200, 50}, u"partner"_qs);
    EXPECT_EQ(arch->path().boundingRect(), QRectF(95, -75, 110, 25));
    EXPECT_EQ(arch->bounds(), (Frame{95, 50, 110, 25}));
}

TEST_F(LinkLayerTest, OnlyTheBandOfAnArchIsInside)
{
    const auto arch = link({100, 50}, {200, 50}, u"partner"_qs);
    EXPECT_TRUE(arch->contains({150, 72}));
    EXPECT_TRUE(arch->contains({100, 50.1}));
    EXPECT_FALSE(arch->contains({150, 60}));
    EXPECT_FALSE(arch->contains({150, 50}));
    EXPECT_FALSE(arch->contains({150, 69.9}));
    EXPECT_FALSE(arch->contains({150, 75.1}));
    EXPECT_EQ(Winding(arch->path()).round({150, 60}), 0);
    EXPECT_NE(Winding(arch->path()).round({150, 72}), 0);
}

/// How often the outline of the shape goes round points of a grid, by number of points. Where a point is clear of the
/// outline, the shape has to agree.
std::map<int, int> compareOnGrid(const LinkLayer& layer)
{
    std::map<int, int> points;
    const Frame box = layer.bounds();
    const Winding winding(layer.path());
    for (double x = box.x - 0.95; x < box.x + box.width + 1; x += 0.75) {
        for (double y = box.y - 0.95; y < box.y + box.height + 1; y += 0.75) {
            const int turns = winding.round({x, y});
            const bool isClear = winding.round({x - 0.1, y}) == turns && winding.round({x + 0.1, y}) == turns &&
                                 winding.round({x, y - 0.1}) == turns && winding.round({x, y + 0.1}) == turns;
            if (!isClear)
                continue;
            ++points[turns];
            EXPECT_EQ(layer.contains({x, y}), turns != 0) << x << ' ' << y;
        }
    }
    return points;
}

TEST_F(LinkLayerTest, OverlappingFeetLeaveNoHoles)
{
    for (const double distance : {0.0, 4.0, 8.0}) {
        const auto points = compareOnGrid(*link({100, 50}, {100 + distance, 50}, u"partner"_qs));
        EXPECT_TRUE(points.contains(2) || points.contains(-2)) << "at distance " << distance;
    }
    const auto points = compareOnGrid(*link({100, 50}, {200, 50}, u"partner"_qs));
    EXPECT_EQ(points.size(), 2u);
}

TEST_F(LinkLayerTest, ArchThatCrossesItselfStaysFilled)
{
    const auto points = compareOnGrid(*link({100, 50}, {140, 140}, u"partner"_qs));
    EXPECT_TRUE(points.contains(1));
    EXPECT_TRUE(points.contains(-1));
}

TEST_F(LinkLayerTest, RibbonIsTenPointsWideWithoutTolerance)
{
    const auto ribbon = link({100, 0}, {252, 221}, u"offspring"_qs);
    EXPECT_TRUE(ribbon->contains({176, 110.5}));
    EXPECT_TRUE(ribbon->contains({180.9, 110.5}));
    EXPECT_FALSE(ribbon->contains({182, 110.5}));
    EXPECT_FALSE(ribbon->contains({170, 110.5}));
    EXPECT_TRUE(ribbon->contains({104.9, 0.5}));
}

TEST_F(LinkLayerTest, RibbonBetweenEqualHeightsIsNeverHit)
{
    const auto ribbon = link({100, 50}, {200, 50}, u"offspring"_qs);
    for (double x = 95; x <= 205; x += 2.5)
        EXPECT_FALSE(ribbon->contains({x, 50}));
}

TEST_F(LinkLayerTest, TypesOtherThanPartnerAreDrawnAsOffspring)
{
    for (const QString& type : {QString(), u"Partner"_qs, u"friend"_qs}) {
        const auto layer = link({100, 0}, {160, 100}, type);
        EXPECT_EQ(layer->linkType(), type);
        EXPECT_EQ(layer->path().elementCount(), 8);
        EXPECT_EQ(layer->fillColor(), colours::offspringFill());
        EXPECT_EQ(layer->strokeColor(), colours::offspringStroke());
    }
}

TEST_F(LinkLayerTest, LaidOutTwiceKeepsItsPath)
{
    const auto arch = link({100, 50}, {200, 50}, u"partner"_qs);
    const QPainterPath* const path = &arch->path();
    arch->layoutSublayers();
    EXPECT_TRUE(arch->hasPath());
    EXPECT_EQ(&arch->path(), path);
}

TEST_F(LinkLayerTest, TheLeastMoveRebuilds)
{
    Person& source = family.addAt({100000, 50});
    Person& target = family.addAt({200, 50});
    LinkLayer arch(&source, &target, u"partner"_qs);
    arch.layoutSublayers();
    ASSERT_EQ(arch.path().elementAt(5).x, 100005);
    const double before = source.leafView()->frame().centre().x;
    const double moved = std::nextafter(source.leafView()->xConstraint()->constant, 1e9);
    source.leafView()->setXConstant(moved);
    ASSERT_NE(source.leafView()->frame().centre().x, before);
    arch.layoutSublayers();
    EXPECT_FALSE(arch.hasPath());
    EXPECT_EQ(arch.startPoint(), source.leafView()->frame().centre());
    EXPECT_NE(arch.path().elementAt(5).x, 100005);
}

TEST_F(LinkLayerTest, DroppedPathComesBackAlike)
{
    const auto ribbon = link({100, 0}, {160, 100}, u"offspring"_qs);
    const auto before = elements(ribbon->path());
    ribbon->dropPath();
    EXPECT_FALSE(ribbon->hasPath());
    EXPECT_EQ(elements(ribbon->path()), before);
}

TEST_F(LinkLayerTest, PathIsMadeOnlyWhenAskedFor)
{
    const auto ribbon = link({100, 0}, {160, 100}, u"offspring"_qs);
    EXPECT_FALSE(ribbon->contains({400, 50}));
    EXPECT_FALSE(ribbon->hasPath());
    EXPECT_TRUE(ribbon->contains({130, 50}));
    EXPECT_TRUE(ribbon->hasPath());
}

TEST_F(LinkLayerTest, MissingEndsRunToTheOrigin)
{
    LinkLayer layer(nullptr, &family.addAt({160, 100}), u"offspring"_qs);
    layer.layoutSublayers();
    EXPECT_EQ(layer.startPoint(), CanvasPoint{});
    EXPECT_EQ(elements(layer.path()).front(), (CanvasPoint{-5, 0}));
}

TEST_F(LinkLayerTest, FarShapesAreExact)
{
    const auto ribbon = link({20000001, 50}, {20000152, 271}, u"offspring"_qs);
    EXPECT_EQ(elements(ribbon->path()).front(), (CanvasPoint{19999996, 50}));
    EXPECT_TRUE(ribbon->contains({20000076.5, 160.5}));
}

QImage painted(const LinkLayer& layer, const Frame& seen)
{
    QImage image(static_cast<int>(seen.width), static_cast<int>(seen.height), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(-toPicture(seen).topLeft());
    LinkPainter(painter, Detail::Full, seen).paint(layer);
    return image;
}

TEST_F(LinkLayerTest, StrokeLeavesTheOpenEndOfARibbonOpen)
{
    const auto ribbon = link({50, 20.5}, {50, 80.5}, u"offspring"_qs);
    const QImage image = painted(*ribbon, {0, 0, 100, 100});
    // The far end is crossed by the stroke, the near end, where the outline stays open, is not.
    EXPECT_NE(image.pixelColor(50, 19), image.pixelColor(50, 40));
    EXPECT_EQ(image.pixelColor(50, 78), image.pixelColor(50, 40));
    EXPECT_NE(image.pixelColor(45, 50), image.pixelColor(50, 50));
}

TEST_F(LinkLayerTest, RibbonOfManyScreensIsPainted)
{
    const auto ribbon = link({-400000, 20}, {400100, 80}, u"offspring"_qs);
    const QImage image = painted(*ribbon, {0, 0, 100, 100});
    int marked = 0;
    for (int y = 0; y < image.height(); ++y)
        marked += image.pixelColor(50, y) != QColor(Qt::white) ? 1 : 0;
    EXPECT_GT(marked, 0);
}

} // namespace
} // namespace lineara
