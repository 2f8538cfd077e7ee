#include "hearing.h"
#include "layout/row_solver.h"
#include "layout/tidy.h"
#include "selected_part.h"
#include "shared_gaps.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

/// Selected persons who stand shoulder to shoulder with their partners and stay so.
struct Group
{
    struct Member
    {
        PersonIndex person;
        std::int64_t step;     ///< from the left edge of the one before
        std::int64_t more = 0; ///< by which it would be longer if there were room
    };

    std::vector<Member> members;
    std::int64_t wish = 0;
    std::int64_t width = 0; ///< with what stays free behind the last
    std::int64_t place = 0;
    std::size_t gap = 0;
};

/// One row, in which the selected persons look for room between the others.
class SharedRow
{
public:
    SharedRow(const TidyTask& task, std::int64_t rightmost) : task_(task), rightmost_(rightmost) {}

    void addOther(PersonIndex person) { others_.push_back(person); }
    void addChosen(PersonIndex person, std::int64_t wish) { chosen_.emplace_back(wish, person); }

    /// Returns false if `heard` said not to go on.
    bool settle(std::vector<std::int32_t>& places, const Heard& heard)
    {
        if (chosen_.empty())
            return true;
        std::ranges::stable_sort(others_, {}, [&](PersonIndex other) { return places[other]; });
        formGroups();
        measureGaps(places);
        if (!makeRoom(places, heard))
            return false;
        widenGroups();
        placeGroups();
        for (const Group& group : groups_) {
            std::int64_t left = group.place;
            for (const Group::Member& member : group.members)
                places[member.person] = static_cast<std::int32_t>(left += member.step);
        }
        return true;
    }

private:
    std::int32_t widthOf(PersonIndex person) const
    {
        return task_.widths.empty() ? task_.pitch - rowGap : task_.widths[person];
    }
    /// From the left edge of a person to that of the next at the least.
    std::int64_t stepBehind(PersonIndex person) const { return std::int64_t{widthOf(person)} + rowGap; }

    /// Where somebody who has a group wishes to stand.
    struct Seat
    {
        std::size_t group;
        std::int64_t wish;
        bool stays;
        std::size_t stayed; ///< how many of those further left wish to stay
    };

    void formGroups()
    {
        std::ranges::sort(chosen_);
        std::map<PersonIndex, Seat> seats;
        std::size_t stayed = 0;
        for (const auto& [wish, person] : chosen_) {
            Seat seat{groups_.size(), wish, wish == task_.present[person], stayed};
            if (const Seat* const beside = seatBeside(person, seat, seats)) {
                seat.group = beside->group;
                join(groups_[seat.group], person, wish - beside->wish, beside->stays && seat.stays);
            } else {
                groups_.push_back({{{person, 0}}, wish, stepBehind(person), wish, 0});
            }
            seats.emplace(person, seat);
            stayed += seat.stays ? 1U : 0U;
        }
    }

    /// That of a partner who ends a group right beside somebody's seat, or nullptr. Families may wish for the same
    /// places, so others may wish to stand between, but not where all stay.
    const Seat* seatBeside(PersonIndex person, const Seat& seat, const std::map<PersonIndex, Seat>& seats) const
    {
        for (const PersonIndex partner : task_.family.partners[person]) {
            const auto found = seats.find(partner);
            if (found == seats.end())
                continue;
            const Seat& beside = found->second;
            const bool isLast = groups_[beside.group].members.back().person == partner;
            const bool isParted = beside.stays && seat.stays && isSomebodyBetween(beside, seat);
            if (isLast && seat.wish - beside.wish <= task_.pitch && !isParted)
                return &beside;
        }
        return nullptr;
    }

    /// Between two who stay, among all who do.
    bool isSomebodyBetween(const Seat& left, const Seat& right) const
    {
        const auto placeOf = [this](PersonIndex other) { return std::int64_t{task_.present[other]}; };
        const auto behindLeft = std::ranges::upper_bound(others_, left.wish, {}, placeOf);
        return left.stayed + 1 != right.stayed || (behindLeft != others_.end() && placeOf(*behindLeft) < right.wish);
    }

    /// Who moves may stand nearer to a partner than wished, where there is little room.
    void join(Group& group, PersonIndex person, std::int64_t distance, bool bothStay) const
    {
        const std::int64_t least = stepBehind(group.members.back().person);
        const std::int64_t wished = std::max(distance, least);
        const std::int64_t step = bothStay ? wished : least;
        group.members.push_back({person, step, wished - step});
        group.width += step - least + stepBehind(person);
    }

    void measureGaps(const std::vector<std::int32_t>& places)
    {
        gaps_.clear();
        std::int64_t first = std::numeric_limits<std::int32_t>::min();
        for (const PersonIndex other : others_) {
            gaps_.push_back({first, places[other]});
            first = places[other] + stepBehind(other);
        }
        gaps_.push_back({first, std::max(first, rightmost_) + task_.pitch});
        gaps_.front().first = std::min<std::int64_t>(task_.margin, gaps_.front().end - task_.pitch);
    }

