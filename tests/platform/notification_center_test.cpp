#include "platform/notification_center.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <vector>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Rang
{
    int times = 0;
};

struct Knocked
{};

class Notifications : public testing::Test
{
protected:
    Notifications()
    {
        hearing_ = center_.observe<Rang>([this](const Rang& rang) { heard_.push_back(rang.times); });
    }

    NotificationCenter center_;
    std::vector<int> heard_;
    Subscription hearing_;
};

TEST_F(Notifications, PostedOnesAreDeliveredAtOnce)
{
    center_.post(Rang{3});
    EXPECT_THAT(heard_, ElementsAre(3));
}

TEST_F(Notifications, OtherKindsAreNotHeard)
{
    center_.post(Knocked{});
    EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(Notifications, EnqueuedOnesFollowInTheirOrderOnceTheEventIsHandled)
{
    center_.enqueue(Rang{1});
    MainThread::post([this] { heard_.push_back(-1); });
    center_.enqueue(Rang{2});
    EXPECT_THAT(heard_, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(heard_, ElementsAre(1, -1, 2));
}

TEST_F(Notifications, WhoStopsObservingBeforeTheDeliveryHearsNothing)
{
    center_.enqueue(Rang{1});
    hearing_ = {};
    QCoreApplication::processEvents();
    EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(Notifications, ObserversMayPostWhileTheyAreCalled)
{
    const auto answering = center_.observe<Knocked>([this](const Knocked&) { center_.post(Rang{7}); });
    center_.post(Knocked{});
    EXPECT_THAT(heard_, ElementsAre(7));
}

} // namespace
} // namespace lineara
