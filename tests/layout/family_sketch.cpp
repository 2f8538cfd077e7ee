#include "family_sketch.h"

#include "layout/tidy.h"

#include <algorithm>

namespace lineara::layout::sketch {

PersonIndex Sketch::person(Generation row)
{
    rows_.push_back(row);
    parents.emplace_back();
    children.emplace_back();
    partners.emplace_back();
    return static_cast<PersonIndex>(rows_.size() - 1);
}

void Sketch::marry(PersonIndex one, PersonIndex other)
{
    if (one == other || std::ranges::count(partners[one], other) > 0)
        return;
    partners[one].push_back(other);
    partners[other].push_back(one);
}

void Sketch::bear(PersonIndex child, const std::vector<PersonIndex>& newParents)
{
    for (const PersonIndex parent : newParents) {
        if (parent == child || parents[child].size() == 2 || std::ranges::count(parents[child], parent) > 0)
            continue;
        parents[child].push_back(parent);
        children[parent].push_back(child);
    }
}

FamilyGraph Sketch::graph() const
{
    const auto flatten = [](const std::vector<std::vector<PersonIndex>>& links) {
        engine::Adjacency adjacency;
        for (const auto& others : links) {
            for (const PersonIndex other : others)
                adjacency.add(other);
            adjacency.endPerson();
        }
        return adjacency;
    };
    FamilyGraph graph;
    graph.members = static_cast<std::uint32_t>(persons());
    for (std::uint64_t number = 0; number < persons(); ++number)
        graph.numbers.push_back(100 + number);
    graph.parents = flatten(parents);
    graph.children = flatten(children);
    graph.partners = flatten(partners);
    return graph;
}

std::uint32_t pick(Random& random, std::uint32_t low, std::uint32_t high)
{
    return low + static_cast<std::uint32_t>(random()) % (high - low + 1);
}

Sketch randomDescendants(Random& random, Generation rows, std::uint32_t mostChildren)
{
    Sketch sketch;
    std::vector<PersonIndex> row{sketch.person(rows)};
    for (Generation generation = rows; generation > 0; --generation) {
        std::vector<PersonIndex> next;
        for (const PersonIndex parent : row) {
            if (pick(random, 0, 4) == 0)
                continue;
            const PersonIndex spouse = sketch.person(generation);
            sketch.marry(parent, spouse);
            for (std::uint32_t born = pick(random, 0, mostChildren); generation > 1 && born > 0; --born) {
                next.push_back(sketch.person(generation - 1));
                sketch.bear(next.back(), {parent, spouse});
            }
        }
        row = next;
    }
    return sketch;
}

Sketch randomTangle(Random& random, std::uint32_t persons)
{
    Sketch sketch;
    for (std::uint32_t person = 0; person < persons; ++person)
        sketch.person(pick(random, 0, 9) == 0 ? engine::noGeneration : static_cast<Generation>(pick(random, 0, 7)) - 1);
    for (std::uint32_t link = pick(random, 0, 2 * persons); link > 0; --link) {
        const PersonIndex one = pick(random, 0, persons - 1);
        const PersonIndex other = pick(random, 0, persons - 1);
        if (pick(random, 0, 2) == 0)
            sketch.marry(one, other);
        else
            sketch.bear(std::max(one, other), {std::min(one, other)});
    }
    return sketch;
}

Sketch together(const Sketch& one, const Sketch& other)
{
    Sketch both = one;
    const auto first = static_cast<PersonIndex>(one.persons());
    for (const Generation row : other.generations())
        both.person(row);
    for (PersonIndex person = 0; person < other.persons(); ++person) {
        for (const PersonIndex parent : other.parents[person])
            both.bear(first + person, {first + parent});
        for (const PersonIndex partner : other.partners[person])
            both.marry(first + person, first + partner);
    }
    return both;
}

Sketch largeFamily(Random& random, std::uint32_t rows, std::uint32_t personsInRow)
{
    constexpr std::uint32_t spread = 30;
    Sketch sketch;
    for (std::uint32_t row = 0; row < rows; ++row) {
        const PersonIndex first = row * personsInRow;
        for (std::uint32_t place = 0; place < personsInRow; ++place) {
            const PersonIndex person = sketch.person(static_cast<Generation>(rows - row));
            if (place % 2 == 1)
                sketch.marry(person - 1, person);
            if (row == 0 || (place % 2 == 1 && pick(random, 0, 2) == 0))
                continue;
            const std::uint32_t near = std::min(place + pick(random, 0, spread), personsInRow - 2);
            const PersonIndex parent = first - personsInRow + near / 2 * 2;
            sketch.bear(person, {parent, parent + 1});
        }
    }
    return sketch;
}

std::vector<PersonIndex> lineOf(const std::vector<std::vector<PersonIndex>>& next, PersonIndex person)
{
    std::vector<PersonIndex> line{person};
    std::vector<bool> isTaken(next.size(), false);
    isTaken[person] = true;
    for (std::size_t at = 0; at < line.size(); ++at)
        for (const PersonIndex other : next[line[at]])
            if (!isTaken[other]) {
                isTaken[other] = true;
                line.push_back(other);
            }
    line.erase(line.begin());
    return line;
}

std::vector<std::int32_t> tidied(const FamilyGraph& family, const std::vector<Generation>& generations,
                                 std::int32_t leftMargin)
{
    TidyTask task{family, generations};
    task.pitch = pitch;
    task.margin = leftMargin;
    return tidy(task).value();
}

std::vector<std::int32_t> order(const Sketch& sketch, std::int32_t leftMargin)
{
    return tidied(sketch.graph(), sketch.generations(), leftMargin);
}

} // namespace lineara::layout::sketch
