#include "platform/serial_queue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>

using namespace lineara;

namespace {

// Lets the main thread handle what is posted to it until the condition holds; gives up after ten seconds.
bool waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > 10'000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

} // namespace

TEST(SerialQueue, StepsRunInOrderEachOnItsThread)
{
    SerialQueue queue;
    const auto mainThread = std::this_thread::get_id();
    std::string order;
    bool ended = false;
    queue.enqueue(WorkBlock()
                      .compute([&](std::stop_token) {
                          EXPECT_NE(std::this_thread::get_id(), mainThread);
                          order += 'a';
                      })
                      .onMainWaiting([&] {
                          EXPECT_EQ(std::this_thread::get_id(), mainThread);
                          order += 'b';
                      })
                      .compute([&](std::stop_token) { order += 'c'; })
                      .onMain([&] {
                          order += 'd';
                          ended = true;
                      }));
    ASSERT_TRUE(waitUntil([&] { return ended; }));
    EXPECT_EQ(order, "abcd");
}

TEST(SerialQueue, BlocksRunOneAfterTheOther)
{
    SerialQueue queue;
    std::string order;
    for (const char name : {'1', '2', '3'})
        queue.enqueue(WorkBlock().compute([&order, name](std::stop_token) { order += name; }).onMainWaiting([&order] {
            order += '.';
        }));
    ASSERT_TRUE(waitUntil([&] { return !queue.busy(); }));
    EXPECT_EQ(order, "1.2.3.");
}

TEST(SerialQueue, GoingAwayStopsTheRunningComputation)
{
    auto queue = std::make_unique<SerialQueue>();
    std::atomic<bool> started = false;
    std::atomic<bool> stopped = false;
    queue->enqueue(WorkBlock().compute([&](std::stop_token stop) {
        started = true;
        while (!stop.stop_requested())
            std::this_thread::yield();
        stopped = true;
    }));
    ASSERT_TRUE(waitUntil([&] { return started.load(); }));
    queue.reset();
    EXPECT_TRUE(waitUntil([&] { return stopped.load(); }));
}

TEST(SerialQueue, GoingAwayWhileTheThreadWaitsForTheMainThreadNeitherBlocksNorRunsTheStep)
{
    auto queue = std::make_unique<SerialQueue>();
    std::atomic<bool> about = false;
    bool ran = false;
    queue->enqueue(WorkBlock().compute([&](std::stop_token) { about = true; }).onMainWaiting([&] { ran = true; }));
    while (!about)
        std::this_thread::yield();
    queue.reset();
    for (int round = 0; round < 20; ++round)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    EXPECT_FALSE(ran);
}

TEST(SerialQueue, BlocksStillQueuedAreDroppedWithTheQueue)
{
    auto queue = std::make_unique<SerialQueue>();
    std::atomic<bool> started = false;
    std::atomic<bool> second = false;
    queue->enqueue(WorkBlock().compute([&](std::stop_token stop) {
        started = true;
        while (!stop.stop_requested())
            std::this_thread::yield();
    }));
    queue->enqueue(WorkBlock().compute([&](std::stop_token) { second = true; }));
    ASSERT_TRUE(waitUntil([&] { return started.load(); }));
    queue.reset();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_FALSE(second);
}

TEST(SerialQueue, WhatABlockHoldsIsLetGoOnTheMainThread)
{
    struct Held
    {
        explicit Held(std::optional<std::thread::id>& thread) : releasedOn(thread) {}
        std::optional<std::thread::id>& releasedOn;
        ~Held() { releasedOn = std::this_thread::get_id(); }
    };
    std::optional<std::thread::id> releasedOn;
    SerialQueue queue;
    queue.enqueue(WorkBlock().compute([held = std::make_shared<Held>(releasedOn)](std::stop_token) { (void)held; }));
    ASSERT_TRUE(waitUntil([&] { return releasedOn.has_value(); }));
    EXPECT_EQ(*releasedOn, std::this_thread::get_id());
}

TEST(SerialQueue, AHeldQueueBeginsNoFurtherBlockUntilItIsLetGo)
{
    SerialQueue queue;
    queue.setHeld(true);
    bool ran = false;
    queue.enqueue(WorkBlock().onMainWaiting([&] { ran = true; }));
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(queue.busy());
    queue.setHeld(false);
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

TEST(SerialQueue, AHeldQueueCanGoAway)
{
    auto queue = std::make_unique<SerialQueue>();
    queue->setHeld(true);
    bool ran = false;
    queue->enqueue(WorkBlock().onMainWaiting([&] { ran = true; }));
    queue.reset();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_FALSE(ran);
}

TEST(SerialQueue, AQueueStillWorksAfterAThousandCameAndWent)
{
    for (int round = 0; round < 1000; ++round) {
        SerialQueue queue;
        queue.enqueue(WorkBlock().compute([](std::stop_token) {}).onMainWaiting([] {}));
        if (round % 3 == 0)
            QCoreApplication::processEvents();
    }
    SerialQueue queue;
    bool ran = false;
    queue.enqueue(WorkBlock().onMainWaiting([&] { ran = true; }));
    EXPECT_TRUE(waitUntil([&] { return ran; }));
}

// As the windowing system does when it loses its display: nothing that the program holds is taken down before.
TEST(SerialQueue, DoesNotKeepTheProcessThatEndsWithoutTakingItDown)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    constexpr unsigned patience = 60; // seconds
    const auto endWithQueues = [] {
        alarm(patience);
        static std::array<SerialQueue*, 3> queues; // held to the end
        for (SerialQueue*& queue : queues)
            queue = new SerialQueue;
        std::atomic<bool> works = false;
        queues[1]->enqueue(WorkBlock().onMainWaiting([] {}));
        queues[2]->enqueue(WorkBlock().compute([&works](std::stop_token stop) {
            works = true;
            while (!stop.stop_requested())
                std::this_thread::yield();
        }));
        while (!works)
            std::this_thread::yield();
        std::exit(3);
    };
    EXPECT_EXIT(endWithQueues(), testing::ExitedWithCode(3), "");
}
