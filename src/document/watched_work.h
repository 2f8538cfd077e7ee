#pragma once

#include "platform/progress.h"

#include <atomic>
#include <functional>
#include <memory>
#include <stop_token>

namespace lineara {

/// Long work on another thread that somebody on the main thread looks at and may give up. A small value; copies are
/// about the same work.
class WatchedWork
{
public:
    /// On the thread of the work: does it, with a progress that is stopped by giving up as by `closing`.
    void run(const std::stop_token& closing, const std::function<void(const Progress&)>& work) const
    {
        const std::stop_callback onClosing(closing, [state = state_] { state->givenUp.request_stop(); });
        work(Progress([state = state_](double part) { state->part = part; }, state_->givenUp.get_token()));
    }

    /// How much is done, from 0 to 1. Any thread, like all that follows.
    double part() const { return state_->part; }
    void giveUp() const { state_->givenUp.request_stop(); }
    bool isGivenUp() const { return state_->givenUp.stop_requested(); }

private:
    struct State
    {
        std::atomic<double> part = 0;
        std::stop_source givenUp;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace lineara
