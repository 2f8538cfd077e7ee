#include "components.h"

namespace lineara::layout {

using engine::PersonIndex;

namespace {

/// Union by size with path halving.
class Unions
{
public:
    explicit Unions(std::uint32_t persons) : above_(persons), size_(persons, 1)
    {
        for (PersonIndex person = 0; person < persons; ++person)
            above_[person] = person;
    }

    PersonIndex find(PersonIndex person)
    {
        while (above_[person] != person)
            person = above_[person] = above_[above_[person]];
        return person;
    }

    void unite(PersonIndex one, PersonIndex other)
    {
        one = find(one);
        other = find(other);
        if (one == other)
            return;
        if (size_[one] < size_[other])
            std::swap(one, other);
        above_[other] = one;
        size_[one] += size_[other];
    }

    bool alone(PersonIndex person) { return size_[find(person)] == 1; }

private:
    std::vector<PersonIndex> above_;
    std::vector<std::uint32_t> size_;
};

} // namespace

Lists<PersonIndex> connectedFamilies(const engine::FamilyGraph& family)
{
    constexpr std::uint32_t unnumbered = ~std::uint32_t{0};
    Unions unions(family.persons());
    for (PersonIndex person = 0; person < family.persons(); ++person)
        for (const auto* links : {&family.parents, &family.children, &family.partners})
            for (const PersonIndex other : (*links)[person])
                unions.unite(person, other);

    struct Placed
    {
        std::uint32_t owner = 0;
        PersonIndex person = 0;
    };
    std::vector<Placed> placed;
    std::vector<std::uint32_t> numbers(family.persons(), unnumbered);
    std::uint32_t families = 0;
    for (PersonIndex person = 0; person < family.persons(); ++person) {
        if (unions.alone(person))
            continue;
        std::uint32_t& number = numbers[unions.find(person)];
        if (number == unnumbered)
            number = families++;
        placed.push_back({number, person});
    }
    return sortIntoLists(families, placed, &Placed::person);
}

} // namespace lineara::layout
