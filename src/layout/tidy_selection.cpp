#include "layout/row_solver.h"
#include "layout/tidy.h"
#include "shared_gaps.h"

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

constexpr PersonIndex notChosen = ~PersonIndex{0};

/// The family of the selected persons alone.
struct PartOfFamily
{
    engine::FamilyGraph family;
    std::vector<Generation> generations;
    std::vector<std::int32_t> birthYears;
};

engine::Adjacency linksAmong(const engine::Adjacency& links, std::span<const PersonIndex> chosen,
                             const std::vector<PersonIndex>& indexOf)
{
    engine::Adjacency among;
    for (const PersonIndex person : chosen) {
        for (const PersonIndex other : links[person])
            if (indexOf[other] != notChosen)
                among.add(indexOf[other]);
        among.endPerson();
    }
    return among;
}

PartOfFamily partOf(const TidyTask& task, std::span<const PersonIndex> chosen)
{
    std::vector<PersonIndex> indexOf(task.family.persons(), notChosen);
    PartOfFamily part;
    for (const PersonIndex person : chosen) {
        indexOf[person] = static_cast<PersonIndex>(part.generations.size());
        part.family.numbers.push_back(task.family.numbers[person]);
        part.generations.push_back(task.generations[person]);
        if (!task.birthYears.empty())
            part.birthYears.push_back(task.birthYears[person]);
    }
    part.family.members = part.family.persons();
    part.family.parents = linksAmong(task.family.parents, chosen, indexOf);
    part.family.children = linksAmong(task.family.children, chosen, indexOf);
    part.family.partners = linksAmong(task.family.partners, chosen, indexOf);
    return part;
}

/// Selected persons who stand shoulder to shoulder with their partners and stay so.
struct Group
{
    std::vector<PersonIndex> persons;
    std::int64_t wish = 0;
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

    void settle(std::vector<std::int32_t>& places)
    {
        if (chosen_.empty())
            return;
        std::ranges::stable_sort(others_, {}, [&](PersonIndex other) { return places[other]; });
        formGroups();
        measureGaps(places);
        makeRoom(places);
        placeGroups();
        for (const Group& group : groups_)
            for (std::size_t index = 0; index < group.persons.size(); ++index)
                places[group.persons[index]] = static_cast<std::int32_t>(group.place + offset(index));
    }

private:
    std::int64_t offset(std::size_t persons) const { return static_cast<std::int64_t>(persons) * task_.pitch; }

    void formGroups()
    {
        std::ranges::sort(chosen_);
        for (const auto& [wish, person] : chosen_) {
            const bool joins = !groups_.empty() &&
                               wish - groups_.back().wish == offset(groups_.back().persons.size()) &&
                               std::ranges::count(task_.family.partners[person], groups_.back().persons.back()) > 0;
            if (!joins)
                groups_.push_back({{}, wish, wish, 0});
            groups_.back().persons.push_back(person);
        }
    }

    void measureGaps(const std::vector<std::int32_t>& places)
    {
        gaps_.clear();
        std::int64_t first = std::numeric_limits<std::int32_t>::min();
        for (const PersonIndex other : others_) {
            gaps_.push_back({first, std::int64_t{places[other]} - task_.pitch});
            first = std::int64_t{places[other]} + task_.pitch;
        }
        gaps_.push_back({first, std::max(first, rightmost_)});
        gaps_.front().first = std::min<std::int64_t>(task_.margin, gaps_.front().last);
    }

    /// Gives every group the gap in which it stands best, and moves apart those who are not selected where that is too
    /// small: each with the groups behind it counts as one wide node, so they move by the least total.
    void makeRoom(std::vector<std::int32_t>& places)
    {
        std::vector<GroupShare> groups;
        groups.reserve(groups_.size());
        for (const Group& group : groups_)
            groups.push_back({group.wish, offset(group.persons.size())});
        const SharedOut shared = shareOut(groups, gaps_, task_.pitch);
        for (std::size_t group = 0; group < groups_.size(); ++group)
            groups_[group].gap = shared.gaps[group];
        if (shared.lack == 0)
            return;
        std::vector<RowNode> nodes;
        nodes.reserve(others_.size());
        for (const PersonIndex other : others_)
            nodes.push_back({places[other], task_.pitch - rowGap, true});
        for (const Group& group : groups_)
            if (group.gap > 0)
                nodes[group.gap - 1].width += static_cast<std::int32_t>(offset(group.persons.size()));
        const std::vector<std::int64_t> solved = solveRow(nodes);
        for (std::size_t other = 0; other < others_.size(); ++other)
            places[others_[other]] = static_cast<std::int32_t>(solved[other]);
        measureGaps(places);
    }

    void placeGroups()
    {
        std::int64_t free = std::numeric_limits<std::int64_t>::min();
        for (Group& group : groups_) {
            group.place = std::max({group.wish, free, gaps_[group.gap].first});
            free = group.place + offset(group.persons.size());
        }
        std::int64_t next = std::numeric_limits<std::int64_t>::max();
        for (auto group = groups_.rbegin(); group != groups_.rend(); ++group) {
            const std::int64_t width = offset(group->persons.size());
            const bool isLast = group->gap + 1 == gaps_.size();
            const std::int64_t end = isLast ? next : std::min(next, gaps_[group->gap].last + task_.pitch);
            group->place = std::min(group->place, end - width);
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

/// How far the selected persons' new places are to be shifted so that they move as little as may be in total.
std::int64_t shiftOf(const TidyTask& task, std::span<const PersonIndex> chosen, const std::vector<std::int32_t>& tidied)
{
    std::vector<std::int64_t> shifts;
    for (std::size_t index = 0; index < chosen.size(); ++index)
        shifts.push_back(std::int64_t{task.present[chosen[index]]} - tidied[index]);
    const auto middle = shifts.begin() + static_cast<std::ptrdiff_t>(shifts.size() / 2);
    std::ranges::nth_element(shifts, middle);
    return *middle;
}

} // namespace

std::optional<std::vector<std::int32_t>> tidySelection(const TidyTask& task, std::span<const PersonIndex> selected,
                                                       const TidyProgress& progress)
{
    std::vector<std::int32_t> places(task.present.begin(), task.present.end());
    if (selected.empty())
        return places;
    const PartOfFamily part = partOf(task, selected);
    TidyTask partTask{part.family, part.generations};
    partTask.birthYears = part.birthYears;
    partTask.pitch = task.pitch;
    const auto tidied = tidy(partTask, progress);
    if (!tidied)
        return std::nullopt;
    const std::int64_t shift = shiftOf(task, selected, *tidied);
    std::vector<bool> isSelected(task.family.persons(), false);
    std::map<Generation, SharedRow> rows;
    const std::int64_t rightmost = *std::ranges::max_element(places);
    const auto rowOf = [&](PersonIndex person) -> SharedRow& {
        return rows.try_emplace(std::max(task.generations[person], 0), task, rightmost).first->second;
    };
    for (std::size_t index = 0; index < selected.size(); ++index) {
        isSelected[selected[index]] = true;
        rowOf(selected[index]).addChosen(selected[index], (*tidied)[index] + shift);
    }
    for (PersonIndex person = 0; person < task.family.persons(); ++person)
        if (!isSelected[person])
            rowOf(person).addOther(person);
    for (auto& [generation, row] : rows)
        row.settle(places);
    return places;
}

} // namespace lineara::layout
