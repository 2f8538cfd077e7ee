#include "due_ledger.h"

#include <algorithm>

namespace lineara {

void DueLedger::finished(const FamilyWork& work, StepId of, StepId newest)
{
    if (of < newest)
        late_.push_back({work, of.number, newest.number});
}

bool DueLedger::isDue(StepId step) const
{
    return std::ranges::any_of(late_, [step](const Late& late) { return late.covers(step); });
}

std::vector<FamilyWork> DueLedger::take(StepId step)
{
    std::vector<FamilyWork> due;
    std::vector<Late> remaining;
    for (const Late& late : late_) {
        if (!late.covers(step)) {
            remaining.push_back(late);
            continue;
        }
        due.push_back(late.work);
        if (late.from < step.number)
            remaining.push_back({late.work, late.from, step.number});
        if (step.number + 1 < late.until)
            remaining.push_back({late.work, step.number + 1, late.until});
    }
    late_ = std::move(remaining);
    return due;
}

void DueLedger::putBack(const FamilyWork& work, StepId step)
{
    late_.push_back({work, step.number, step.number + 1});
}

} // namespace lineara
