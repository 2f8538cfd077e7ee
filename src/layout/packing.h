#pragma once

#include "arrangement.h"

#include <cstdint>
#include <vector>

namespace lineara::layout {

/// Sets unconnected families beside each other in one picture of whole points.
class Packing
{
public:
    /// `rows` holds the row of every person, 0 being the lowest; it must outlive the packing. `pitch` is the length of
    /// a place in points.
    Packing(const std::vector<engine::Generation>& rows, std::int32_t pitch);

    /// Adds a family to the right of those before it: half a place clear of them in every row that it shares with
    /// them, but possibly beneath or above what they have in other rows.
    void addFamily(const Chart& chart, const Arrangement& arrangement);

    /// Adds one person behind all others of its row.
    void addAlone(engine::PersonIndex person);

    /// Left edges of everybody, the leftmost at `margin`.
    std::vector<std::int32_t> leftEdges(std::int32_t margin) const;

private:
    void placeRow(const Chart& chart, const Arrangement& arrangement, std::uint32_t row, double origin);
    std::int64_t shiftFor(const Chart& chart, const Arrangement& arrangement) const;
    std::size_t ordinalOf(engine::PersonIndex person) const;

    const std::vector<engine::Generation>& rows_;
    std::int64_t pitch_;
    /// The rows that are in use, and where the persons of each end: the next may start there.
    std::vector<engine::Generation> used_;
    std::vector<std::int64_t> ends_;
    std::vector<std::int64_t> edges_;
};

} // namespace lineara::layout
