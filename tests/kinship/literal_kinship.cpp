#include "literal_kinship.h"

#include <algorithm>
#include <tuple>

namespace lineara::kinship::literal {

namespace {

std::set<PersonIndex> setOf(std::span<const PersonIndex> persons)
{
    return {persons.begin(), persons.end()};
}

auto closeness(const Line& line)
{
    const bool isCommon = line.up > 0 && line.down > 0;
    const std::uint32_t difference = std::max(line.up, line.down) - std::min(line.up, line.down);
    return std::tuple(line.up + line.down, isCommon, line.shared, difference, line.up, line.ancestors);
}

void add(std::vector<Line>& lines, const Line& line)
{
    const auto isSame = [&](const Line& other) { return other.ancestors == line.ancestors; };
    if (std::ranges::none_of(lines, isSame))
        lines.push_back(line);
}

void sortByCloseness(std::vector<Line>& lines)
{
    std::ranges::sort(lines, {}, [](const Line& line) { return closeness(line); });
}

/// Lines that meet at one ancestor beneath two different children.
void addLinesThrough(PersonIndex ancestor, const engine::FamilyGraph& family, const std::vector<int>& above,
                     const std::vector<int>& aboveSecond, std::vector<Line>& lines)
{
    const auto up = static_cast<std::uint32_t>(above[ancestor]);
    const auto down = static_cast<std::uint32_t>(aboveSecond[ancestor]);
    bool isMeeting = false;
    bool isUnsure = false;
    bool isOfCouple = false;
    for (const PersonIndex one : family.children[ancestor]) {
        for (const PersonIndex other : family.children[ancestor]) {
            if (one == other || above[one] != above[ancestor] - 1 || aboveSecond[other] != aboveSecond[ancestor] - 1)
                continue;
            isMeeting = true;
            const auto parents = setOf(family.parents[one]);
            isUnsure = isUnsure || parents.size() < 2 || family.parents[other].size() < 2;
            const bool areLevel = std::ranges::all_of(parents, [&](PersonIndex parent) {
                return above[parent] == above[ancestor] && aboveSecond[parent] == aboveSecond[ancestor];
            });
            if (parents.size() == 2 && parents == setOf(family.parents[other]) && areLevel) {
                isOfCouple = true;
                add(lines, {up, down, Shared::BothParents, parents});
            }
        }
    }
    if (isMeeting && !isOfCouple)
        add(lines, {up, down, isUnsure ? Shared::Unknown : Shared::OneParent, {ancestor}});
}

std::vector<Line> closestOfPartners(const engine::FamilyGraph& family, PersonIndex married, PersonIndex other,
                                    bool isFirst)
{
    std::vector<Line> closest;
    for (const PersonIndex partner : family.partners[married]) {
        const auto lines = isFirst ? bloodLines(family, partner, other) : bloodLines(family, other, partner);
        if (!lines.empty())
            closest.push_back(lines.front());
    }
    sortByCloseness(closest);
    return closest;
}

std::set<PersonIndex> reached(const engine::Adjacency& links, PersonIndex person)
{
    std::set<PersonIndex> all = setOf(links[person]);
    for (std::size_t before = 0; before != all.size();) {
        before = all.size();
        for (const PersonIndex one : std::set(all))
            all.merge(setOf(links[one]));
    }
    return all;
}

} // namespace

std::vector<int> heightsAbove(const engine::FamilyGraph& family, PersonIndex person)
{
    std::vector<int> heights(family.persons(), -1);
    heights[person] = 0;
    for (bool changed = true; changed;) {
        changed = false;
        for (PersonIndex child = 0; child < family.persons(); ++child) {
            for (const PersonIndex parent : family.parents[child]) {
                if (heights[child] < 0 || (heights[parent] >= 0 && heights[parent] <= heights[child] + 1))
                    continue;
                heights[parent] = heights[child] + 1;
                changed = true;
            }
        }
    }
    return heights;
}

std::vector<Line> bloodLines(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second)
{
    const auto above = heightsAbove(family, first);
    const auto aboveSecond = heightsAbove(family, second);
    std::vector<Line> lines;
    for (PersonIndex ancestor = 0; ancestor < family.persons(); ++ancestor) {
        const int up = above[ancestor];
        const int down = aboveSecond[ancestor];
        if (up < 0 || down < 0)
            continue;
        if (up == 0 || down == 0)
            add(lines,
                {static_cast<std::uint32_t>(up), static_cast<std::uint32_t>(down), Shared::BothParents, {ancestor}});
        else
            addLinesThrough(ancestor, family, above, aboveSecond, lines);
    }
    sortByCloseness(lines);
    return lines;
}

Marriages marriages(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second)
{
    Marriages all;
    for (const PersonIndex one : family.parents[first]) {
        for (const PersonIndex other : family.parents[second])
            all.areStepSiblings = all.areStepSiblings || setOf(family.partners[one]).contains(other);
    }
    all.ofFirst = closestOfPartners(family, first, second, true);
    all.ofSecond = closestOfPartners(family, second, first, false);
    return all;
}

int linksBetween(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second)
{
    std::set<PersonIndex> around{first};
    for (int links = 0;; ++links) {
        if (around.contains(second))
            return links;
        std::set<PersonIndex> wider = around;
        for (const PersonIndex person : around) {
            wider.merge(setOf(family.parents[person]));
            wider.merge(setOf(family.children[person]));
            wider.merge(setOf(family.partners[person]));
        }
        if (wider.size() == around.size())
            return -1;
        around = wider;
    }
}

std::set<PersonIndex> ancestorsOf(const engine::FamilyGraph& family, PersonIndex person)
{
    return reached(family.parents, person);
}

std::set<PersonIndex> descendantsOf(const engine::FamilyGraph& family, PersonIndex person)
{
    return reached(family.children, person);
}

std::set<PersonIndex> withPartners(const engine::FamilyGraph& family, const std::set<PersonIndex>& persons)
{
    std::set<PersonIndex> all = persons;
    for (const PersonIndex person : persons) {
        all.merge(setOf(family.partners[person]));
        for (const PersonIndex child : family.children[person])
            all.merge(setOf(family.parents[child]));
    }
    return all;
}

} // namespace lineara::kinship::literal
