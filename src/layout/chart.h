#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"
#include "layout/tidy.h"
#include "lists.h"
#include "partner_rows.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace lineara::layout {

/// Index of a block within its Chart.
using BlockIndex = std::uint32_t;
inline constexpr BlockIndex noBlock = std::numeric_limits<BlockIndex>::max();

/// A point that moves with a block: `offset` places right of the middle of the block's leftmost member.
/// Half places occur, because children hang from the middle between their parents.
struct Anchor
{
    BlockIndex block = 0;
    double offset = 0;
};

/// Draws two blocks towards the horizontal distance at which the anchors `own` and `other` stand one above the other.
/// `own` is the offset in the block that holds the spring.
struct Spring
{
    double own = 0;
    Anchor other;
    double weight = 1;
};

/// The line from the middle of the parents down to a child. A lone parent stands in both upper anchors.
struct ChildLine
{
    Anchor firstParent;
    Anchor secondParent;
    Anchor child;
};

/// One of several brothers and sisters.
struct Sibling
{
    Anchor place;
    /// `unknownBirthYear` where it is not known.
    std::int32_t bornIn = unknownBirthYear;
};

/// Two brothers or sisters born in different years, between which nobody else of theirs was born.
struct SiblingPair
{
    Anchor elder;
    Anchor younger;
};

/// One connected family in rows, ready to be ordered and placed. Lengths are in places: one place is one pitch.
///
/// Persons of one row who are partners, directly or through further partners, form a block: they stand shoulder to
/// shoulder and move together. Everybody else is a block alone. Rows count from the oldest downwards and none is empty.
struct Chart
{
    /// The members of each block, from left to right while the block is not mirrored.
    Lists<engine::PersonIndex> members;
    std::vector<std::uint32_t> rowOf;
    std::uint32_t rows = 0;
    /// The birth year of the first member whose parents are in the family, of each block; `unknownBirthYear` without
    /// one.
    std::vector<std::int32_t> bornIn;
    /// The blocks that hold the children of each block's members, and those that hold their parents, in link order.
    Lists<BlockIndex> childBlocks;
    Lists<BlockIndex> parentBlocks;
    /// The springs of each block to blocks in rows above it, and to blocks in rows below it.
    Lists<Spring> springsUp;
    Lists<Spring> springsDown;
    /// Children of one couple, or of one parent, who stand in one row, each in a block of its own: those of which the
    /// years of two are known at least.
    Lists<Sibling> sibships;
    /// So many of their pairs that all are in order where these are: once with the block of the elder and once with
    /// that of the younger.
    Lists<SiblingPair> siblingPairs;
    std::vector<ChildLine> lines;
    /// For each row the lines that lead on from it into the next, whether they start there or pass it. Left out are
    /// lines that lead nowhere down, and the longest where lines would pass more than a few rows each on average.
    Lists<std::uint32_t> linesBelow;

    /// What a pair of siblings in the wrong order counts beside a crossing.
    double costOfDisorder = 0;

    std::size_t blocks() const { return rowOf.size(); }
    double width(BlockIndex block) const { return static_cast<double>(members[block].size()); }
    /// The offset of the middle of a block.
    double middle(BlockIndex block) const { return (width(block) - 1) / 2; }
    /// The rows in which a line starts, with the lower parent, and ends.
    std::uint32_t topOf(const ChildLine& line) const
    {
        return std::max(rowOf[line.firstParent.block], rowOf[line.secondParent.block]);
    }
    std::uint32_t bottomOf(const ChildLine& line) const { return rowOf[line.child.block]; }
};

/// How often to go over a chart to improve it: `most` for a small family, falling with its size down to `least`, so
/// that the time a large family takes stays in proportion to it.
int passes(const Chart& chart, int most, int least);

/// Builds charts out of a family, one connected part of it after the other.
class ChartBuilder
{
public:
    /// `rows` holds the row of every person, higher meaning older, and `birthYears` the year of every person, or
    /// nothing. All must outlive the builder.
    ChartBuilder(const engine::FamilyGraph& family, const std::vector<engine::Generation>& rows,
                 std::span<const std::int32_t> birthYears = {});

    /// `persons` are all persons of one connected part. Takes time linear in them and their links, apart from sorting.
    Chart build(std::span<const engine::PersonIndex> persons);

private:
    void formBlocks(Chart& chart, std::span<const engine::PersonIndex> persons);
    void numberRows(Chart& chart) const;
    void noteBirths(Chart& chart) const;
    void drawLines(Chart& chart) const;
    void listLinesBelow(Chart& chart) const;
    void listRelatives(Chart& chart) const;
    void tieSprings(Chart& chart) const;
    void listSibships(Chart& chart) const;
    void pairSiblings(Chart& chart) const;
    void addSibship(Chart& chart, std::span<const engine::PersonIndex> children) const;
    Anchor anchorOf(engine::PersonIndex person) const { return {blockOf_[person], offsetOf_[person]}; }

    const engine::FamilyGraph& family_;
    const std::vector<engine::Generation>& rows_;
    std::span<const std::int32_t> birthYears_;
    PartnerRows partnerRows_;
    std::vector<BlockIndex> blockOf_;
    std::vector<double> offsetOf_;
};

} // namespace lineara::layout
