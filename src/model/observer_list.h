#pragma once

#include "model/changes.h"

#include <functional>
#include <memory>
#include <vector>

namespace lineara {

/// Whoever wants to hear of changes. Observers may come, go and change records while they are being called.
class ObserverList
{
public:
    using Observer = std::function<void(const Change&)>;

    /// The observer lives as long as the returned owner.
    std::shared_ptr<void> add(Observer observer);

    /// Calls everybody who was there when the change was made and still is.
    void report(const Change& change);

private:
    std::vector<std::weak_ptr<Observer>> observers_;
    int reporting_ = 0;
};

} // namespace lineara
