#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stop_token>

namespace lineara {

/// Handed down to long work: the work tells how far it is, and learns whether it is still wanted. A small value; copies
/// and stages tell the same listener. Reports come from whatever thread the work runs on, one at a time.
class Progress
{
public:
    /// Tells nobody and is never stopped.
    Progress() = default;

    /// The listener hears ascending parts from 0 to 1, each at least a hundredth above the last. It runs within the
    /// work, so it should hand the number on and return. It may ask for the stop itself. After a stop it hears nothing
    /// more.
    explicit Progress(std::function<void(double)> listener, std::stop_token stop = {});

    /// Tells that this part (0 to 1) is done. Cheap: most calls only compare two numbers.
    void report(double part) const;

    /// Once true, it stays so; the work should end within a few milliseconds and give up what it made.
    bool isStopped() const { return stop_.stop_requested(); }

    /// Reports, and tells whether to go on.
    [[nodiscard]] bool goesOn(double part) const
    {
        report(part);
        return !isStopped();
    }

    /// The same for the items of a loop: reports, and looks at the stop, only now and then.
    [[nodiscard]] bool goesOn(std::size_t item, std::size_t items) const { return goesOn(item, item, items); }

    /// Where items are counted, but the part is measured by something else: done of all.
    [[nodiscard]] bool goesOn(std::size_t item, std::size_t done, std::size_t all) const
    {
        constexpr std::size_t itemsBetweenLooks = 512;
        return item % itemsBetweenLooks != 0 || goesOn(static_cast<double>(done) / static_cast<double>(all));
    }

    /// The progress of one stage, whose 0 to 1 is `begin` to `end` of this one.
    Progress stage(double begin, double end) const;

private:
    struct Listening;

    std::shared_ptr<Listening> listening_;
    std::stop_token stop_;
    double begin_ = 0;
    double end_ = 1;
};

} // namespace lineara
