#include "platform/progress.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace lineara {

using testing::ElementsAre;
using testing::SizeIs;

namespace {

/// Writes down what it hears.
struct Listener
{
    std::vector<double> heard;
    std::stop_source stop;
    Progress progress{[this](double part) { heard.push_back(part); }, stop.get_token()};
};

} // namespace

TEST(Progress, OfNobodyGoesOnForEver)
{
    const Progress progress;
    EXPECT_TRUE(progress.goesOn(0.5));
    EXPECT_TRUE(progress.stage(0, 0.5).goesOn(1));
    EXPECT_FALSE(progress.isStopped());
}

TEST(Progress, IsToldAtMostOnceAPercent)
{
    Listener listener;
    constexpr std::size_t items = 1'000'000;
    for (std::size_t item = 0; item < items; ++item)
        EXPECT_TRUE(listener.progress.goesOn(item, items));
    listener.progress.report(1);
    listener.progress.report(1);
    EXPECT_THAT(listener.heard, SizeIs(101));
    EXPECT_EQ(std::adjacent_find(listener.heard.begin(), listener.heard.end(), std::greater_equal<>()),
              listener.heard.end());
    EXPECT_EQ(listener.heard.front(), 0);
    EXPECT_EQ(listener.heard.back(), 1);
}

TEST(Progress, NeverGoesBack)
{
    Listener listener;
    listener.progress.report(0.5);
    listener.progress.report(0.25);
    listener.progress.report(0.75);
    EXPECT_THAT(listener.heard, ElementsAre(0.5, 0.75));
}

TEST(Progress, OfAStageIsItsPartOfTheWhole)
{
    Listener listener;
    const auto second = listener.progress.stage(0.5, 1);
    listener.progress.stage(0, 0.5).report(0.5);
    second.stage(0, 0.5).report(1);
    second.stage(0.5, 1).report(1);
    EXPECT_THAT(listener.heard, ElementsAre(0.25, 0.75, 1.0));
}

TEST(Progress, StopIsSeenInEveryStageAndOutlivesItsSource)
{
    Progress stage;
    {
        Listener listener;
        stage = listener.progress.stage(0, 0.1).stage(0.2, 0.3);
        listener.stop.request_stop();
        EXPECT_FALSE(listener.progress.goesOn(0.5));
    }
    EXPECT_TRUE(stage.isStopped());
}

} // namespace lineara
