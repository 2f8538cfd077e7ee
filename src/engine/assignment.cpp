#include "assignment.h"

#include "graph_queries.h"

namespace lineara::engine {

Assignment::Assignment(const FamilyGraph& family, std::vector<LogEntry>& log, std::stop_token stop)
    : family_(family), log_(log), stop_(std::move(stop)), generations_(family.persons(), noGeneration),
      willWalk_(family.willWalk), asked_(family.persons(), false)
{}

void Assignment::assignGeneration(Generation generation, PersonIndex person)
{
    place(generation, person);
    while (!spreading_.empty() && !stop_.stop_requested())
        spreadNext();
}

void Assignment::place(Generation generation, PersonIndex person)
{
    const Generation existing = generations_[person];
    if (existing == generation)
        return;
    if (existing != noGeneration) {
        log_.push_back({LogEntry::Kind::RefusedGeneration, generation, existing});
        return;
    }
    if (isUnlinked(family_, person))
        return;
    generations_[person] = generation;
    if (!willWalk_.empty())
        willWalk_[person] = false;
    spreading_.push_back({person, 0});
}

void Assignment::spreadNext()
{
    Step& step = spreading_.back();
    const Generation generation = generations_[step.person];
    std::size_t at = step.next++;

    const auto parents = family_.parents[step.person];
    if (at < parents.size()) {
        if (willWalk_.empty() || !willWalk_[parents[at]])
            place(generation + 1, parents[at]);
        return;
    }
    at -= parents.size();
    const auto children = family_.children[step.person];
    if (at < children.size())
        return place(generation - 1, children[at]);
    at -= children.size();
    const auto partners = family_.partners[step.person];
    if (at == partners.size())
        return spreading_.pop_back();
    if (generations_[partners[at]] == noGeneration)
        place(generation, partners[at]);
}

Generation Assignment::getGeneration(PersonIndex person, Generation founderGeneration)
{
    visit(person, founderGeneration);
    while (!reaching_.empty() && !stop_.stop_requested()) {
        Step& step = reaching_.back();
        const auto parents = family_.parents[step.person];
        if (step.next > 0) {
            if (const Generation ofParent = valueOrZero(generations_[parents[step.next - 1]]); ofParent != 0)
                assignGeneration(ofParent - 1, step.person);
        }
        if (step.next == parents.size())
            reaching_.pop_back();
        else
            visit(parents[step.next++], founderGeneration);
    }
    return generations_[person];
}

void Assignment::visit(PersonIndex person, Generation founderGeneration)
{
    // Whoever was asked once has its generation now, unless it stands on or below a cycle of parents.
    if (generations_[person] != noGeneration || asked_[person])
        return;
    asked_[person] = true;
    if (!family_.parents[person].empty())
        reaching_.push_back({person, 0});
    else if (!isUnlinked(family_, person))
        generations_[person] = founderGeneration;
}

} // namespace lineara::engine
