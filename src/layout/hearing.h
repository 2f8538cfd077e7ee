#pragma once

#include <cstdint>
#include <functional>

namespace lineara::layout {

/// Hears what share of a piece of work is done, from 0 to 1; says whether to go on. One that is empty lets all go on.
using Heard = std::function<bool(double)>;

/// Tells how far a piece of work has come that consists of several parts. After it was said not to go on nobody is
/// asked any more; what is worked out from then on is worth nothing.
class Hearing
{
public:
    /// `heard` must outlive this.
    explicit Hearing(const Heard& heard) : heard_(heard) {}

    /// What follows is the next part, which takes the given share of all.
    void nextPart(double share)
    {
        begin_ = end_;
        end_ += share;
    }

    /// Tells that a share of the part at hand is done, from 0 to 1. Returns whether to go on.
    bool goesOn(double share)
    {
        if (heard_ && !isStopped_)
            isStopped_ = !heard_(begin_ + (end_ - begin_) * share);
        return !isStopped_;
    }

    bool isStopped() const { return isStopped_; }

    /// For whoever does the part at hand.
    Heard ofPart()
    {
        return [this](double share) { return goesOn(share); };
    }

private:
    const Heard& heard_;
    double begin_ = 0;
    double end_ = 0;
    bool isStopped_ = false;
};

/// Calls `work(row)` for every row downwards and then upwards, as long as `heard` lets it go on. Returns whether any
/// call returned true.
template<typename Work>
bool downAndUp(std::uint32_t rows, const Heard& heard, Work work)
{
    Hearing hearing(heard);
    bool anywhere = false;
    for (const bool downwards : {true, false}) {
        hearing.nextPart(0.5);
        for (std::uint32_t row = 0; row < rows && hearing.goesOn(static_cast<double>(row) / rows); ++row)
            anywhere |= work(downwards ? row : rows - 1 - row);
    }
    return anywhere;
}

} // namespace lineara::layout
