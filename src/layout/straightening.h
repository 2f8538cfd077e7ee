#pragma once

#include "arrangement.h"
#include "drawn_lines.h"
#include "hearing.h"
#include "placement.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lineara::layout {

/// Pulls an arrangement straight, in its order, where no more lines cross for it. What stands close together moves
/// together, so that one place at which lines are in the way does not keep all others crooked.
class Straightening
{
public:
    /// The chart must outlive this. Springs beyond `easedBeyond` places pull no harder than one of that length.
    Straightening(const Chart& chart, double easedBeyond);

    /// Pulls every row in turn, downwards and back upwards, unless `heard` says not to go on. Returns whether anybody
    /// moved noticeably.
    bool goOver(Arrangement& arrangement, const Heard& heard = {});

private:
    bool pullRow(std::uint32_t row);
    /// The end of the part of a row that begins with `first`: what follows is in nobody's way, moved or not.
    std::size_t endOfPart(std::span<const BlockIndex> blocks, std::size_t first) const;
    bool movePart(std::span<const BlockIndex> part);
    void exchange(std::span<const BlockIndex> part);

    const Chart& chart_;
    Placement placement_;
    DrawnLines drawn_;
    Arrangement* arrangement_ = nullptr;
    /// Where each block of the row at hand would stand, and the lines that end in the part at hand.
    std::vector<double> wanted_;
    std::vector<std::uint32_t> lines_;
};

/// Lets the springs have their way as far as that does not cost crossings: everywhere at once if that can be, and then
/// where it can.
void straighten(const Chart& chart, Arrangement& arrangement, const Heard& heard = {});

} // namespace lineara::layout
