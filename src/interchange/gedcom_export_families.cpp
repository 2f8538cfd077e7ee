#include "gedcom_export_families.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace lineara {
namespace {

void sortPairs(std::vector<PersonPair>& pairs)
{
    std::ranges::sort(pairs);
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
}

std::vector<PersonPair> without(const std::vector<PersonPair>& pairs, const std::vector<PersonPair>& others)
{
    std::vector<PersonPair> rest;
    std::ranges::set_difference(pairs, others, std::back_inserter(rest));
    return rest;
}

bool holds(const std::vector<PersonPair>& sorted, ExportPerson first, ExportPerson second)
{
    return std::ranges::binary_search(sorted, PersonPair{first, second});
}

PersonPair couple(ExportPerson a, ExportPerson b)
{
    return std::minmax(a, b);
}

bool contains(std::span<const ExportPerson> persons, ExportPerson person)
{
    return std::ranges::find(persons, person) != persons.end();
}

} // namespace

void ExportLinks::sort()
{
    sortPairs(partners);
    sortPairs(offspring);
}

ExportGraph::ExportGraph(const FamilyContent& family)
{
    const auto& persons = family.persons();
    places_.reserve(persons.size());
    for (std::size_t at = 0; at < persons.size(); ++at)
        places_.emplace(persons[at].id, static_cast<ExportPerson>(at));
    for (std::size_t at = 0; at < persons.size(); ++at) {
        const auto links = family.linksOf(at);
        parents_.push_back(placesOf(links.parents));
        children_.push_back(placesOf(links.children));
        partners_.push_back(placesOf(links.partners));
    }
}

std::vector<ExportPerson> ExportGraph::placesOf(std::span<const RecordId> ids) const
{
    std::vector<ExportPerson> found;
    found.reserve(ids.size());
    for (const RecordId id : ids) {
        if (const auto place = of(id))
            found.push_back(*place);
    }
    return found;
}

std::optional<ExportPerson> ExportGraph::of(RecordId id) const
{
    const auto found = places_.find(id);
    return found == places_.end() ? std::nullopt : std::optional(found->second);
}

ExportLinks ExportGraph::links() const
{
    ExportLinks links;
    for (ExportPerson person = 0; person < size(); ++person) {
        for (const ExportPerson partner : partners_[person])
            links.partners.push_back(couple(person, partner));
        for (const ExportPerson child : children_[person])
            links.offspring.emplace_back(person, child);
    }
    links.sort();
    return links;
}

FamilyPlan::FamilyPlan(const ExportGraph& graph, std::vector<FamilySheet> kept)
    : graph_(graph), families_(std::move(kept))
{}

void FamilyPlan::follow(const ExportLinks& before)
{
    const ExportLinks now = graph_.links();
    strikeGone(before, now);
    const bool anyoneRemoved = std::ranges::any_of(families_, [](const auto& sheet) { return sheet.missed > 0; });
    if (before != now || anyoneRemoved)
        strikeRefused(before, now);
    const ExportLinks said = this->said();
    const auto partners = without(now.partners, said.partners);
    const auto offspring = without(now.offspring, said.offspring);
    if (!partners.empty() || !offspring.empty()) {
        index();
        addCouples(partners);
        addChildren(offspring);
        strikeUnsure();
    }
    dropEmpty();
}

void FamilyPlan::strikeGone(const ExportLinks& before, const ExportLinks& now)
{
    const auto partners = without(before.partners, now.partners);
    const auto offspring = without(before.offspring, now.offspring);
    if (partners.empty() && offspring.empty())
        return;
    for (std::size_t family = 0; family < families_.size(); ++family) {
        strikeChildren(family, offspring);
        strikeSpouses(family, partners);
    }
}

/// The import refuses what breaks the rules of families (a third parent, a cycle). Such a line stays as long as it is
/// sure to be refused again: because the child has the same two parents as before.
void FamilyPlan::strikeRefused(const ExportLinks& before, const ExportLinks& now)
{
    const auto refused = without(without(said().offspring, before.offspring), now.offspring);
    if (refused.empty())
        return;
    std::unordered_map<ExportPerson, std::vector<ExportPerson>> parentsBefore;
    for (const auto& [parent, child] : refused)
        parentsBefore.try_emplace(child);
    for (const auto& [parent, child] : before.offspring) {
        if (const auto found = parentsBefore.find(child); found != parentsBefore.end())
            found->second.push_back(parent);
    }
    std::vector<PersonPair> unsure;
    for (const auto& pair : refused) {
        const auto& parents = parentsBefore[pair.second];
        const bool isSure = parents.size() == 2 && std::ranges::is_permutation(parents, graph_.parents(pair.second));
        (isSure ? refused_ : unsure).push_back(pair);
    }
    for (std::size_t family = 0; family < families_.size() && !unsure.empty(); ++family)
        strikeRefusedChildren(family, unsure);
}

