#include "order.h"

#include "crossings.h"
#include "descent_order.h"
#include "placement.h"
#include "sifting.h"
#include "sweep.h"

#include <algorithm>

namespace lineara::layout {

namespace {

/// Orders a chart step by step and remembers the best order met on the way.
class Search
{
public:
    explicit Search(const Chart& chart)
        : chart_(chart), placement_(chart), sweep_(chart), sifting_(chart), now_(descentOrder(chart))
    {
        placement_.pull(now_, 3);
        best_ = now_;
        fewest_ = countCrossings(chart, best_);
    }

    bool done() const { return fewest_ == 0; }
    const Arrangement& best() const { return best_; }
    void returnToBest() { now_ = best_; }

    void sweep(double share)
    {
        sweep_.down(now_, share);
        sweep_.up(now_, share);
        compare();
    }

    /// Returns whether any block moved.
    bool sift()
    {
        bool moved = false;
        for (std::uint32_t row = 0; row < chart_.rows; ++row)
            moved |= siftRow(row);
        for (std::uint32_t row = chart_.rows; row-- > 0;)
            moved |= siftRow(row);
        if (moved) {
            placement_.pull(now_, 2);
            compare();
        }
        return moved;
    }

private:
    bool siftRow(std::uint32_t row)
    {
        const bool moved = sifting_.siftRow(now_, row);
        if (moved)
            placement_.pullRow(now_, row);
        return moved;
    }

    void compare()
    {
        const std::uint64_t crossings = countCrossings(chart_, now_);
        if (crossings < fewest_) {
            fewest_ = crossings;
            best_ = now_;
        }
    }

    const Chart& chart_;
    Placement placement_;
    Sweep sweep_;
    Sifting sifting_;
    Arrangement now_;
    Arrangement best_;
    std::uint64_t fewest_ = 0;
};

} // namespace

Arrangement orderFamilies(const Chart& chart)
{
    constexpr double shareOfOtherSide = 0.2;
    Search search(chart);
    const int sweeps = passes(chart, 18, 6);
    for (int sweep = 0; sweep < sweeps && !search.done(); ++sweep)
        search.sweep(sweep < sweeps / 3 ? 0 : shareOfOtherSide);
    search.returnToBest();
    const int siftings = passes(chart, 4, 1);
    for (int sifting = 0; sifting < siftings && !search.done(); ++sifting)
        if (!search.sift())
            break;
    return search.best();
}

} // namespace lineara::layout
