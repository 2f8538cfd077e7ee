#pragma once

#include "arrangement.h"

#include <cstdint>
#include <vector>

namespace lineara::layout {

/// Moves single blocks within their rows to where fewer child lines cross.
class Sifting
{
public:
    explicit Sifting(const Chart& chart) : chart_(chart), itemOf_(chart.blocks()) {}

    /// Tries for every block of a row the places up to a fixed number of neighbours to either side, and takes the best.
    /// Only the order changes: the row is to be settled afterwards. Returns whether any block moved.
    bool siftRow(Arrangement& arrangement, std::uint32_t row);

private:
    static constexpr BlockIndex passingLine = ~BlockIndex{0};

    /// A block, or a line that passes the row between two blocks, with the places in the rows above and below to
    /// which its lines lead, sorted.
    struct Item
    {
        double place = 0;
        BlockIndex block = passingLine;
        std::vector<double> above;
        std::vector<double> below;
    };

    Item& addItem(double place, BlockIndex block);
    void collect(const Arrangement& arrangement, std::uint32_t row);
    void addLinesAbove(const Arrangement& arrangement, std::uint32_t row);
    void addLinesBelow(const Arrangement& arrangement, std::uint32_t row);
    bool siftItem(std::uint32_t item);
    std::int64_t savedByExchange(std::uint32_t left, std::uint32_t right) const;

    const Chart& chart_;
    std::vector<std::uint32_t> itemOf_;
    std::vector<Item> items_; ///< those of the row, and behind them what earlier rows needed more
    std::size_t used_ = 0;
    /// The items from left to right, and where each of them is in that sequence.
    std::vector<std::uint32_t> sequence_;
    std::vector<std::uint32_t> position_;
};

} // namespace lineara::layout