/// A family that a child gets now may count behind one that was refused.
void FamilyPlan::strikeUnsure()
{
    std::erase_if(refused_, [this](const PersonPair& pair) {
        return std::ranges::none_of(asChild_[pair.second], [&](std::size_t family) {
            const auto& children = families_[family].children;
            const auto child = std::ranges::find(children, pair.second, &FamilySheet::Member::person);
            return child != children.end() && !child->line;
        });
    });
    for (std::size_t family = 0; family < families_.size() && !refused_.empty(); ++family)
        strikeRefusedChildren(family, refused_);
}

/// What the child itself says about a family none of whose parents it has makes no link, and stays.
void FamilyPlan::strikeRefusedChildren(std::size_t family, const std::vector<PersonPair>& refused)
{
    auto& sheet = families_[family];
    const auto isForeign = [&](const FamilySheet::Member& child) {
        const auto isRefused = [&](const auto& spouse) { return holds(refused, spouse.person, child.person); };
        const auto isParent = [&](const auto& spouse) { return contains(graph_.parents(child.person), spouse.person); };
        return child.line && std::ranges::any_of(sheet.spouses, isRefused) &&
               std::ranges::none_of(sheet.spouses, isParent);
    };
    for (const auto& child : sheet.children) {
        if (isForeign(child))
            sheet.struckLines.push_back(*child.line);
    }
    std::erase_if(sheet.children, isForeign);
    strikeChildren(family, refused);
}

void FamilyPlan::strikeChildren(std::size_t family, const std::vector<PersonPair>& gone)
{
    for (std::size_t at = families_[family].children.size(); at > 0; --at) {
        const auto& sheet = families_[family];
        const ExportPerson child = sheet.children[at - 1].person;
        if (std::ranges::any_of(sheet.spouses, [&](const auto& parent) { return holds(gone, parent.person, child); }))
            strike(family, false, at - 1);
    }
}

/// Of two who are no partners any more the later one leaves the record.
void FamilyPlan::strikeSpouses(std::size_t family, const std::vector<PersonPair>& gone)
{
    for (std::size_t at = families_[family].spouses.size(); at > 1; --at) {
        const auto& spouses = families_[family].spouses;
        const auto isGone = [&](const auto& other) {
            const auto pair = couple(other.person, spouses[at - 1].person);
            return holds(gone, pair.first, pair.second);
        };
        if (std::any_of(spouses.begin(), spouses.begin() + static_cast<std::ptrdiff_t>(at - 1), isGone))
            strike(family, true, at - 1);
    }
}

void FamilyPlan::strike(std::size_t family, bool isSpouse, std::size_t member)
{
    auto& sheet = families_[family];
    auto& members = isSpouse ? sheet.spouses : sheet.children;
    const auto gone = members.begin() + static_cast<std::ptrdiff_t>(member);
    if (gone->line)
        sheet.struckLines.push_back(*gone->line);
    claims_.push_back({gone->person, family, isSpouse, false});
    sheet.isChanged = true;
    members.erase(gone);
}

void FamilyPlan::index()
{
    asSpouse_.resize(graph_.size());
    asChild_.resize(graph_.size());
    for (std::size_t family = 0; family < families_.size(); ++family) {
        for (const auto& spouse : families_[family].spouses)
            asSpouse_[spouse.person].push_back(family);
        for (const auto& child : families_[family].children)
            asChild_[child.person].push_back(family);
    }
}

/// What the import makes of the family records as they are now.
ExportLinks FamilyPlan::said() const
{
    ExportLinks links;
    for (const auto& sheet : families_) {
        for (std::size_t at = 0; at < sheet.spouses.size(); ++at) {
            const ExportPerson spouse = sheet.spouses[at].person;
            for (std::size_t other = 0; other < at; ++other)
                links.partners.push_back(couple(sheet.spouses[other].person, spouse));
            for (const auto& child : sheet.children)
                links.offspring.emplace_back(spouse, child.person);
        }
    }
    links.sort();
    return links;
}

void FamilyPlan::addCouples(const std::vector<PersonPair>& unsaid)
{
    for (ExportPerson person = 0; person < graph_.size(); ++person) {
        for (const ExportPerson partner : graph_.partners(person)) {
            // Met again from the other side.
            if (partner < person || !holds(unsaid, person, partner))
                continue;
            if (const auto family = growing(person, partner))
                addMember(*family, partner, true);
            else if (const auto other = growing(partner, person))
                addMember(*other, person, true);
            else
                addFamily(std::array{person, partner});
        }
    }
}

