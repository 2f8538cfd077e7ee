#include "canvas/tidying.h"

#include "canvas/placement.h"
#include "elements/leaf_view.h"
#include "elements/node_layout.h"
#include "layout/row_solver.h"
#include "layout/tidy.h"
#include "model/object_context.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

namespace lineara {

namespace {

constexpr std::int32_t pitch = node_layout::greatestNodeWidth + layout::rowGap;

std::int32_t nodeWidthOf(const Person* person)
{
    const LeafView* const node = person ? person->leafView() : nullptr;
    return node ? node->width() : node_layout::greatestNodeWidth;
}

/// Where persons without a place may begin: beyond everybody who has one.
std::int32_t firstFreePlace(const Pool& pool)
{
    std::int32_t free = truncated(leftTrimMargin);
    for (const Person* const person : pool.persons())
        if (person->x() && *person->x() <= std::numeric_limits<std::int32_t>::max() - pitch)
            free = std::max(free, *person->x() + pitch);
    return free;
}

} // namespace

Tidying::Tidying(const Pool& pool) : family_(pool.snapshot()), isAsked_(family_.graph.persons(), false)
{
    for (const RecordId id : family_.persons) {
        const Person* const person = pool.context().person(id);
        generations_.push_back(person ? person->generation().value_or(engine::noGeneration) : engine::noGeneration);
        birthYears_.push_back(person ? person->birthYear().value_or(layout::unknownBirthYear)
                                     : layout::unknownBirthYear);
        if (person && person->x())
            present_.push_back(*person->x());
    }
}

Tidying Tidying::ofEverybody(const Pool& pool)
{
    Tidying tidying(pool);
    tidying.margin_ = truncated(leftTrimMargin);
    std::fill_n(tidying.isAsked_.begin(), tidying.family_.graph.members, true);
    if (tidying.present_.size() < tidying.family_.persons.size())
        tidying.present_.clear();
    return tidying;
}

Tidying Tidying::ofSome(const Pool& pool, const std::vector<RecordId>& persons)
{
    Tidying tidying = ofEverybody(pool);
    const std::unordered_set<RecordId> wanted(persons.begin(), persons.end());
    for (const RecordId id : tidying.family_.persons)
        tidying.widths_.push_back(nodeWidthOf(pool.context().person(id)));
    auto& selected = tidying.selected_.emplace();
    for (engine::PersonIndex person = 0; person < tidying.family_.graph.members; ++person) {
        if (wanted.contains(tidying.family_.persons[person]))
            selected.push_back(person);
    }
    return tidying;
}

Tidying Tidying::ofNewcomers(const Pool& pool)
{
    Tidying tidying(pool);
    std::vector<engine::PersonIndex> newcomers;
    for (engine::PersonIndex member = 0; member < tidying.family_.graph.members; ++member) {
        if (!pool.persons()[member]->x())
            newcomers.push_back(member);
    }
    tidying.keepOnly(newcomers);
    tidying.margin_ = firstFreePlace(pool);
    return tidying;
}

/// `persons` are in the order of the family.
void Tidying::keepOnly(const std::vector<engine::PersonIndex>& persons)
{
    family_.graph = engine::partOf(family_.graph, persons);
    for (std::size_t at = 0; at < persons.size(); ++at) {
        family_.persons[at] = family_.persons[persons[at]];
        generations_[at] = generations_[persons[at]];
        birthYears_[at] = birthYears_[persons[at]];
    }
    family_.persons.resize(persons.size());
    generations_.resize(persons.size());
    birthYears_.resize(persons.size());
    present_.clear();
    isAsked_.assign(persons.size(), true);
}

void Tidying::compute(const Progress& progress)
{
    if (std::ranges::find(isAsked_, true) == isAsked_.end() || (selected_ && present_.empty()))
        return;
    const auto found = edges(progress);
    if (!found)
        return;
    for (engine::PersonIndex person = 0; person < found->size(); ++person) {
        // Others than those who were selected may have been moved by their user meanwhile.
        if (isAsked_[person] && !(selected_ && present_[person] == (*found)[person]))
            places_.push_back({family_.persons[person], (*found)[person]});
    }
}

std::optional<std::vector<std::int32_t>> Tidying::edges(const Progress& progress) const
{
    layout::TidyTask task{family_.graph, generations_};
    task.birthYears = birthYears_;
    task.present = present_;
    task.pitch = pitch;
    task.widths = widths_;
    task.margin = margin_;
    const auto goesOn = [&progress](double part) { return progress.goesOn(part); };
    return selected_ ? layout::tidySelection(task, *selected_, goesOn) : layout::tidy(task, goesOn);
}

Moves movesOf(const std::vector<Tidying::Place>& places, const ObjectContext& context)
{
    Moves moves;
    for (const auto& [id, x] : places) {
        Person* const person = context.person(id);
        if (!person || person->x() == x)
            continue;
        moves.persons.push_back(person);
        moves.places.emplace_back(x);
    }
    return moves;
}

void giveFirstPlaces(Pool& pool)
{
    if (std::ranges::all_of(pool.persons(), [](const Person* person) { return person->x().has_value(); }))
        return;
    Tidying tidying = Tidying::ofNewcomers(pool);
    tidying.compute();
    const auto [persons, places] = movesOf(tidying.places(), pool.context());
    pool.context().setMany(PersonAttribute::X, persons, places);
}

} // namespace lineara
