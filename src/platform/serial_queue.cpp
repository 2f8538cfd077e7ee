#include "platform/serial_queue.h"

#include "platform/main_thread.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace lineara {

WorkBlock& WorkBlock::compute(std::function<void(std::stop_token)> step)
{
    steps_.push_back({Where::Worker, std::move(step)});
    return *this;
}

WorkBlock& WorkBlock::onMainWaiting(std::function<void()> step)
{
    steps_.push_back({Where::MainWaiting, [step = std::move(step)](std::stop_token) { step(); }});
    return *this;
}

WorkBlock& WorkBlock::onMain(std::function<void()> step)
{
    steps_.push_back({Where::Main, [step = std::move(step)](std::stop_token) { step(); }});
    return *this;
}

// Shared by the queue, its thread and the steps posted to the main thread, whichever lives longest.
struct SerialQueue::State : std::enable_shared_from_this<State>
{
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::deque<WorkBlock> blocks;
    std::stop_source stop;
    bool running = false;
    bool held = false;

    void work();
    void leave();
    std::shared_ptr<WorkBlock> next();
    void run(WorkBlock& block);
    void runOnMain(WorkBlock::Step step, bool wait);
};

void SerialQueue::State::work()
{
    while (auto block = next()) {
        run(*block);
        // What the steps hold on to may be records and views: let go of it where these live.
        MainThread::post([block = std::move(block)]() mutable { block.reset(); });
    }
}

void SerialQueue::State::leave()
{
    {
        const std::lock_guard lock(mutex);
        stop.request_stop();
    }
    changed.notify_all();
}

std::shared_ptr<WorkBlock> SerialQueue::State::next()
{
    std::unique_lock lock(mutex);
    running = false;
    changed.wait(lock, [this] { return stop.stop_requested() || (!held && !blocks.empty()); });
    if (stop.stop_requested())
        return nullptr;
    running = true;
    auto block = std::make_shared<WorkBlock>(std::move(blocks.front()));
    blocks.pop_front();
    return block;
}

void SerialQueue::State::run(WorkBlock& block)
{
    for (auto& step : block.steps_) {
        if (stop.stop_requested())
            return;
        const auto where = step.where;
        if (where == WorkBlock::Where::Worker)
            step.run(stop.get_token());
        else
            runOnMain(std::move(step), where == WorkBlock::Where::MainWaiting);
    }
}

void SerialQueue::State::runOnMain(WorkBlock::Step step, bool wait)
{
    auto done = std::make_shared<bool>(false);
    MainThread::post([self = shared_from_this(), step = std::move(step), done] {
        // Stopping happens on this very thread, so a step either finds the queue alive or does not begin.
        if (!self->stop.stop_requested())
            step.run(self->stop.get_token());
        const std::lock_guard lock(self->mutex);
        *done = true;
        self->changed.notify_all();
    });
    if (!wait)
        return;
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return *done || stop.stop_requested(); });
}

namespace {

// The threads of all queues, joined when they have left by themselves; the last ones at the end of the process, so that
// none outlives what it uses. Main thread only.
class Threads
{
public:
    // Queues are still there when a library ends the process, as Qt does when the display is lost.
    ~Threads()
    {
        for (auto& thread : threads_)
            thread.stop();
        for (auto& thread : threads_)
            thread.runs.join();
    }

    // `stop` lets `work` end soon.
    void start(std::function<void()> work, std::function<void()> stop)
    {
        auto run = [this, work = std::move(work)] {
            work();
            MainThread::post([this, id = std::this_thread::get_id()] { join(id); });
        };
        threads_.push_back({std::thread(std::move(run)), std::move(stop)});
    }

private:
    struct Thread
    {
        std::thread runs;
        std::function<void()> stop;
    };

    void join(std::thread::id id)
    {
        const auto left = std::find_if(threads_.begin(), threads_.end(),
                                       [id](const Thread& thread) { return thread.runs.get_id() == id; });
        left->runs.join();
        threads_.erase(left);
    }

    std::vector<Thread> threads_;
};

} // namespace

SerialQueue::SerialQueue() : state_(std::make_shared<State>())
{
    MainThread::prepare();
    static Threads threads;
    threads.start([state = state_] { state->work(); }, [state = state_] { state->leave(); });
}

SerialQueue::~SerialQueue()
{
    state_->leave();
    std::deque<WorkBlock> dropped;
    const std::lock_guard lock(state_->mutex);
    dropped.swap(state_->blocks);
}

void SerialQueue::enqueue(WorkBlock block)
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->blocks.push_back(std::move(block));
    }
    state_->changed.notify_all();
}

void SerialQueue::setHeld(bool held)
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->held = held;
    }
    state_->changed.notify_all();
}

bool SerialQueue::busy() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->running || !state_->blocks.empty();
}

} // namespace lineara