    /// Gives every group the gap in which it stands best, and moves apart those who are not selected where that is too
    /// small: each with the groups behind it counts as one wide node, so they move by the least total.
    bool makeRoom(std::vector<std::int32_t>& places, const Heard& heard)
    {
        std::vector<GroupShare> groups;
        groups.reserve(groups_.size());
        for (const Group& group : groups_)
            groups.push_back({group.wish, group.width});
        const auto shared = shareOut(groups, gaps_, heard);
        if (!shared)
            return false;
        for (std::size_t group = 0; group < groups_.size(); ++group)
            groups_[group].gap = shared->gaps[group];
        if (shared->lack > 0)
            moveApart(places);
        return true;
    }

    void moveApart(std::vector<std::int32_t>& places)
    {
        std::vector<RowNode> nodes;
        nodes.reserve(others_.size());
        for (const PersonIndex other : others_)
            nodes.push_back({places[other], widthOf(other), true});
        for (const Group& group : groups_)
            if (group.gap > 0)
                nodes[group.gap - 1].width += static_cast<std::int32_t>(group.width);
        const std::vector<std::int64_t> solved = solveRow(nodes);
        for (std::size_t other = 0; other < others_.size(); ++other)
            places[others_[other]] = static_cast<std::int32_t>(solved[other]);
        measureGaps(places);
    }

    /// Gives the groups what their gaps have left over.
    void widenGroups()
    {
        std::vector<std::int64_t> free;
        free.reserve(gaps_.size());
        for (const Gap& gap : gaps_)
            free.push_back(gap.room());
        free.back() = std::numeric_limits<std::int64_t>::max();
        for (const Group& group : groups_)
            free[group.gap] -= group.width;
        for (Group& group : groups_) {
            for (Group::Member& member : group.members) {
                const std::int64_t more = std::min(member.more, std::max<std::int64_t>(free[group.gap], 0));
                member.step += more;
                group.width += more;
                free[group.gap] -= more;
            }
        }
    }

    void placeGroups()
    {
        std::int64_t free = std::numeric_limits<std::int64_t>::min();
        for (Group& group : groups_) {
            group.place = std::max({group.wish, free, gaps_[group.gap].first});
            free = group.place + group.width;
        }
        std::int64_t next = std::numeric_limits<std::int64_t>::max();
        for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
            const bool isLast = group->gap + 1 == gaps_.size();
            const std::int64_t end = isLast ? next : std::min(next, gaps_[group->gap].end);
            group->place = std::min(group->place, end - group->width);
            next = group->place;
        }
    }

    const TidyTask& task_;
    std::int64_t rightmost_;
    std::vector<PersonIndex> others_;
    std::vector<std::pair<std::int64_t, PersonIndex>> chosen_;
    std::vector<Group> groups_;
    std::vector<Gap> gaps_;
};

/// Everybody's place when the selected stand as near to their wishes as the others let them; nothing if `heard` said
/// not to go on.
std::optional<std::vector<std::int32_t>> placesFor(const TidyTask& task, std::span<const PersonIndex> selected,
                                                   const std::vector<std::int64_t>& wishes, const Heard& heard)
{
    std::vector<std::int32_t> places(task.present.begin(), task.present.end());
    std::vector<bool> isSelected(task.family.persons(), false);
    std::map<Generation, SharedRow> rows;
    const std::int64_t rightmost = *std::ranges::max_element(places);
    const auto rowOf = [&](PersonIndex person) -> SharedRow& {
        return rows.try_emplace(std::max(task.generations[person], 0), task, rightmost).first->second;
    };
    for (std::size_t index = 0; index < selected.size(); ++index) {
        isSelected[selected[index]] = true;
        rowOf(selected[index]).addChosen(selected[index], wishes[index]);
    }
    for (PersonIndex person = 0; person < task.family.persons(); ++person)
        if (!isSelected[person])
            rowOf(person).addOther(person);
    Hearing hearing(heard);
    for (auto& [generation, row] : rows) {
        hearing.nextPart(1 / static_cast<double>(rows.size()));
        if (!row.settle(places, hearing.ofPart()))
            return std::nullopt;
    }
    return places;
}

} // namespace

std::optional<std::vector<std::int32_t>> tidySelection(const TidyTask& task, std::span<const PersonIndex> selected,
                                                       const TidyProgress& progress)
{
    if (selected.empty())
        return std::vector<std::int32_t>(task.present.begin(), task.present.end());
    constexpr double partOfWishes = 0.5;
    constexpr double partOfPlaces = 0.375;
    Hearing hearing(progress);
    hearing.nextPart(partOfWishes);
    SelectedPart part(task, selected);
    if (!part.tidyUp(hearing.ofPart()))
        return std::nullopt;
    hearing.nextPart(partOfPlaces);
    auto places = placesFor(task, selected, part.wishes(), hearing.ofPart());
    // How often wishes are given up is not known beforehand.
    double rest = 1 - partOfWishes - partOfPlaces;
    while (places && part.giveUpInVain(*places)) {
        rest /= 2;
        hearing.nextPart(rest);
        places = placesFor(task, selected, part.wishes(), hearing.ofPart());
    }
    hearing.nextPart(rest);
    return hearing.goesOn(1) ? places : std::nullopt;
}

} // namespace lineara::layout
