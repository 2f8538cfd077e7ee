#pragma once

#include "family_work.h"
#include "model/journal.h"

#include <cstdint>
#include <vector>

namespace lineara {

/// Knows which work is missing after an undo.
///
/// Changes belong to the newest step of the history. Work that ends after a further step has begun leaves its changes
/// there, and undoing that step takes them back, although the work followed from an earlier one that still stands. Step
/// 0 is the state before the first step.
class DueLedger
{
public:
    /// Work that followed from step `of` has ended while `newest` was the newest step.
    void finished(const FamilyWork& work, StepId of, StepId newest);

    /// True if work is missing in the state that the step left.
    bool isDue(StepId step) const;

    /// The missing work, in the order in which it once was done. It counts as no longer missing there.
    std::vector<FamilyWork> take(StepId step);

    /// Work that was taken is missing there after all.
    void putBack(const FamilyWork& work, StepId step);

private:
    /// Missing in the states after the steps [from, until).
    struct Late
    {
        FamilyWork work;
        std::uint64_t from;
        std::uint64_t until;
        bool covers(StepId step) const { return from <= step.number && step.number < until; }
    };
    std::vector<Late> late_;
};

} // namespace lineara
