#pragma once

#include "arrangement.h"
#include "family_walk.h"
#include "hearing.h"
#include "placement.h"
#include "sifting.h"
#include "sweep.h"

namespace lineara::layout {

/// Orders a chart step by step, from the walk of a tree on, and remembers the best order met on the way.
class Search
{
public:
    /// The chart must outlive this. `costOfDisorder` is what a pair of siblings in the wrong order counts beside a
    /// crossing.
    Search(const Chart& chart, FamilyTree tree, double costOfDisorder);

    bool isPlane() const;
    const Arrangement& best() const { return best_; }
    void returnToBest() { now_ = best_; }
    const FamilyTree& tree() const { return tree_; }

    /// Sorts all rows `times` times down and up, at the given share of the other side.
    void sweep(int times, double share, const Heard& heard);

    /// Moves single blocks, over all rows `times` times or until none moves.
    void sift(int times, const Heard& heard);

    /// Moves branches as often as comparisons of lines can be afforded, a certain number per block.
    void moveBranches(const Heard& heard);

private:
    void centreRows();
    bool siftRow(std::uint32_t row);
    void compare();

    const Chart& chart_;
    FamilyTree tree_;
    double costOfDisorder_;
    Placement placement_;
    Sweep sweep_;
    Sifting sifting_;
    Arrangement now_;
    Arrangement best_;
    double least_ = 0;
};

} // namespace lineara::layout
