#pragma once

#include "arrangement.h"
#include "drawn_lines.h"
#include "family_walk.h"
#include "hearing.h"
#include "placement.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace lineara::layout {

/// Moves whole branches of a family sideways, or mirrors them, where fewer child lines cross then. Lines count straight
/// as they are drawn, in all the rows that they pass.
class BranchMoves
{
public:
    /// Both must outlive the moves. `costOfDisorder` is what a pair of siblings in the wrong order counts beside a
    /// crossing.
    BranchMoves(const Chart& chart, const FamilyTree& tree, double costOfDisorder);

    /// Which branches are tried: a branch of more than `largest` blocks is left to move block by block, and of the
    /// blocks only every `everyNth` leads. `downwards` is the sequence of the rows.
    struct Scope
    {
        std::size_t largest = 1;
        std::size_t everyNth = 1;
        bool downwards = true;
    };

    /// Tries, row by row, for the leading blocks with their branches of the tree some places near their relatives and
    /// neighbours, and takes the best. Ends early if `heard` says so.
    void goOver(Arrangement& arrangement, const Scope& scope, const Heard& heard = {});

private:
    /// A move of the chosen branch: mirrored about the middle of its first block if wanted, then shifted.
    struct Move
    {
        double shift = 0;
        bool mirror = false;
    };

    void tryRow(std::uint32_t row, const Scope& scope);
    void tryBranch(BlockIndex block);
    void chooseBranch(BlockIndex block, std::size_t largest);
    void liftLines();
    void findTargets();
    double placeBetween(std::size_t slot, double target) const;
    double costOf(const Move& move, double limit);
    double disorderAfter(const Move& move) const;
    /// One end of a line: where it stands, and whether it moves with the branch.
    struct End
    {
        double place = 0;
        bool isMoving = false;
    };

    /// The ends of a lifted line, looked up once for all moves that are weighed.
    struct LineEnds
    {
        End firstParent;
        End secondParent;
        End child;
    };

    End endAt(const Anchor& anchor) const;
    double placeAfter(const Move& move, const End& end) const;
    void carryOut(const Move& move);
    void settleMovedRows();
    bool isChosen(BlockIndex block) const { return chosenIn_[block] == choice_; }

    const Chart& chart_;
    const FamilyTree& tree_;
    double costOfDisorder_;
    Placement placement_;
    Arrangement* arrangement_ = nullptr;
    DrawnLines drawn_;
    /// The chosen blocks, the first of which leads, and all lines that end at one of them.
    std::vector<BlockIndex> chosen_;
    std::vector<std::uint32_t> lines_;
    std::vector<LineEnds> linesEnds_;
    /// Where the lines would begin and end after the move at hand.
    std::vector<std::pair<float, float>> ends_;
    std::uint32_t choice_ = 0;
    std::vector<std::uint32_t> chosenIn_;
    double leadersMiddle_ = 0;
    /// The blocks of the row from left to right, by their middles.
    std::vector<std::pair<double, BlockIndex>> standing_;
    std::size_t leadersSlot_ = 0;
    std::vector<double> targets_;
    std::vector<std::size_t> triedSlots_;
    std::vector<BlockIndex> blocksOfRow_;
    std::vector<bool> hasMoved_;
    std::vector<std::uint32_t> movedRows_;
};

} // namespace lineara::layout
