#include "canvas/row_spacing.h"

#include "canvas/family_scene.h"
#include "canvas/placement.h"
#include "layout/row_solver.h"
#include "model/object_context.h"

#include <optional>
#include <utility>

namespace lineara {

namespace {

/// The node of somebody who is on the canvas and still of that row, or nullptr.
const LeafView* nodeInRow(RecordId id, std::int32_t row, const FamilyScene& scene)
{
    const Person* const person = scene.pool().context().person(id);
    const bool isThere = person && scene.shows(*person) && person->generation().value_or(0) == row;
    return isThere ? person->leafView() : nullptr;
}

void addSolved(std::int32_t row, const std::vector<RowSpacing::Member>& order, const FamilyScene& scene,
               std::vector<SolvedPlace>& solved)
{
    std::vector<layout::RowNode> nodes;
    std::vector<RecordId> persons;
    for (const auto& [person, stood] : order) {
        const LeafView* const node = nodeInRow(person, row, scene);
        if (!node)
            continue;
        nodes.push_back({truncated(node->xConstraint()->constant), node->width(), stood});
        persons.push_back(person);
    }
    const std::vector<std::int64_t> lefts = layout::solveRow(nodes);
    for (std::size_t at = 0; at < lefts.size(); ++at)
        solved.push_back({persons[at], static_cast<double>(lefts[at])});
}

} // namespace

void writeBack(std::span<const SolvedPlace> places, ObjectContext& context)
{
    std::vector<Person*> moved;
    std::vector<std::optional<std::int32_t>> values;
    for (const auto& [id, left] : places) {
        Person* const person = context.person(id);
        const LeafView* const node = person ? person->leafView() : nullptr;
        if (!node || !node->xConstraint() || node->xConstraint()->constant == left)
            continue;
        moved.push_back(person);
        values.emplace_back(truncated(left));
    }
    context.setMany(PersonAttribute::X, moved, values);
}

void RowSpacing::install(std::int32_t row, std::vector<Member> order)
{
    const std::uint64_t members = order.size();
    if (members == 0)
        return;
    count_ += members * (members - 1) / 2;
    rows_.insert_or_assign(row, std::move(order));
    needsLayout_ = true;
}

void RowSpacing::layOut(const FamilyScene& scene)
{
    if (!std::exchange(needsLayout_, false))
        return;
    solved_.clear();
    for (const auto& [row, order] : rows_)
        addSolved(row, order, scene, solved_);
}

void RowSpacing::clear()
{
    rows_.clear();
    solved_.clear();
    count_ = 0;
    needsLayout_ = false;
}

} // namespace lineara
