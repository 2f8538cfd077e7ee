#include "observer_list.h"

#include <utility>

namespace lineara {

std::shared_ptr<void> ObserverList::add(Observer observer)
{
    auto owner = std::make_shared<Observer>(std::move(observer));
    observers_.push_back(owner);
    return owner;
}

void ObserverList::report(const Change& change)
{
    const std::size_t present = observers_.size();
    ++reporting_;
    for (std::size_t at = 0; at < present; ++at) {
        if (const auto observer = observers_[at].lock())
            (*observer)(change);
    }
    if (--reporting_ == 0)
        std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
}

} // namespace lineara
