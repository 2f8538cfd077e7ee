#include "elements/link_outline.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::ElementsAreArray;

TEST(LinkOutline, PartnerArchStandsOnBothCentres)
{
    const std::array<CanvasPoint, 15> expected{{{95, 50},
                                                {95, 50},
                                                {122.5, 75},
                                                {150, 75},
                                                {177.5, 75},
                                                {205, 50},
                                                {205, 50},
                                                {195, 50},
                                                {195, 50},
                                                {172.5, 70},
                                                {150, 70},
                                                {127.5, 70},
                                                {105, 50},
                                                {105, 50},
                                                {95, 50}}};
    EXPECT_THAT(partnerOutline({100, 50}, {200, 50}), ElementsAreArray(expected));
}

TEST(LinkOutline, PartnerArchIsTheSameFromEitherEnd)
{
    EXPECT_EQ(partnerOutline({100, 50}, {200, 50}), partnerOutline({200, 50}, {100, 50}));
    EXPECT_EQ(partnerOutline({100, 50}, {207, 271}), partnerOutline({207, 271}, {100, 50}));
}

TEST(LinkOutline, PartnerArchBetweenRowsRisesFromItsLeftNode)
{
    const auto outline = partnerOutline({300, 271}, {100, 50});
    EXPECT_EQ(outline.front(), (CanvasPoint{95, 50}));
    EXPECT_EQ(outline[3], (CanvasPoint{200, 75}));
    EXPECT_EQ(outline[6], (CanvasPoint{305, 271}));
    EXPECT_EQ(outline[10], (CanvasPoint{200, 70}));
}

TEST(LinkOutline, StartCountsAsLeftWhenBothStandAboveEachOther)
{
    EXPECT_EQ(partnerOutline({100, 50}, {100, 271})[3].y, 75);
    EXPECT_EQ(partnerOutline({100, 271}, {100, 50})[3].y, 296);
    EXPECT_EQ(partnerBounds({100, 50}, {100, 271}), (Frame{95, 50, 10, 221}));
    EXPECT_EQ(partnerBounds({100, 271}, {100, 50}), (Frame{95, 50, 10, 246}));
}

TEST(LinkOutline, OffspringRibbonBendsAtHalfHeight)
{
    const std::array<CanvasPoint, 8> expected{
        {{95, 0}, {95, 50}, {155, 50}, {155, 100}, {165, 100}, {165, 50}, {105, 50}, {105, 0}}};
    EXPECT_THAT(offspringOutline({100, 0}, {160, 100}), ElementsAreArray(expected));
}

TEST(LinkOutline, BoundsHoldEveryElement)
{
    const CanvasPoint ends[] = {{0, 0}, {100, 50}, {103, 50}, {100, 271}, {-400, 492}, {20000001, 50}};
    const auto holds = [](const Frame& bounds, CanvasPoint point) {
        return point.x >= bounds.x && point.x <= bounds.x + bounds.width && point.y >= bounds.y &&
               point.y <= bounds.y + bounds.height;
    };
    for (const CanvasPoint start : ends) {
        for (const CanvasPoint end : ends) {
            for (const CanvasPoint point : partnerOutline(start, end))
                EXPECT_TRUE(holds(partnerBounds(start, end), point));
            for (const CanvasPoint point : offspringOutline(start, end))
                EXPECT_TRUE(holds(offspringBounds(start, end), point));
        }
    }
}

} // namespace
} // namespace lineara
