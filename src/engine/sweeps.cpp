#include "sweeps.h"

#include "endless_proof.h"
#include "graph_queries.h"
#include "ordered_worklist.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lineara::engine {

namespace {

/// The sweeps over one family.
///
/// A member can need a push only if it was lowered or a child was raised since it was last looked at. So a sweep looks
/// at those alone, in the members' order; who becomes due behind the place the sweep has reached waits for the next
/// sweep. Pushes, and with them all results, are those of looking at everybody.
class Sweeps
{
public:
    Sweeps(const FamilyGraph& family, std::vector<Generation>& generations, SweepMode mode)
        : family_(family), generations_(generations), mode_(mode), due_(family.members)
    {
        for (PersonIndex member = 0; member < family.members; ++member)
            due_.insert(member);
    }

    SweepsEnd untilEnd(const std::stop_token& stop)
    {
        EndlessProof proof(family_, mode_);
        std::vector<Push> previous;
        while (sweep(stop)) {
            if (pushed_.empty())
                return SweepsEnd::Quiet;
            if (std::ranges::equal(pushed_, previous, {}, &Push::person, &Push::person))
                return SweepsEnd::Repeating;
            if (proof.completedBy(pushed_, generations_))
                return SweepsEnd::Endless;
            std::swap(previous, pushed_);
        }
        return stop.stop_requested() ? SweepsEnd::Stopped : SweepsEnd::Endless;
    }

private:
    /// False if the sweep could not be completed.
    bool sweep(const std::stop_token& stop)
    {
        pushed_.clear();
        for (auto member = due_.takeFrom(0); member; member = due_.takeFrom(*member + 1)) {
            if (stop.stop_requested() || !lookAt(*member))
                return false;
        }
        return true;
    }

    /// False if the member would have to be raised beyond the range of a generation.
    bool lookAt(PersonIndex member)
    {
        const std::int64_t own = valueOrZero(generations_[member]);
        std::int64_t raised = own;
        for (const PersonIndex child : family_.children[member])
            raised = std::max(raised, std::int64_t{valueOrZero(generations_[child])} + 1);
        if (raised == own)
            return true;
        const std::int64_t levels = raised - own;
        if (raised > greatestGeneration || levels > greatestGeneration)
            return false;
        pushed_.push_back({member, static_cast<Generation>(levels)});
        move(member, static_cast<Generation>(raised));
        if (mode_ == SweepMode::WithPartners) {
            for (const PersonIndex partner : family_.partners[member])
                move(partner, static_cast<Generation>(raised));
        }
        return true;
    }

    void move(PersonIndex person, Generation generation)
    {
        const Generation before = valueOrZero(std::exchange(generations_[person], generation));
        if (generation > before) {
            for (const PersonIndex parent : family_.parents[person])
                becomeDue(parent);
        } else if (generation < before) {
            becomeDue(person);
        }
    }

    void becomeDue(PersonIndex person)
    {
        if (person < family_.members)
            due_.insert(person);
    }

    static constexpr std::int64_t greatestGeneration = std::numeric_limits<Generation>::max();

    const FamilyGraph& family_;
    std::vector<Generation>& generations_;
    SweepMode mode_;
    OrderedWorklist due_;
    std::vector<Push> pushed_;
};

} // namespace

SweepsEnd sweepUntilEnd(const FamilyGraph& family, std::vector<Generation>& generations, SweepMode mode,
                        const std::stop_token& stop)
{
    return Sweeps(family, generations, mode).untilEnd(stop);
}

} // namespace lineara::engine
