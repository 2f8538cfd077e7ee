#pragma once

#include "arrangement.h"
#include "drawn_lines.h"
#include "family_walk.h"
#include "hearing.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace lineara::layout {

/// Brings brothers and sisters into the order of their birth years, each with all that hangs from it in the tree. Whose
/// year is not known keeps its place among the others.
class SiblingOrder
{
public:
    /// Both must outlive this.
    SiblingOrder(const Chart& chart, const FamilyTree& tree);

    /// Goes over all sibships that are not in order. Exchanges that add up to `perPair`
    /// crossings for each pair of neighbours that they bring into order are carried out as long as all of them together
    /// add no more than `inAll`, as far as lines keep their places otherwise. Ends early if `heard` says so.
    /// Returns whether anybody moved.
    bool goOver(Arrangement& arrangement, std::int64_t perPair, std::int64_t inAll, const Heard& heard = {});

private:
    /// A block of one of the branches and where its middle stands.
    struct Entry
    {
        std::uint32_t row = 0;
        double middle = 0;
        std::uint32_t branch = 0;
        BlockIndex block = 0;
    };

    /// What is moved with a sibling: all that hangs from it in the tree, only what leads down from it, or nothing.
    enum class Extent : std::uint8_t
    {
        Whole,
        Descendants,
        Alone
    };

    /// A block that is to move, with the place of its left edge now and then.
    struct MovedBlock
    {
        BlockIndex block = 0;
        double before = 0;
        double after = 0;
    };

    bool sortSibship(std::span<const Sibling> sibship);
    bool isInOrder(std::span<const Sibling> sibship);
    bool collectBranches();
    bool collectBranch(std::uint32_t number, const Sibling& sibling);
    bool sortAtOnce();
    bool exchangeNeighbours();
    bool tryOrder(const std::vector<std::uint32_t>& sequence);
    void reassign(const std::vector<std::uint32_t>& sequence);
    void liftMoved();
    void exchange();
    void settleRows();
    void settle(std::uint32_t row);

    const Chart& chart_;
    const FamilyTree& tree_;
    DrawnLines drawn_;
    Arrangement* arrangement_ = nullptr;
    std::int64_t perPair_ = 0;
    std::int64_t affordable_ = 0;
    Extent extent_ = Extent::Whole;
    /// The siblings at hand from left to right.
    std::vector<Sibling> siblings_;
    std::vector<std::uint32_t> takenIn_;
    std::uint32_t taking_ = 0;
    std::vector<Entry> entries_;
    std::vector<MovedBlock> moved_;
    std::vector<std::uint32_t> lines_;
    /// So that the time taken stays in proportion to the family; sibships that come later are left as they are.
    std::int64_t affordableWork_ = 0;
};

/// How many pairs of siblings stand in the wrong order.
std::int64_t disorderOf(const Chart& chart, const Arrangement& arrangement);

/// How often, from left to right, an elder one follows a younger one among the siblings whose years are known.
std::int64_t stepsBackOf(const Chart& chart, const Arrangement& arrangement);

/// Brings siblings into order wherever that adds no crossing, and further ones up to `mostAdded` crossings more than
/// there are. Ends early if `heard` says so. Returns whether anybody moved.
bool sortSiblings(const Chart& chart, const FamilyTree& tree, Arrangement& arrangement, std::uint64_t mostAdded,
                  const Heard& heard = {});

} // namespace lineara::layout
