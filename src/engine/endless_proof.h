#pragma once

#include "engine/family_graph.h"
#include "sweeps.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::engine {

/// Watches sweeps go by and tells when it is proved that they never end.
///
/// Look at two stretches of the same number of sweeps running, a period and the one after it, with the same pushes by
/// the same levels. Let the rise of a person be the difference between its generation at one moment of the second and
/// at the same moment of the first. A push adds the same levels in both, so it leaves the rise of the one pushed; it
/// sets the partners to the generation of the one pushed, so they take over its rise. Suppose that
///
///   1. everybody's rise is the same at the end of the period as at its beginning, and
///   2. whenever a member is looked at, no child's rise is greater than the member's at that moment.
///
/// Then every later period makes the same pushes. By induction: while it does, everybody is at each moment one more
/// rise above the same moment of the period before (by 1, over the seam of two periods too). A member that was above
/// a child stays above it by 2. A member that was raised by some levels had a child that far ahead and none further;
/// in the second period it was raised by the same levels, so one of its children then as far ahead has not fallen
/// behind and, by 2, rises exactly as the member does: it stays as far ahead in all later periods, while by 2 no other
/// gets further ahead. So the member is raised by the same levels again.
///
/// As no sweep of the two periods ended the sweeps, none was without pushes, and none pushed the same persons as the
/// one before it; all later sweeps repeat them. So the sweeps never end.
///
/// Conversely, generations that never settle drift at steady rates sooner or later, parents at least as fast as their
/// children, which is what 1 and 2 say. Looking for periods costs little next to the sweeps: the search is made each
/// time their number has doubled, and takes the last half of them for its sample.
class EndlessProof
{
public:
    EndlessProof(const FamilyGraph& family, SweepMode mode) : family_(family), mode_(mode) {}

    /// Takes one more sweep, which has not ended the sweeps, and the generations after it. True once it is proved
    /// that no later one will.
    bool completedBy(const std::vector<Push>& pushed, const std::vector<Generation>& generations);

private:
    using Rise = std::int64_t;

    /// The pushes of the sweeps of one period.
    struct Period
    {
        std::vector<Push> pushes;
        std::vector<std::size_t> sweepEnds;
    };

    enum class Stage : std::uint8_t
    {
        Searching,
        FirstPeriod,
        SecondPeriod
    };

    void search(const std::vector<Push>& pushed, const std::vector<Generation>& generations);
    void recordFirst(const std::vector<Push>& pushed, const std::vector<Generation>& generations);
    bool compareSecond(const std::vector<Push>& pushed, const std::vector<Generation>& generations);
    bool isAsRecorded(const std::vector<Push>& pushed) const;
    void searchOn();

    const FamilyGraph& family_;
    SweepMode mode_;
    Stage stage_ = Stage::Searching;
    std::size_t window_ = 16;
    std::vector<std::uint64_t> fingerprints_; ///< one per sweep of the window
    std::size_t sweepsOfPeriod_ = 0;
    std::size_t sweepsCompared_ = 0;
    Period period_;
    std::vector<Generation> atStart_;
    std::vector<Rise> rises_;
};

} // namespace lineara::engine
