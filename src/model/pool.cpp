#include "model/pool.h"

#include "attribute_value.h"
#include "model/object_context.h"
#include "visit.h"

#include <algorithm>
#include <iterator>

namespace lineara {

void Pool::addPerson(Person& person)
{
    context().link(Relationship::PoolMembers, *this, person);
}

void Pool::removePerson(Person& person)
{
    context().unlink(Relationship::PoolMembers, *this, person);
}

std::int32_t Pool::maxPath(const Person& person) const
{
    // A person is met when its turn comes, before its parents, and measured when its turn comes again, after them.
    constexpr std::uint32_t notMeasured = 0;
    const Visit visit(context());
    std::vector<const Person*> waiting{&person};
    while (!waiting.empty()) {
        const Person& next = *waiting.back();
        if (!visit.met(next)) {
            visit.meet(next, notMeasured);
            std::ranges::copy_if(next.parents(), std::back_inserter(waiting),
                                 [&](const Person* parent) { return !visit.met(*parent); });
            continue;
        }
        waiting.pop_back();
        if (visit.note(next) != notMeasured)
            continue;
        std::uint32_t longest = 0;
        for (const Person* const parent : next.parents())
            longest = std::max(longest, visit.note(*parent));
        visit.meet(next, longest + 1);
    }
    return static_cast<std::int32_t>(visit.note(person));
}

void Pool::markWillWalk(Person& person)
{
    const Visit visit(context());
    visit.meet(person);
    std::vector<Person*> waiting{&person};
    while (!waiting.empty()) {
        Person* const next = waiting.back();
        waiting.pop_back();
        next->setWillWalk(true);
        for (Person* const child : next->children()) {
            if (visit.met(*child))
                continue;
            visit.meet(*child);
            waiting.push_back(child);
        }
    }
}

void Pool::pushUp(Person& person, std::int32_t levels, bool withPartners)
{
    std::vector<Person*> raised{&person};
    if (withPartners)
        raised.insert(raised.end(), person.partners().begin(), person.partners().end());
    const std::optional<std::int32_t> generation = wrappingSum(person.generation().value_or(0), levels);
    context().setMany(PersonAttribute::Generation, raised, std::vector(raised.size(), generation));
}

} // namespace lineara
