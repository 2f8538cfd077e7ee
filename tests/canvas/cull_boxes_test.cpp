#include "canvas/cull_boxes.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

std::vector<std::size_t> meeting(const CullBoxes& boxes, const QRectF& area)
{
    std::vector<std::size_t> found;
    boxes.forEachMeeting(area, [&](std::size_t at) { found.push_back(at); });
    return found;
}

TEST(CullBoxes, FindsWhatMeetsTheAreaLowestFirst)
{
    CullBoxes boxes;
    boxes.append({0, -100, 50, 50});
    boxes.append({500, -100, 50, 50});
    boxes.append({10, -90, 1000, 1});
    EXPECT_THAT(meeting(boxes, {0, -100, 60, 60}), testing::ElementsAre(0, 2));
    EXPECT_THAT(meeting(boxes, {0, 500, 60, 60}), testing::IsEmpty());
}

TEST(CullBoxes, FlatShapesAreFound)
{
    CullBoxes boxes;
    boxes.append({0, -100, 50, 0});
    EXPECT_THAT(meeting(boxes, {10, -120, 5, 40}), testing::ElementsAre(0));
}

TEST(CullBoxes, MovedBoxIsFoundAtItsNewPlace)
{
    CullBoxes boxes;
    boxes.append({0, 0, 10, 10});
    boxes.set(0, {1000, 0, 10, 10});
    EXPECT_THAT(meeting(boxes, {0, 0, 10, 10}), testing::IsEmpty());
    EXPECT_THAT(meeting(boxes, {1005, 5, 1, 1}), testing::ElementsAre(0));
}

TEST(CullBoxes, NothingIsLostWhereFloatsKnowNoSinglePoints)
{
    for (const double far : {16'777'217.0, 20'000'001.0, 67'108'865.0, 1'000'000'001.0, 2'147'483'647.0}) {
        CullBoxes boxes;
        boxes.append({far, -far, 1, 1});
        EXPECT_THAT(meeting(boxes, {far + 0.25, -far + 0.25, 0.5, 0.5}), testing::ElementsAre(0)) << far;
    }
}

} // namespace
} // namespace lineara
