#include "push_up.h"

#include "sweeps.h"

namespace lineara::engine {

void pushUp(const FamilyGraph& family, std::vector<Generation>& generations, std::vector<LogEntry>& log,
            const std::stop_token& stop, const std::stop_token& hurry)
{
    const std::vector<Generation> before = generations;
    std::stop_source either;
    const auto request = [&either] { either.request_stop(); };
    const std::stop_callback onStop(stop, request);
    const std::stop_callback onHurry(hurry, request);
    switch (sweepUntilEnd(family, generations, SweepMode::WithPartners, either.get_token())) {
    case SweepsEnd::Quiet:
        return;
    case SweepsEnd::Stopped:
        if (stop.stop_requested())
            return;
        log.push_back({LogEntry::Kind::PushCutShort});
        generations = before;
        break;
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
