#include "autoscroll.h"

#include <gtest/gtest.h>

#include <QTest>

namespace lineara {
namespace {

constexpr QSizeF view{900, 600};

TEST(Autoscroll, RestsInTheMiddleOfTheView)
{
    EXPECT_EQ(Autoscroll::step({450, 300}, view), QPointF());
    EXPECT_EQ(Autoscroll::step({20, 20}, view), QPointF());
    EXPECT_EQ(Autoscroll::step({880, 580}, view), QPointF());
}

TEST(Autoscroll, GoesTowardsTheEdgeThatThePointerIsNearToOrBeyond)
{
    EXPECT_LT(Autoscroll::step({19, 300}, view).x(), 0);
    EXPECT_LT(Autoscroll::step({-50, 300}, view).x(), 0);
    EXPECT_GT(Autoscroll::step({881, 300}, view).x(), 0);
    EXPECT_GT(Autoscroll::step({950, 300}, view).x(), 0);
    EXPECT_LT(Autoscroll::step({450, 19}, view).y(), 0);
    EXPECT_GT(Autoscroll::step({450, 620}, view).y(), 0);
    EXPECT_EQ(Autoscroll::step({950, 300}, view).y(), 0);
}

TEST(Autoscroll, GetsFasterFartherOutUpToALimit)
{
    double last = 0;
    for (const double x : {881, 890, 899, 920, 940}) {
        const double speed = Autoscroll::step({x, 300}, view).x();
        EXPECT_GT(speed, last);
        last = speed;
    }
    EXPECT_EQ(Autoscroll::step({5000, 300}, view), Autoscroll::step({50000, 300}, view));
}

TEST(Autoscroll, TicksUntilThePointerIsAwayFromTheEdge)
{
    QPointF way;
    Autoscroll scroll([&](QPointF step) { way += step; });
    scroll.follow({899, 300}, view);
    EXPECT_TRUE(QTest::qWaitFor([&] { return way.x() > 50; }));
    scroll.follow({450, 300}, view);
    EXPECT_FALSE(scroll.isRunning());
    scroll.follow({450, 599}, view);
    EXPECT_TRUE(scroll.isRunning());
    scroll.stop();
    EXPECT_FALSE(scroll.isRunning());
}

} // namespace
} // namespace lineara
