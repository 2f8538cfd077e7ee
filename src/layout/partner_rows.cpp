#include "partner_rows.h"

#include <algorithm>
#include <ranges>

namespace lineara::layout {

using engine::PersonIndex;

PartnerRows::PartnerRows(const engine::FamilyGraph& family, const std::vector<engine::Generation>& rows)
    : family_(family), rows_(rows), metThrough_(family.persons(), nobody),
      shoulders_(family.persons(), {nobody, nobody}), linedUp_(family.persons(), false)
{}

const std::vector<PersonIndex>& PartnerRows::groupOf(PersonIndex person)
{
    collect(person);
    if (group_.size() > 2) {
        const PersonIndex centre = mostMarried();
        for (const PersonIndex member : group_)
            metThrough_[member] = nobody;
        collect(centre);
        joinShoulders();
        lineUp();
    }
    return group_;
}

void PartnerRows::collect(PersonIndex first)
{
    group_.assign(1, first);
    metThrough_[first] = first;
    for (std::size_t next = 0; next < group_.size(); ++next) {
        const PersonIndex person = group_[next];
        for (const PersonIndex partner : family_.partners[person]) {
            if (rows_[partner] != rows_[person] || metThrough_[partner] != nobody)
                continue;
            metThrough_[partner] = person;
            group_.push_back(partner);
        }
    }
}

PersonIndex PartnerRows::mostMarried() const
{
    return *std::ranges::max_element(group_, {}, [&](PersonIndex person) { return family_.partners[person].size(); });
}

// The partner links through which the group was collected form a tree. Joining from its leaves inwards, two at each
// person, leaves the fewest partners apart; a person's own partners come before the one it was met through.
void PartnerRows::joinShoulders()
{
    for (const PersonIndex person : group_ | std::views::reverse) {
        joinPartnersOf(person, true);
        joinPartnersOf(person, false);
    }
}

void PartnerRows::joinPartnersOf(PersonIndex person, bool withChildren)
{
    for (const PersonIndex partner : family_.partners[person]) {
        if (shoulders_[person][1] != nobody)
            return;
        const bool metHere = rows_[partner] == rows_[person] && metThrough_[partner] == person && partner != person;
        if (metHere && family_.children[partner].empty() != withChildren)
            join(person, partner);
    }
}

bool PartnerRows::join(PersonIndex person, PersonIndex other)
{
    auto& own = shoulders_[person];
    auto& others = shoulders_[other];
    if (own[1] != nobody || others[1] != nobody || own[0] == other)
        return false;
    own[own[0] == nobody ? 0 : 1] = other;
    others[others[0] == nobody ? 0 : 1] = person;
    return true;
}

// The chain with the most married person stands in the middle, the others to its right and left in turn.
void PartnerRows::lineUp()
{
    std::vector<PersonIndex> left;
    std::vector<PersonIndex> right;
    bool toTheRight = true;
    for (const PersonIndex person : group_) {
        if (linedUp_[person])
            continue;
        const std::vector<PersonIndex> chain = chainOf(person);
        auto& side = toTheRight ? right : left;
        side.insert(side.end(), chain.begin(), chain.end());
        toTheRight = !toTheRight;
    }
    group_.assign(left.rbegin(), left.rend());
    group_.insert(group_.end(), right.begin(), right.end());
}

std::vector<PersonIndex> PartnerRows::chainOf(PersonIndex person)
{
    const auto walk = [&](PersonIndex from, PersonIndex to, std::vector<PersonIndex>& chain) {
        while (to != nobody) {
            chain.push_back(to);
            linedUp_[to] = true;
            const PersonIndex next = shoulders_[to][0] == from ? shoulders_[to][1] : shoulders_[to][0];
            from = to;
            to = next;
        }
    };
    std::vector<PersonIndex> chain;
    walk(person, shoulders_[person][1], chain);
    std::ranges::reverse(chain);
    chain.push_back(person);
    linedUp_[person] = true;
    walk(person, shoulders_[person][0], chain);
    return chain;
}

} // namespace lineara::layout
