#include "sweeps.h"

#include "graph_queries.h"
#include "independent_parts.h"
#include "ordered_worklist.h"
#include "period_search.h"
#include "repetition.h"

#include <algorithm>
#include <bit>
#include <optional>
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
        : family_(family), generations_(generations), mode_(mode), due_(family.members), search_(family.members)
    {
        for (PersonIndex member = 0; member < family.members; ++member)
            due_.insert(member);
    }

    SweepsEnd untilEnd(const std::stop_token& stop)
    {
        while (true) {
            if (const auto end = next(stop))
                return *end;
            if (std::has_single_bit(sweeps_) && sweeps_ >= firstLookAtParts && hasEndlessPart(stop))
                return SweepsEnd::Endless;
        }
    }

private:
    /// Makes one sweep, and all that repeat with it. No value if more are to come.
    std::optional<SweepsEnd> next(const std::stop_token& stop)
    {
        if (!sweep(stop))
            return stop.stop_requested() ? SweepsEnd::Stopped : SweepsEnd::Endless;
        if (pushed_.empty())
            return SweepsEnd::Quiet;
        if (pushed_ == previous_)
            return SweepsEnd::Repeating;
        std::swap(previous_, pushed_);
        ++sweeps_;
        const auto period = search_.guessAfter(fingerprint_);
        if (!period)
            return std::nullopt;
        const auto repetition = findRepetition(family_, mode_, generations_, previous_, *period, stop);
        if (!repetition)
            return std::nullopt;
        if (repetition->periods == Repetition::forever)
            return SweepsEnd::Endless;
        leapOver(*repetition);
        return std::nullopt;
    }

    /// False if the sweep could not be completed.
    bool sweep(const std::stop_token& stop)
    {
        pushed_.clear();
        fingerprint_ = {};
        for (auto member = due_.takeFrom(0); member; member = due_.takeFrom(*member + 1)) {
            if (stop.stop_requested() || !lookAt(*member))
                return false;
        }
        return true;
    }

    /// False if the member would have to be raised above `greatestGeneration`.
    bool lookAt(PersonIndex member)
    {
        const Generation own = valueOrZero(generations_[member]);
        Generation raised = own;
        for (const PersonIndex child : family_.children[member])
            raised = std::max(raised, valueOrZero(generations_[child]) + 1);
        if (raised == own)
            return true;
        if (raised > greatestGeneration)
            return false;
        pushed_.push_back(member);
        fingerprint_.addPush(member, raised - own);
        move(member, raised);
        if (mode_ == SweepMode::WithPartners) {
            for (const PersonIndex partner : family_.partners[member])
                move(partner, raised);
        }
        return true;
    }

    /// Whether a part that nobody else drives on would never end by itself: no two sweeps running ever push the same
    /// persons of it, so neither do they push the same persons in all. Many parts with periods of their own repeat as
    /// a whole only after the least common multiple of their periods, but each of them does so soon.
    bool hasEndlessPart(const std::stop_token& stop) const
    {
        return std::ranges::any_of(partsOfKnots(family_, previous_),
                                   [&](const IndependentPart& part) { return isEndlessAlone(part, stop); });
    }

    /// Tries no more sweeps than were made, so that the parts cost no more than the whole.
    bool isEndlessAlone(const IndependentPart& part, const std::stop_token& stop) const
    {
        std::vector<Generation> generations;
        generations.reserve(part.persons.size());
        for (const PersonIndex person : part.persons)
            generations.push_back(generations_[person]);
        Sweeps alone(part.graph, generations, mode_);
        for (const PersonIndex pushed : previous_) {
            const auto at = std::ranges::lower_bound(part.persons, pushed);
            if (at != part.persons.end() && *at == pushed)
                alone.previous_.push_back(static_cast<PersonIndex>(at - part.persons.begin()));
        }
        while (alone.sweeps_ < sweeps_) {
            if (const auto end = alone.next(stop))
                return *end == SweepsEnd::Endless;
        }
        return false;
    }

    /// Makes all sweeps of the repetition at once, or as many of its periods as end in range.
    void leapOver(const Repetition& repetition)
    {
        std::int64_t periods = repetition.periods;
        for (PersonIndex person = 0; person < family_.persons(); ++person) {
            if (const std::int64_t rise = repetition.rises[person]; rise > 0)
                periods = std::min(periods, (greatestGeneration - valueOrZero(generations_[person])) / rise);
        }
        if (periods == 0)
            return;
        for (PersonIndex person = 0; person < family_.persons(); ++person) {
            if (const std::int64_t rise = repetition.rises[person]; rise != 0)
                move(person, static_cast<Generation>(valueOrZero(generations_[person]) + periods * rise));
        }
        previous_ = repetition.lastPushed;
        search_.restart();
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

    static constexpr std::size_t firstLookAtParts = 256;

    const FamilyGraph& family_;
    std::vector<Generation>& generations_;
    SweepMode mode_;
    OrderedWorklist due_;
    std::vector<PersonIndex> pushed_;
    SweepFingerprint fingerprint_; ///< of the persons pushed
    std::size_t sweeps_ = 0;
    PeriodSearch search_;
    std::vector<PersonIndex> previous_; ///< the persons pushed in the sweep before
};

} // namespace

SweepsEnd sweepUntilEnd(const FamilyGraph& family, std::vector<Generation>& generations, SweepMode mode,
                        const std::stop_token& stop)
{
    return Sweeps(family, generations, mode).untilEnd(stop);
}

} // namespace lineara::engine
