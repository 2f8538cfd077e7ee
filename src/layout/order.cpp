#include "order.h"

#include "crossings.h"
#include "descent_order.h"
#include "placement.h"
#include "sifting.h"
#include "sweep.h"

namespace lineara::layout {

namespace {

/// Orders a chart step by step and remembers the best order met on the way.
class Search
{
public:
    explicit Search(const Chart& chart)
        : chart_(chart), placement_(chart), sweep_(chart), sifting_(chart), now_(firstArrangement()), best_(now_),
          fewest_(countCrossings(chart, best_))
    {}

    bool done() const { return fewest_ == 0; }
    const Arrangement& best() const { return best_; }
    void returnToBest() { now_ = best_; }

    /// Sorts all rows `times` times down and up, at the given share of the other side.
    void sweep(int times, double share)
    {
        for (int time = 0; time < times && !done(); ++time) {
            sweep_.down(now_, share);
            sweep_.up(now_, share);
            compare();
        }
    }

    /// Moves single blocks, over all rows `times` times or until none moves.
    void sift(int times)
    {
        for (bool moved = true; moved && times > 0 && !done(); --times) {
            moved = siftRows();
            placement_.pull(now_, 2);
            compare();
        }
    }

private:
    Arrangement firstArrangement()
    {
        Arrangement first = descentOrder(chart_);
        placement_.pull(first, 3);
        return first;
    }

    bool siftRows()
    {
        bool moved = false;
        for (std::uint32_t row = 0; row < chart_.rows; ++row)
            moved |= siftRow(row);
        for (std::uint32_t row = chart_.rows; row-- > 0;)
            moved |= siftRow(row);
        return moved;
    }

    bool siftRow(std::uint32_t row)
    {
        sweep_.turnRow(now_, row);
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
    Search search(chart);
    search.sweep(passes(chart, 6, 2), 0);
    search.sweep(passes(chart, 12, 4), 0.2);
    search.returnToBest();
    search.sift(passes(chart, 4, 1));
    // A few sweeps to all sides shake the best order; what was a dead end may lead on from there.
    for (int shake = passes(chart, 2, 0); shake > 0 && !search.done(); --shake) {
        search.returnToBest();
        search.sweep(4, 1);
        search.sift(3);
    }
    return search.best();
}

} // namespace lineara::layout
