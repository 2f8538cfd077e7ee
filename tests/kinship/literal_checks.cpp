#include "literal_checks.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>
#include <tuple>

namespace lineara::kinship::literal {

namespace {

using namespace std::chrono;
using Days = std::vector<sys_days>;

Days daysOf(const PartialDate& date)
{
    Days all;
    if (!date.year)
        return all;
    const year wanted{*date.year};
    for (sys_days day = wanted / January / 1; day < sys_days((wanted + years(1)) / January / 1); day += days(1)) {
        const year_month_day parts(day);
        const bool isMonth = !date.month || static_cast<int>(static_cast<unsigned>(parts.month())) == *date.month;
        const bool isDay = !date.day || static_cast<int>(static_cast<unsigned>(parts.day())) == *date.day;
        if (isMonth && (isDay || !date.month))
            all.push_back(day);
    }
    return all;
}

sys_days later(sys_days day, months by)
{
    const year_month_day wanted = year_month_day(day) + by;
    return wanted.ok() ? sys_days(wanted) : sys_days((wanted.year() / wanted.month() + months(1)) / 1);
}

using Rule = std::function<bool(sys_days, sys_days)>;

/// Whether a rule holds whichever days are meant. Of a date without days nothing is certain.
bool isCertain(const Days& one, const Days& other, const Rule& rule)
{
    if (one.empty() || other.empty())
        return false;
    return std::ranges::all_of(one, [&](sys_days first) {
        return std::ranges::all_of(other, [&](sys_days second) { return rule(first, second); });
    });
}

class Checker
{
public:
    explicit Checker(const CheckedFamily& family) : family_(family)
    {
        for (const LifeDates& dates : family.dates) {
            births_.push_back(daysOf(dates.birth));
            deaths_.push_back(daysOf(dates.death));
        }
    }

    std::vector<FoundPerson> all()
    {
        for (PersonIndex person = 0; person < family_.family.persons(); ++person) {
            own(person);
            for (const PersonIndex parent : family_.family.parents[person])
                ofParent(person, parent);
        }
        for (PersonIndex one = 0; one < family_.family.persons(); ++one)
            siblingsOf(one);
        return {found_.begin(), found_.end()};
    }

private:
    bool isFemale(PersonIndex person) const { return !family_.sexes.empty() && family_.sexes[person] == Sex::Female; }

    void own(PersonIndex person)
    {
        const Days& born = births_[person];
        const Days& died = deaths_[person];
        if (isCertain(born, died, [](sys_days birth, sys_days death) { return birth > death; }))
            found_.insert({person, Finding::BornAfterDeath});
        if (isCertain(born, died,
                      [](sys_days birth, sys_days death) { return death > later(birth, months(120 * 12)); }))
            found_.insert({person, Finding::TooOld});
    }

    void ofParent(PersonIndex person, PersonIndex parent)
    {
        const Days& born = births_[person];
        const Days& elder = births_[parent];
        if (isCertain(born, elder, [](sys_days child, sys_days birth) { return child < birth; }))
            found_.insert({person, Finding::BornBeforeParent, parent});
        else if (isCertain(born, elder,
                           [](sys_days child, sys_days birth) { return child < later(birth, months(144)); }))
            found_.insert({person, Finding::ParentTooYoung, parent});
        if (isCertain(born, elder, [](sys_days child, sys_days birth) { return child > later(birth, months(960)); }))
            found_.insert({person, Finding::ParentTooOld, parent});
        const months grace(isFemale(parent) ? 0 : 10);
        if (isCertain(born, deaths_[parent],
                      [grace](sys_days child, sys_days death) { return child > later(death, grace); }))
            found_.insert({person, Finding::BornAfterParentsDeath, parent});
    }

    /// Their mother is the same: a female parent of both, or whichever of the two parents they share.
    bool haveMotherInCommon(PersonIndex one, PersonIndex other, PersonIndex parent) const
    {
        const auto parents = family_.family.parents[one];
        const auto others = family_.family.parents[other];
        const std::set<PersonIndex> ofOne(parents.begin(), parents.end());
        const std::set<PersonIndex> ofOther(others.begin(), others.end());
        if (!ofOne.contains(parent) || !ofOther.contains(parent))
            return false;
        return isFemale(parent) || (ofOne.size() == 2 && ofOne == ofOther &&
                                    std::ranges::none_of(ofOne, [this](auto p) { return isFemale(p); }));
    }

    void siblingsOf(PersonIndex person)
    {
        for (const PersonIndex parent : family_.family.parents[person]) {
            std::set<std::tuple<sys_days, sys_days, PersonIndex>> tooNear;
            for (PersonIndex other = 0; other < family_.family.persons(); ++other) {
                if (other == person || !haveMotherInCommon(person, other, parent))
                    continue;
                const Days& earlier = births_[other];
                if (isCertain(births_[person], earlier, [](sys_days born, sys_days before) {
                        return born - before > days(2) && born < later(before, months(9));
                    }))
                    tooNear.insert({earlier.front(), earlier.back(), other});
            }
            if (!tooNear.empty())
                found_.insert({person, Finding::BornTooSoonAfterSibling, std::get<2>(*tooNear.rbegin())});
        }
    }

    const CheckedFamily& family_;
    std::vector<Days> births_;
    std::vector<Days> deaths_;
    std::set<FoundPerson> found_;
};

} // namespace

std::vector<FoundPerson> findings(const CheckedFamily& family)
{
    return Checker(family).all();
}

} // namespace lineara::kinship::literal
