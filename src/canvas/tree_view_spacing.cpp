// How the nodes of a row are kept apart: gaps are installed, the rows laid out, and where the nodes came to stand is
// written back into the records.

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "canvas_gestures.h"
#include "elements/notifications.h"
#include "layout/row_solver.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace lineara {

namespace {

/// A pass that moved somebody left of the canvas is followed by one that puts everybody right, and there is nothing
/// left to do; what still asks for a pass then would ask for ever.
constexpr int mostRounds = 3;

std::vector<std::int32_t> placesOf(const std::vector<RecordId>& persons, const ObjectContext& context)
{
    std::vector<std::int32_t> places;
    places.reserve(persons.size());
    for (const RecordId person : persons)
        places.push_back(context.person(person)->x().value_or(0));
    return places;
}

} // namespace

void TreeView::constrainCollisionsForGeneration(std::optional<std::int32_t> generation)
{
    const auto& rows = pool().generations();
    if (!generation || *generation < 0 || static_cast<std::size_t>(*generation) >= rows.size())
        return;
    std::vector<RecordId> persons;
    std::ranges::copy_if(rows[static_cast<std::size_t>(*generation)], std::back_inserter(persons), [this](RecordId id) {
        const Person* const person = pool().context().person(id);
        return person && scene_.shows(*person);
    });
    const std::vector<bool> stood = spacedRows_.stoodInRow(*generation, persons);
    std::vector<RowSpacing::Member> order;
    for (const std::size_t at : layout::rowOrder(placesOf(persons, pool().context())))
        order.push_back({persons[at], stood[at]});
    spacing_.install(*generation, std::move(order));
}

void TreeView::reconstrainCollisionsForPerson(Person& person)
{
    constrainCollisionsForGeneration(person.generation());
    setNeedsUpdateConstraints();
}

void TreeView::clearCollisionConstraints()
{
    updateXAfterAutoLayout();
    spacing_.clear();
}

void TreeView::updateXAfterAutoLayout()
{
    writeBack(spacing_.solved(), pool().context());
}

void TreeView::personDragNotification(const PersonDragEndedNotification& ended)
{
    Person* const person = ended.family == &pool() ? pool().context().person(ended.person) : nullptr;
    if (!person)
        return;
    // What the drag itself has led to comes first, as long as the pointer holds the node.
    correctLeftEdge(ShiftCause::Drag);
    reconstrainCollisionsForPerson(*person);
    // By the time of the pass the row may be another one.
    resized_.push_back(person->recordId());
}

void TreeView::setNeedsUpdateConstraints()
{
    if (passRequested_)
        return;
    passRequested_ = true;
    QMetaObject::invokeMethod(this, &TreeView::runRequested, Qt::QueuedConnection);
}

void TreeView::settle()
{
    gestures_->settle();
    glide_.finish();
    runRequested();
}

void TreeView::runRequested()
{
    for (int round = 0; round < mostRounds && passRequested_; ++round) {
        passRequested_ = false;
        // Who is found left of the canvas first has been dragged there, and later on has been pushed there by a row.
        updateConstraints(round == 0 ? ShiftCause::Drag : ShiftCause::Layout);
        spacing_.layOut(scene_);
        clearCollisionConstraints();
    }
    passRequested_ = false;
    if (std::exchange(contentStale_, false))
        layOutContent();
}

void TreeView::updateConstraints(ShiftCause cause)
{
    glide_.standInPlaces();
    if (std::exchange(membersStale_, false))
        syncNodes();
    constrainRowsOfResized();
    for (const std::int32_t row : spacedRows_.changedRows(pool().generations()))
        constrainCollisionsForGeneration(row);
    takeRows();
    correctLeftEdge(cause);
    personLayer().updateConstraints();
}

void TreeView::correctLeftEdge(ShiftCause cause)
{
    if (!std::exchange(edgeStale_, false))
        return;
    const QScopedValueRollback because(shiftCause_, cause);
    if (const std::int32_t distance = leftEdgeDistance(smallestXConstant().value_or(0)); distance != 0)
        adjustBy(distance);
}

/// Once for each row, however many of its persons were renamed.
void TreeView::constrainRowsOfResized()
{
    std::set<std::int32_t> rows;
    for (const RecordId id : std::exchange(resized_, {})) {
        const Person* const person = pool().context().person(id);
        if (person && person->generation())
            rows.insert(*person->generation());
    }
    for (const std::int32_t row : rows)
        constrainCollisionsForGeneration(row);
}

void TreeView::takeRows()
{
    spacedRows_.take(pool().generations());
}

void TreeView::adjustBy(std::int32_t points)
{
    pool().context().shiftX(pool(), points);
    // Somebody who was just added is on the canvas before joining the family.
    for (LeafView* const node : scene_.personLayer().nodes()) {
        Person& person = node->person();
        if (person.pool() != &pool())
            person.setX(truncated(static_cast<double>(person.x().value_or(0)) - points));
    }
}

void TreeView::trimView()
{
    if (const std::int32_t distance = trimDistance(smallestXConstant().value_or(0)); distance != 0)
        adjustBy(distance);
}

std::optional<double> TreeView::smallestXConstant() const
{
    const auto& nodes = scene_.personLayer().nodes();
    if (nodes.empty())
        return std::nullopt;
    const auto constant = [](const LeafView* node) { return node->xConstraint()->constant; };
    return constant(*std::ranges::min_element(nodes, {}, constant));
}

} // namespace lineara