/// A family of one person that the partner can join: if it has children, they are those of both.
std::optional<std::size_t> FamilyPlan::growing(ExportPerson alone, ExportPerson partner) const
{
    for (const std::size_t family : asSpouse_[alone]) {
        const auto& sheet = families_[family];
        const auto isOfBoth = [&](const FamilySheet::Member& child) {
            const auto& parents = graph_.parents(child.person);
            return contains(parents, alone) && contains(parents, partner);
        };
        if (sheet.canGrow && sheet.spouses.size() == 1 && std::ranges::all_of(sheet.children, isOfBoth))
            return family;
    }
    return std::nullopt;
}

void FamilyPlan::addChildren(const std::vector<PersonPair>& unsaid)
{
    for (ExportPerson parent = 0; parent < graph_.size(); ++parent) {
        for (const ExportPerson child : graph_.children(parent)) {
            // A line of the same couple may have said it by now.
            if (holds(unsaid, parent, child) && !isSaid(parent, child))
                addChild(parent, child);
        }
    }
}

bool FamilyPlan::isSaid(ExportPerson parent, ExportPerson child) const
{
    return std::ranges::any_of(asChild_[child], [&](std::size_t family) {
        return std::ranges::find(families_[family].spouses, parent, &FamilySheet::Member::person) !=
               families_[family].spouses.end();
    });
}

void FamilyPlan::addChild(ExportPerson parent, ExportPerson child)
{
    std::vector<ExportPerson> couple{parent};
    for (const ExportPerson other : graph_.parents(child)) {
        if (other != parent && arePartners(parent, other))
            couple.push_back(other);
    }
    const auto family = familyOf(couple);
    addMember(family ? *family : addFamily(couple), child, false);
    if (couple.size() > 1)
        leaveHalfFamilies(child, couple);
}

/// Who has moved to the family of both parents leaves that of one of them.
void FamilyPlan::leaveHalfFamilies(ExportPerson child, std::span<const ExportPerson> parents)
{
    const auto families = asChild_[child];
    for (const std::size_t family : families) {
        const auto& sheet = families_[family];
        if (sheet.spouses.size() != 1 || !contains(parents, sheet.spouses.front().person))
            continue;
        const auto member = std::ranges::find(sheet.children, child, &FamilySheet::Member::person);
        strike(family, false, static_cast<std::size_t>(member - sheet.children.begin()));
        std::erase(asChild_[child], family);
    }
}

std::optional<std::size_t> FamilyPlan::familyOf(std::span<const ExportPerson> spouses) const
{
    for (const std::size_t family : asSpouse_[spouses.front()]) {
        const auto& sheet = families_[family];
        const auto isWanted = [&](const FamilySheet::Member& spouse) { return contains(spouses, spouse.person); };
        if (sheet.canGrow && sheet.spouses.size() == spouses.size() && std::ranges::all_of(sheet.spouses, isWanted))
            return family;
    }
    return std::nullopt;
}

std::size_t FamilyPlan::addFamily(std::span<const ExportPerson> spouses)
{
    const std::size_t family = families_.size();
    families_.emplace_back();
    for (const ExportPerson spouse : spouses)
        addMember(family, spouse, true);
    return family;
}

void FamilyPlan::addMember(std::size_t family, ExportPerson person, bool isSpouse)
{
    auto& sheet = families_[family];
    (isSpouse ? sheet.spouses : sheet.children).push_back({person, std::nullopt});
    (isSpouse ? asSpouse_ : asChild_)[person].push_back(family);
    claims_.push_back({person, family, isSpouse, true});
    sheet.isChanged = true;
}

/// A kept family that has lost its members goes, unless it says more about the one that is left.
void FamilyPlan::dropEmpty()
{
    for (std::size_t family = 0; family < families_.size(); ++family) {
        auto& sheet = families_[family];
        const std::size_t members = sheet.spouses.size() + sheet.children.size() + sheet.strangers;
        const bool isChanged = sheet.isChanged || sheet.missed > 0;
        if (!isChanged || !sheet.record || members > 1 || (members == 1 && sheet.saysMore))
            continue;
        sheet.isDropped = true;
        for (const auto& spouse : sheet.spouses)
            claims_.push_back({spouse.person, family, true, false});
        for (const auto& child : sheet.children)
            claims_.push_back({child.person, family, false, false});
    }
}

bool FamilyPlan::arePartners(ExportPerson a, ExportPerson b) const
{
    return contains(graph_.partners(a), b);
}

} // namespace lineara
