#include "push_up.h"

#include "sweeps.h"

namespace lineara::engine {

void pushUp(const FamilyGraph& family, std::vector<Generation>& generations, std::vector<LogEntry>& log,
            const std::stop_token& stop)
{
    const std::vector<Generation> before = generations;
    switch (sweepUntilEnd(family, generations, SweepMode::WithPartners, stop)) {
    case SweepsEnd::Quiet:
    case SweepsEnd::Stopped:
        return;
    case SweepsEnd::Repeating:
        break;
    case SweepsEnd::Endless:
        log.push_back({LogEntry::Kind::EndlessPush});
        generations = before;
        break;
    }
    // Only on a cycle of parents can this end in any other way than quietly: of the persons pushed in one sweep, one
    // without pushed children finds its children in the next sweep where it left them, so it is not pushed again.
    const SweepsEnd end = sweepUntilEnd(family, generations, SweepMode::WithoutPartners, stop);
    if (end == SweepsEnd::Repeating || end == SweepsEnd::Endless)
        log.push_back({LogEntry::Kind::StillImbalanced});
}

} // namespace lineara::engine
