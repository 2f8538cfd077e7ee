#pragma once

#include "arrangement.h"

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace lineara::layout {

/// The child lines of an arrangement as they are drawn, straight and in all the rows that they pass, ready to tell how
/// many of them a line would cross. Lines that the chart leaves out of its bands do not count.
class DrawnLines
{
public:
    /// No line is drawn yet. The chart must outlive this.
    explicit DrawnLines(const Chart& chart);

    /// The lines that end at a block.
    std::span<const std::uint32_t> of(BlockIndex block) const { return linesOf_[block]; }

    /// Draws a line, anew if it was drawn before, to where its ends stand now.
    void draw(const Arrangement& arrangement, std::uint32_t line);
    void draw(const Arrangement& arrangement, std::span<const std::uint32_t> lines);
    void drawAll(const Arrangement& arrangement);

    /// Takes a line out until it is drawn again.
    void lift(std::uint32_t line);

    /// Takes the lines out that end at a block, and adds those to `lifted` that were drawn until now.
    void liftAt(BlockIndex block, std::vector<std::uint32_t>& lifted);

    /// Draws lifted lines, one after the other, and returns how many crossings they bring. Leaves the rest lifted as
    /// soon as there are more than `most`.
    std::int64_t lower(const Arrangement& arrangement, std::span<const std::uint32_t> lines,
                       std::int64_t most = std::numeric_limits<std::int64_t>::max());

    /// How many drawn lines the given one would cross if it led from `from` in its upper row to `to` in its lower one.
    /// It must have been lifted. Takes time linear in the lines of the rows that it passes.
    std::int64_t crossingsOf(std::uint32_t line, float from, float to) const;

private:
    /// The pieces of a line: `first` is the number of the one that leads on from row `top`.
    struct Pieces
    {
        std::uint32_t top = 0;
        std::uint32_t bottom = 0;
        std::uint32_t first = 0;
    };

    const Chart& chart_;
    Lists<std::uint32_t> linesOf_;
    std::vector<Pieces> pieces_;
    std::vector<bool> isLifted_;
    /// Where the pieces stand in `upper_` and `lower_`, which hold all pieces of a row together; NaN while lifted.
    std::vector<std::uint32_t> standsAt_;
    std::vector<std::uint32_t> rowBegins_;
    std::vector<float> upper_;
    std::vector<float> lower_;
};

} // namespace lineara::layout
