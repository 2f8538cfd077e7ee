#pragma once

#include "platform/main_thread.h"
#include "platform/observer_list.h"

#include <map>
#include <memory>
#include <typeindex>
#include <utility>

namespace lineara {

/// Carries notifications between parts of the program that do not know each other. The type of a notification is its
/// name; what it carries are its members. Observers hear every sender. Main thread only.
class NotificationCenter
{
public:
    /// The one that all parts of the program share.
    static NotificationCenter& defaultCenter();

    template<class Notification>
    [[nodiscard]] Subscription observe(std::function<void(const Notification&)> observer)
    {
        return observersOf<Notification>().add(std::move(observer));
    }

    /// Delivers at once.
    template<class Notification>
    void post(const Notification& notification)
    {
        observersOf<Notification>().report(notification);
    }

    /// Delivers once the current event has been handled, in the order of enqueuing, and in one order with all other
    /// work posted to the main thread.
    template<class Notification>
    void enqueue(Notification notification)
    {
        MainThread::post([this, notification = std::move(notification)] { post(notification); });
    }

private:
    template<class Notification>
    ObserverList<Notification>& observersOf()
    {
        auto& list = lists_[typeid(Notification)];
        if (!list)
            list = std::make_shared<ObserverList<Notification>>();
        return *static_cast<ObserverList<Notification>*>(list.get());
    }

    std::map<std::type_index, std::shared_ptr<void>> lists_;
};

} // namespace lineara
