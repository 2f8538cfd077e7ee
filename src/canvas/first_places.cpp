#include "canvas/first_places.h"

#include "canvas/placement.h"
#include "elements/node_layout.h"
#include "layout/first_order.h"
#include "model/object_context.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace lineara {

namespace {

constexpr std::int32_t leastGap = 10;
constexpr std::int32_t pitch = node_layout::greatestNodeWidth + leastGap;

/// Where persons without a place may begin: beyond everybody who has one.
std::int32_t firstFreePlace(const Pool& pool)
{
    std::int32_t free = truncated(leftTrimMargin);
    for (const Person* const person : pool.persons())
        if (person->x() && *person->x() <= std::numeric_limits<std::int32_t>::max() - pitch)
            free = std::max(free, *person->x() + pitch);
    return free;
}

std::vector<engine::Generation> generationsOf(const FamilySnapshot& family, const ObjectContext& context)
{
    std::vector<engine::Generation> generations;
    generations.reserve(family.persons.size());
    for (const RecordId id : family.persons) {
        const Person* const person = context.person(id);
        generations.push_back(person ? person->generation().value_or(engine::noGeneration) : engine::noGeneration);
    }
    return generations;
}

} // namespace

void giveFirstPlaces(Pool& pool)
{
    const bool complete =
        std::ranges::all_of(pool.persons(), [](const Person* person) { return person->x().has_value(); });
    if (complete)
        return;
    const FamilySnapshot family = pool.snapshot();
    const std::vector<std::int32_t> places =
        layout::firstOrder(family.graph, generationsOf(family, pool.context()), pitch, firstFreePlace(pool));

    std::vector<Person*> placed;
    std::vector<std::optional<std::int32_t>> values;
    for (std::uint32_t member = 0; member < family.graph.members; ++member) {
        Person* const person = pool.persons()[member];
        if (person->x())
            continue;
        placed.push_back(person);
        values.emplace_back(places[member]);
    }
    pool.context().setMany(PersonAttribute::X, placed, values);
}

} // namespace lineara
