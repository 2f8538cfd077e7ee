#include "kinship/checks.h"

#include "sibling_dates.h"

#include <algorithm>

namespace lineara::kinship {

namespace {

/// To ask whether to stop costs more than to look at one person.
constexpr PersonIndex personsBetweenStops = 1'024;

/// False where any number of days tells it; to ask the calendar takes longer.
constexpr bool mayBeWithin(std::int64_t years, DayNumber from, DayNumber to)
{
    return to - from <= years * 366;
}
constexpr bool mayBeBeyond(std::int64_t years, DayNumber from, DayNumber to)
{
    return to - from >= years * 365;
}

class Checks
{
public:
    explicit Checks(const CheckedFamily& family)
        : family_(family), births_(rangesOf(&LifeDates::birth)), deaths_(rangesOf(&LifeDates::death)),
          siblings_(family_, births_)
    {}

    void lookAt(PersonIndex person)
    {
        lookAtLife(person);
        if (births_[person]) {
            for (const PersonIndex parent : family_.family.parents[person])
                lookAtParent(person, parent);
        }
        if (family_.family.children[person].size() > 1)
            siblings_.lookAt(person, found_);
    }

    std::vector<FoundPerson> take()
    {
        std::ranges::sort(found_);
        // Of two mothers both see their children.
        const auto repeated = std::ranges::unique(found_);
        found_.erase(repeated.begin(), repeated.end());
        return std::move(found_);
    }

private:
    std::vector<std::optional<DateRange>> rangesOf(PartialDate LifeDates::*date) const
    {
        std::vector<std::optional<DateRange>> ranges;
        ranges.reserve(family_.dates.size());
        for (const LifeDates& dates : family_.dates)
            ranges.push_back(DateRange::of(dates.*date));
        return ranges;
    }

    void lookAtLife(PersonIndex person)
    {
        const auto& birth = births_[person];
        const auto& death = deaths_[person];
        if (!birth || !death)
            return;
        if (death->isCertainlyBefore(*birth))
            found_.push_back({person, Finding::BornAfterDeath});
        else if (mayBeBeyond(greatestAge, birth->latest(), death->earliest()) &&
                 death->earliest() > birth->latestAfter(greatestAge * monthsOfYear))
            found_.push_back({person, Finding::TooOld});
    }

    void lookAtParent(PersonIndex person, PersonIndex parent)
    {
        const DateRange& birth = *births_[person];
        if (const auto& ofParent = births_[parent]) {
            if (birth.isCertainlyBefore(*ofParent))
                found_.push_back({person, Finding::BornBeforeParent, parent});
            else if (mayBeWithin(leastParentAge, ofParent->earliest(), birth.latest()) &&
                     birth.latest() < ofParent->earliestAfter(leastParentAge * monthsOfYear))
                found_.push_back({person, Finding::ParentTooYoung, parent});
            else if (mayBeBeyond(greatestParentAge, ofParent->latest(), birth.earliest()) &&
                     birth.earliest() > ofParent->latestAfter(greatestParentAge * monthsOfYear))
                found_.push_back({person, Finding::ParentTooOld, parent});
        }
        const auto& death = deaths_[parent];
        if (death && death->isCertainlyBefore(birth) && birth.earliest() > lastBirthAfter(*death, parent))
            found_.push_back({person, Finding::BornAfterParentsDeath, parent});
    }

    DayNumber lastBirthAfter(const DateRange& death, PersonIndex parent) const
    {
        return sexOf(family_.sexes, parent) == Sex::Female ? death.latest() : death.latestAfter(mostMonthsCarried);
    }

    const CheckedFamily& family_;
    std::vector<std::optional<DateRange>> births_;
    std::vector<std::optional<DateRange>> deaths_;
    SiblingDates siblings_;
    std::vector<FoundPerson> found_;
};

} // namespace

std::optional<std::vector<FoundPerson>> findings(const CheckedFamily& family, std::stop_token stop)
{
    Checks checks(family);
    for (PersonIndex person = 0; person < family.family.persons(); ++person) {
        if (person % personsBetweenStops == 0 && stop.stop_requested())
            return std::nullopt;
        checks.lookAt(person);
    }
    return checks.take();
}

} // namespace lineara::kinship
