#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lineara {

/// Ends an observation when destroyed. May outlive what it observes.
class Subscription
{
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> token) : token_(std::move(token)) {}

private:
    std::shared_ptr<void> token_;
};

/// Whoever wants to hear of events of one kind. Observers may come, go and cause further events while they are being
/// called. Used on one thread.
template<class Event>
class ObserverList
{
public:
    using Observer = std::function<void(const Event&)>;

    /// The observer is called until the returned subscription is destroyed.
    [[nodiscard]] Subscription add(Observer observer)
    {
        auto owner = std::make_shared<Observer>(std::move(observer));
        observers_.push_back(owner);
        return Subscription(std::move(owner));
    }

    /// Calls everybody who was there when the event came and still is, in the order in which they joined.
    void report(const Event& event)
    {
        const std::size_t present = observers_.size();
        ++reporting_;
        for (std::size_t at = 0; at < present; ++at) {
            if (const auto observer = observers_[at].lock())
                (*observer)(event);
        }
        if (--reporting_ == 0)
            std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    }

private:
    std::vector<std::weak_ptr<Observer>> observers_;
    int reporting_ = 0;
};

} // namespace lineara
