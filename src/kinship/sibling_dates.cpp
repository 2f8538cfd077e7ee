#include "sibling_dates.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <tuple>

namespace lineara::kinship {

namespace {

constexpr PersonIndex unknownParent = std::numeric_limits<PersonIndex>::max();
/// Of a date without a month nothing follows that is certain to within nine months.
constexpr DayNumber longestMonth = 31;

PersonIndex otherParent(const engine::FamilyGraph& family, PersonIndex child, PersonIndex parent)
{
    for (const PersonIndex one : family.parents[child]) {
        if (one != parent)
            return one;
    }
    return unknownParent;
}

} // namespace

template<class Group>
void SiblingDates::sort(Group group)
{
    std::ranges::sort(children_, {}, [group](const Birth& birth) {
        return std::tuple(std::invoke(group, birth), birth.range.earliest(), birth.range.latest(), birth.child);
    });
}

void SiblingDates::lookAt(PersonIndex parent, std::vector<FoundPerson>& found)
{
    gather(parent);
    if (children_.size() < 2)
        return;
    if (isFemale(parent)) {
        sort([](const Birth&) { return unknownParent; });
        compare(children_, found);
        return;
    }
    sort(&Birth::otherParent);
    for (auto begin = children_.begin(); begin != children_.end();) {
        const PersonIndex other = begin->otherParent;
        const auto end =
            std::find_if(begin, children_.end(), [&](const Birth& birth) { return birth.otherParent != other; });
        // Of a couple the mother's children are all compared; where neither is known to be her, one of the two does it.
        if (other != unknownParent && !isFemale(other) && parent < other)
            compare({begin, end}, found);
        begin = end;
    }
}

bool SiblingDates::isFemale(PersonIndex person) const
{
    return sexOf(family_.sexes, person) == Sex::Female;
}

void SiblingDates::gather(PersonIndex parent)
{
    children_.clear();
    for (const PersonIndex child : family_.family.children[parent]) {
        const auto& birth = births_[child];
        if (birth && birth->latest() - birth->earliest() < longestMonth)
            children_.push_back({otherParent(family_.family, child, parent), *birth, child});
    }
}

void SiblingDates::compare(std::span<const Birth> siblings, std::vector<FoundPerson>& found) const
{
    for (std::size_t at = 1; at < siblings.size(); ++at) {
        const DateRange& birth = siblings[at].range;
        for (std::size_t before = at; before-- > 0;) {
            const DateRange& earlier = siblings[before].range;
            if (earlier.earliestAfter(monthsBetweenSiblings) <= birth.latest())
                break;
            if (earlier.latest() + daysBetweenTwins < birth.earliest()) {
                found.push_back({siblings[at].child, Finding::BornTooSoonAfterSibling, siblings[before].child});
                break;
            }
        }
    }
}

} // namespace lineara::kinship
