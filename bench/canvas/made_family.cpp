#include "made_family.h"

#include "model/context_loader.h"

#include <algorithm>
#include <array>
#include <random>

namespace lineara::bench {

namespace {

constexpr std::int32_t pitch = 152;
constexpr std::uint32_t longestReach = 30000 / pitch;

struct Plan
{
    std::uint32_t rows = 0;
    std::uint32_t perRow = 0;
    std::uint32_t persons() const { return rows * perRow; }
    std::uint32_t at(std::uint32_t row, std::uint32_t place) const { return row * perRow + place; }
};

PersonValues valuesOf(const Plan& plan, std::uint32_t person, std::mt19937& random)
{
    static const std::array given{u"Anna"_qs, u"Johannes"_qs, u"Maria Theresia"_qs, u"Karl"_qs, u"Elisabeth"_qs};
    static const std::array family{u"Berger"_qs, u"von Hohenfels"_qs, u"Lang"_qs, u"Oberhuber"_qs, u"Novák"_qs};
    PersonValues values;
    values.name = given[random() % given.size()] + u' ' + family[random() % family.size()];
    values.birthYear = 1500 + static_cast<std::int32_t>(random() % 500);
    values.deathYear = *values.birthYear + 20 + static_cast<std::int32_t>(random() % 60);
    values.generation = static_cast<std::int32_t>(plan.rows - person / plan.perRow);
    values.x = static_cast<std::int32_t>(person % plan.perRow) * pitch;
    return values;
}

/// Place of a parent in the row above a child: near by, or for one link in a hundred far away.
std::uint32_t parentPlace(const Plan& plan, std::uint32_t place, std::mt19937& random)
{
    const std::uint32_t reach = random() % 100 == 0 ? longestReach : 3;
    const std::uint32_t from = place > reach ? place - reach : 0;
    const auto along = static_cast<std::uint32_t>(random() % (2 * reach + 1));
    return std::min(from + along, plan.perRow - 1);
}

struct Lists
{
    std::vector<std::vector<std::uint32_t>> parents, children, partners;
    explicit Lists(std::uint32_t persons) : parents(persons), children(persons), partners(persons) {}
};

void addLink(std::vector<std::vector<std::uint32_t>>& there, std::vector<std::vector<std::uint32_t>>& back,
             std::uint32_t from, std::uint32_t to)
{
    there[from].push_back(to);
    back[to].push_back(from);
}

Lists makeLinks(const Plan& plan, engine::ProcessResult& result, std::mt19937& random)
{
    Lists lists(plan.persons());
    for (std::uint32_t row = 0; row < plan.rows; ++row)
        for (std::uint32_t place = 0; place < plan.perRow; ++place) {
            const std::uint32_t person = plan.at(row, place);
            if (place % 2 == 1 && random() % 5 != 0) {
                addLink(lists.partners, lists.partners, person - 1, person);
                result.partners.push_back({person - 1, person});
            }
            if (row == 0 || random() % 5 == 0)
                continue;
            const std::uint32_t first = parentPlace(plan, place, random);
            const std::uint32_t second = first + 1 < plan.perRow ? first + 1 : first - 1;
            for (const std::uint32_t parent : {plan.at(row - 1, first), plan.at(row - 1, second)}) {
                addLink(lists.children, lists.parents, parent, person);
                result.offspring.push_back({parent, person});
            }
        }
    return lists;
}

std::vector<Person*> pick(const std::vector<Person*>& persons, const std::vector<std::uint32_t>& indices)
{
    std::vector<Person*> picked;
    for (const std::uint32_t index : indices)
        picked.push_back(persons[index]);
    return picked;
}

void takeResult(Pool& pool, const Plan& plan, engine::ProcessResult& result)
{
    const FamilySnapshot snapshot = pool.snapshot();
    result.rowsBuilt = true;
    result.maxGeneration = static_cast<std::int32_t>(plan.rows);
    result.maxGenerationSize = static_cast<std::int32_t>(plan.perRow);
    result.maxGenerationOf = plan.at(plan.rows - 1, plan.perRow / 2);
    result.rows.resize(plan.rows + 1);
    for (std::uint32_t person = 0; person < plan.persons(); ++person) {
        const std::uint32_t generation = plan.rows - person / plan.perRow;
        result.generations.push_back(static_cast<std::int32_t>(generation));
        result.rows[generation].push_back(person);
    }
    pool.apply(snapshot, result);
}

} // namespace

std::uint32_t rowsOfMadeFamily(std::uint32_t persons)
{
    if (persons <= 1000)
        return 8;
    if (persons <= 10'000)
        return 20;
    return persons <= 100'000 ? 32 : 40;
}

std::unique_ptr<ObjectContext> madeFamily(std::uint32_t persons)
{
    const std::uint32_t rows = rowsOfMadeFamily(persons);
    const Plan plan{rows, persons / rows};
    std::mt19937 random(persons);
    engine::ProcessResult result;
    const Lists lists = makeLinks(plan, result, random);

    ContextLoader loader(QUuid::createUuidV5(QUuid(), QStringLiteral("made family")), plan.persons() + 102,
                         plan.persons() + 1);
    std::vector<Person*> made;
    for (std::uint32_t person = 0; person < plan.persons(); ++person)
        made.push_back(&loader.addPerson(RecordId{102 + person}, valuesOf(plan, person, random)));
    for (std::uint32_t person = 0; person < plan.persons(); ++person) {
        loader.setParents(*made[person], pick(made, lists.parents[person]));
        loader.setChildren(*made[person], pick(made, lists.children[person]));
        loader.setPartners(*made[person], pick(made, lists.partners[person]));
    }
    Pool& pool = loader.addPool(RecordId{101});
    loader.setMembers(pool, made);
    auto context = loader.finish();
    takeResult(pool, plan, result);
    return context;
}

} // namespace lineara::bench
