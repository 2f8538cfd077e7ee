#include "link_generations.h"

#include "model/person.h"
#include "model/pool.h"

namespace lineara {

namespace {

/// Whole numbers wrap at 32 bits.
std::int32_t oneAbove(std::int32_t generation)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(generation) + 1u);
}

} // namespace

bool isLinked(const Person& from, Person& to, QStringView type)
{
    return type == partnerLink ? from.partners().contains(&to) : from.children().contains(&to);
}

bool needsFullRun(const Person& from, const Person& to, QStringView type)
{
    if (!from.generation())
        return false;
    return to.generation() || (type == offspringLink && *from.generation() < 2);
}

void assignLinkGenerations(Person& from, Person& to, QStringView type)
{
    const bool isOffspring = type == offspringLink;
    if (const auto generation = from.generation()) {
        to.setGeneration(isOffspring ? *generation - 1 : *generation);
    } else if (const auto ofChild = to.generation()) {
        from.setGeneration(isOffspring ? oneAbove(*ofChild) : *ofChild);
    } else {
        from.setGeneration(isOffspring ? 2 : 1);
        to.setGeneration(1);
    }
}

} // namespace lineara
