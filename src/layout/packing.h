#pragma once

#include "arrangement.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lineara::layout {

/// Sets unconnected families beside each other in one picture of whole points.
class Packing
{
public:
    /// `rows` holds the row of every person, 0 being the lowest; it must outlive the packing. `pitch` is the length of
    /// a place in points.
    Packing(const std::vector<engine::Generation>& rows, std::int32_t pitch);

    /// Adds a family as far left as there is room for it between those before it, or beyond them: in every row that it
    /// shares with them it stands half a place clear, as a whole. It may stand mirrored where that saves room, unless
    /// it is to stay `asItStands`.
    void addFamily(const Chart& chart, const Arrangement& arrangement, bool asItStands);

    /// Adds one person behind all others of its row.
    void addAlone(engine::PersonIndex person);

    /// Left edges of everybody, the leftmost at `margin`.
    std::vector<std::int32_t> leftEdges(std::int32_t margin) const;

private:
    /// What is taken of a row, both ends being left edges.
    struct Stretch
    {
        std::int64_t first = 0;
        std::int64_t last = 0;
    };
    struct RowOfFamily
    {
        std::size_t row = 0;
        Stretch taken;
    };

    void placeRow(const Chart& chart, const Arrangement& arrangement, std::uint32_t row, double origin);
    void measureRows(const Chart& chart, const Arrangement& arrangement);
    std::int64_t roomFor(std::span<const RowOfFamily> family) const;
    void take(std::size_t row, Stretch stretch);
    std::size_t ordinalOf(engine::PersonIndex person) const;

    const std::vector<engine::Generation>& rows_;
    std::int64_t pitch_;
    /// The rows that are in use, and what is taken of each from left to right.
    std::vector<engine::Generation> used_;
    std::vector<std::vector<Stretch>> taken_;
    std::vector<RowOfFamily> family_;
    std::vector<std::int64_t> edges_;
};

} // namespace lineara::layout
