#pragma once

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace lineara {

/// One piece of queued work: steps that run strictly one after the other, each on the thread it names.
class WorkBlock
{
public:
    /// Runs on the queue's thread. Must not touch records or views, and should end soon once `stop` is requested.
    WorkBlock& compute(std::function<void(std::stop_token stop)> step);
    /// Runs on the main thread; the block goes on when it has returned.
    WorkBlock& onMainWaiting(std::function<void()> step);
    /// Runs on the main thread; the block goes on at once.
    WorkBlock& onMain(std::function<void()> step);

private:
    friend class SerialQueue;
    enum class Where
    {
        Worker,
        MainWaiting,
        Main
    };
    struct Step
    {
        Where where;
        std::function<void(std::stop_token)> run;
    };
    std::vector<Step> steps_;
};

/// Runs blocks one at a time, in the order enqueued, on a thread of its own.
///
/// Made, used and destroyed on the main thread, which never waits for the queue: destroying it asks the running
/// computation to stop, drops the blocks still queued and steps not yet begun, and lets the thread leave by itself.
class SerialQueue
{
public:
    SerialQueue();
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void enqueue(WorkBlock block);

    /// While held, no further block begins; the one that runs goes on to its end. For tests of what may happen while
    /// work is waiting.
    void setHeld(bool held);

    /// True while a block runs or waits to run.
    bool busy() const;

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace lineara
