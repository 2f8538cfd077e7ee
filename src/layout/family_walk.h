#pragma once

#include "arrangement.h"

#include <vector>

namespace lineara::layout {

/// A tree that spans all blocks of a chart along its child lines, up as well as down. Lines that would close a circle
/// are left out.
struct FamilyTree
{
    /// The block through which each was met; `noBlock` for the first.
    std::vector<BlockIndex> metThrough;
    Lists<BlockIndex> branches;
    /// All blocks, nobody before the one it was met through.
    std::vector<BlockIndex> asMet;
};

/// The tree that reaches every block from `root` by the fewest lines. Takes linear time.
FamilyTree spanFrom(const Chart& chart, BlockIndex root);

/// Walks the family as a tree and lines the rows up as they are met: to either side of each block go whole branches,
/// those that reach past its row outermost, so that few lines of one branch lead through another. A family that is a
/// tree, and in which nobody has more than two such branches, stands without a crossing. Every row is packed from
/// place 0. Takes n log n time.
Arrangement walkOrder(const Chart& chart, const FamilyTree& tree);

} // namespace lineara::layout
