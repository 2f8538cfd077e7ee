#include "edited_family.h"

#include "interchange/gedcom_import.h"
#include "layout/row_solver.h"
#include "layout/tidy.h"
#include "model/object_context.h"

#include <algorithm>
#include <stdexcept>

namespace lineara::layout::sketch {

namespace {

constexpr std::int32_t besideRelative = 21;
constexpr std::int32_t programMargin = 253;

std::vector<PersonIndex> listOf(std::span<const PersonIndex> persons)
{
    return {persons.begin(), persons.end()};
}

/// The rows in the order of the family; nobody stands below row 0.
EditedFamily::Rows rowsOf(const std::vector<Generation>& generations)
{
    EditedFamily::Rows rows;
    for (PersonIndex person = 0; person < generations.size(); ++person)
        rows[std::max(generations[person], 0)].push_back(person);
    return rows;
}

} // namespace

EditedFamily EditedFamily::imported(const char* name, const QString& folder)
{
    const auto read = importGedcomFile(folder + u'/' + QString::fromLatin1(name));
    if (read.failed())
        throw std::runtime_error(read.failure().message.toStdString());
    const Pool& pool = *read.value().context->allPools().front();
    const auto [graph, records] = pool.snapshot();
    EditedFamily family;
    family.numbers_ = graph.numbers;
    for (PersonIndex person = 0; person < graph.persons(); ++person) {
        family.links_.person(0);
        family.links_.parents[person] = listOf(graph.parents[person]);
        family.links_.children[person] = listOf(graph.children[person]);
        family.links_.partners[person] = listOf(graph.partners[person]);
        family.birthYears_.push_back(pool.persons()[person]->birthYear().value_or(unknownBirthYear));
    }
    family.runEngine();
    family.tidyUp();
    family.spacedRows_ = rowsOf(family.generations_);
    return family;
}

EditedFamily::Rows EditedFamily::rows() const
{
    Rows rows = rowsOf(generations_);
    for (auto& [generation, row] : rows)
        std::ranges::stable_sort(row, {}, [&](PersonIndex person) { return places_[person]; });
    return rows;
}

PersonIndex EditedFamily::addPartner(PersonIndex of, bool isLeft)
{
    const PersonIndex newcomer = addBeside(of, isLeft, generations_[of]);
    links_.marry(of, newcomer);
    space();
    runEngine();
    space();
    return newcomer;
}

PersonIndex EditedFamily::addParent(PersonIndex of, bool isLeft)
{
    const PersonIndex newcomer = addBeside(of, isLeft, generations_[of] + 1);
    links_.bear(of, {newcomer});
    space();
    runEngine();
    space();
    return newcomer;
}

PersonIndex EditedFamily::addChild(PersonIndex first, PersonIndex second, bool isLeft)
{
    const PersonIndex newcomer = addBeside(first, isLeft, generations_[first] - 1);
    links_.bear(newcomer, {first});
    if (generations_[first] < 2)
        runEngine();
    space();
    links_.bear(newcomer, {second});
    runEngine();
    space();
    return newcomer;
}

PersonIndex EditedFamily::addBeside(PersonIndex relative, bool isLeft, Generation generation)
{
    numbers_.push_back(numbers_.back() + 1);
    birthYears_.push_back(unknownBirthYear);
    generations_.push_back(generation);
    places_.push_back(places_[relative] + (isLeft ? -besideRelative : besideRelative));
    return links_.person(generation);
}

TidyTask EditedFamily::task(const FamilyGraph& family) const
{
    TidyTask task{family, generations_};
    task.birthYears = birthYears_;
    task.present = places_;
    task.pitch = pitch;
    task.margin = programMargin;
    return task;
}

void EditedFamily::tidyUp()
{
    const FamilyGraph family = graph();
    places_ = tidy(task(family)).value();
}

void EditedFamily::tidyUp(const std::vector<PersonIndex>& selected)
{
    const FamilyGraph family = graph();
    places_ = tidySelection(task(family), selected).value();
}

FamilyGraph EditedFamily::graph() const
{
    FamilyGraph graph = links_.graph();
    graph.numbers = numbers_;
    return graph;
}

void EditedFamily::runEngine()
{
    generations_ = engine::process(graph()).value().generations;
}

void EditedFamily::space()
{
    const Rows now = rowsOf(generations_);
    for (const auto& [generation, row] : now) {
        const auto isSame = [&row = row](const auto& known) { return known.first > 0 && known.second == row; };
        if (generation > 0 && std::ranges::none_of(spacedRows_, isSame))
            spaceRow(row);
    }
    spacedRows_ = now;
    const std::int32_t leftmost = *std::ranges::min_element(places_);
    for (std::int32_t& place : places_)
        place -= std::min(leftmost, 0);
}

void EditedFamily::spaceRow(const std::vector<PersonIndex>& row)
{
    std::vector<std::int32_t> lefts;
    for (const PersonIndex person : row)
        lefts.push_back(places_[person]);
    const std::vector<bool> stood = stoodTogether(row);
    const std::vector<std::size_t> order = rowOrder(lefts);
    std::vector<RowNode> nodes;
    for (const std::size_t at : order)
        nodes.push_back({lefts[at], pitch - rowGap, stood[at]});
    const std::vector<std::int64_t> solved = solveRow(nodes);
    for (std::size_t at = 0; at < order.size(); ++at)
        places_[row[order[at]]] = static_cast<std::int32_t>(solved[at]);
}

/// Who stood in the row that most of these persons stood in before.
std::vector<bool> EditedFamily::stoodTogether(const std::vector<PersonIndex>& row) const
{
    std::vector<bool> together(row.size(), false);
    std::ptrdiff_t most = 0;
    for (const auto& [generation, known] : spacedRows_) {
        std::vector<bool> stood;
        for (const PersonIndex person : row)
            stood.push_back(std::ranges::binary_search(known, person));
        const std::ptrdiff_t share = std::ranges::count(stood, true);
        if (generation > 0 && share > most) {
            most = share;
            together = stood;
        }
    }
    return together;
}

} // namespace lineara::layout::sketch
