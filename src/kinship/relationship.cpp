#include "kinship/relationship.h"

#include "ascent.h"
#include "blood_lines.h"
#include "shortest_path.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lineara::kinship {

namespace {

bool contains(std::span<const PersonIndex> persons, PersonIndex person)
{
    return std::ranges::find(persons, person) != persons.end();
}

/// A relationship by marriage and the persons along it.
struct InLawPath
{
    InLaw inLaw;
    std::vector<PersonIndex> path;
};

class InLawSearch
{
public:
    InLawSearch(const engine::FamilyGraph& family, const Ascent& first, const Ascent& second)
        : family_(family), first_(first), second_(second)
    {}

    /// The one with the fewest links; of equal ones the one that `Marriage` names first.
    std::optional<InLawPath> run(PersonIndex first, PersonIndex second)
    {
        betweenParents(first, second);
        ofFirst(first);
        ofSecond(second);
        return std::move(shortest_);
    }

private:
    void betweenParents(PersonIndex first, PersonIndex second)
    {
        const auto parents = family_.parents[first];
        for (const PersonIndex parent : parents) {
            for (const PersonIndex stepparent : family_.parents[second]) {
                if (parent != stepparent && contains(family_.partners[parent], stepparent))
                    offer({Marriage::BetweenParents, {1, 1, Shared::Unknown, {}}}, {first, parent, stepparent, second});
            }
        }
    }

    void ofFirst(PersonIndex first)
    {
        if (family_.partners[first].empty())
            return;
        if (auto lines = bloodLines(family_, Ascent(family_, family_.partners[first]), second_)) {
            lines->path.insert(lines->path.begin(), first);
            offer({Marriage::OfFirst, std::move(lines->closest)}, std::move(lines->path));
        }
    }

    void ofSecond(PersonIndex second)
    {
        if (family_.partners[second].empty())
            return;
        if (auto lines = bloodLines(family_, first_, Ascent(family_, family_.partners[second]))) {
            lines->path.push_back(second);
            offer({Marriage::OfSecond, std::move(lines->closest)}, std::move(lines->path));
        }
    }

    void offer(InLaw inLaw, std::vector<PersonIndex> path)
    {
        if (!shortest_ || inLaw.steps() < shortest_->inLaw.steps())
            shortest_ = InLawPath{std::move(inLaw), std::move(path)};
    }

    const engine::FamilyGraph& family_;
    const Ascent& first_;
    const Ascent& second_;
    std::optional<InLawPath> shortest_;
};

} // namespace

Relation relationshipOf(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second)
{
    Relation relationship;
    if (first == second) {
        relationship.kinship = Kinship::Same;
        relationship.path = {first};
        return relationship;
    }
    const Ascent fromFirst(family, std::array{first});
    const Ascent fromSecond(family, std::array{second});
    if (auto lines = bloodLines(family, fromFirst, fromSecond)) {
        relationship.kinship = Kinship::Blood;
        relationship.blood = std::move(lines->closest);
        relationship.otherLines = lines->others;
        relationship.path = std::move(lines->path);
    }
    if (contains(family.partners[first], second)) {
        relationship.kinship = Kinship::Partners;
        relationship.path = {first, second};
        return relationship;
    }
    auto inLaw = InLawSearch(family, fromFirst, fromSecond).run(first, second);
    if (inLaw && !(relationship.blood && relationship.blood->steps() <= inLaw->inLaw.steps())) {
        relationship.inLaw = std::move(inLaw->inLaw);
        if (!relationship.blood) {
            relationship.kinship = Kinship::ByMarriage;
            relationship.path = std::move(inLaw->path);
        }
    }
    if (relationship.kinship == Kinship::None) {
        relationship.path = shortestPath(family, first, second);
        if (!relationship.path.empty())
            relationship.kinship = Kinship::Connected;
    }
    return relationship;
}

} // namespace lineara::kinship
