// How nodes come to their rows, and how the view stays with them.

#include "canvas/placement.h"
#include "canvas/tree_view.h"

#include <cmath>
#include <utility>

namespace lineara {

void TreeView::refreshHierarchy()
{
    followUp_.stop();
    syncNodes();
    scene_.syncLinks([this](const Person& person) { return isHidden(person); });
    followCommonShift();
    glide_.start(movesToRows());
    scene_.allMoved();
    contentChanged();
    if (!glide_.isRunning())
        runRequested();
    drawInHaste();
}

/// Where all rows have moved alike, the view moves with them, and nodes that glide do so from where they are on the
/// screen.
void TreeView::followCommonShift()
{
    const auto points = static_cast<double>(rowPitch * shownRows_.commonShift(pool()));
    shownRows_.take(pool().generations());
    if (points == 0 || !steady_.followRows(points))
        return;
    for (LeafView* const node : scene_.personLayer().nodes()) {
        if (node->person().generation())
            node->setYConstant(node->yConstraint()->constant - points);
    }
}

/// The moves of those who are or come into view; all others are in their rows at once.
std::vector<RowGlide::Move> TreeView::movesToRows()
{
    std::vector<RowGlide::Move> moves;
    for (const RowGlide::Move& move : glide_.moves()) {
        // Who has lost the last link on the way keeps the row that it was bound for.
        if (!move.node->person().generation())
            moves.push_back({move.node, move.node->yConstraint()->constant, move.to});
    }
    for (LeafView* const node : scene_.personLayer().nodes()) {
        const auto generation = node->person().generation();
        const double from = node->yConstraint()->constant;
        const double to = rowConstant(generation);
        if (!generation || from == to)
            continue;
        if (!reducedMotion_ && comesIntoView(*node, {0, from - to}))
            moves.push_back({node, from, to});
        else
            node->setYConstant(to);
    }
    return moves;
}

/// `way` leads from where the node is to where it goes or comes from, right and up.
bool TreeView::comesIntoView(const LeafView& node, QPointF way) const
{
    const Frame frame = node.frame();
    const Frame swept{frame.x + std::min(way.x(), 0.0), frame.y + std::min(way.y(), 0.0),
                      frame.width + std::abs(way.x()), frame.height + std::abs(way.y())};
    return toPicture(swept).intersects(toPicture(view_.visible()));
}

void TreeView::movePersons(std::span<Person* const> persons, std::span<const std::optional<std::int32_t>> places)
{
    settle();
    const auto seen = seenPart();
    std::vector<double> before;
    for (const LeafView* const node : scene_.personLayer().nodes())
        before.push_back(node->xConstraint()->constant);
    const double left = view_.visible().x;
    pool().context().setMany(PersonAttribute::X, persons, places);
    if (seen)
        showAgain(*seen);
    for (double& place : before)
        place += view_.visible().x - left;
    if (!reducedMotion_)
        glide_.start(movesSideways(before));
    drawInHaste();
}

/// `before` holds where the nodes were in the view.
std::vector<RowGlide::Move> TreeView::movesSideways(const std::vector<double>& before) const
{
    std::vector<RowGlide::Move> moves;
    for (LeafView* const node : scene_.personLayer().nodes()) {
        const double aside = before[node->index()] - node->xConstraint()->constant;
        const double height = node->yConstraint()->constant;
        if (aside != 0 && comesIntoView(*node, {aside, 0}))
            moves.push_back({node, height, height, aside});
    }
    return moves;
}

void TreeView::nodesGlided(const std::vector<RowGlide::Move>& moves)
{
    for (const RowGlide::Move& move : moves)
        scene_.nodeMoved(*move.node);
    contentChanged();
}

void TreeView::glideEnded()
{
    setNeedsUpdateConstraints();
    // The last picture of the glide was drawn in haste.
    rest_.stop();
    redraw();
}

Frame TreeView::frameAtRest(const LeafView& node) const
{
    Frame frame = node.frame();
    frame.x = node.person().x().value_or(0);
    frame.y = lineara::toCanvas(QPointF(0, glide_.goalOf(node).value_or(node.yConstraint()->constant))).y;
    return frame;
}

double TreeView::highestGoal() const
{
    double highest = 0;
    for (const RowGlide::Move& move : glide_.moves())
        highest = std::max(highest, lineara::toCanvas(QPointF(0, move.to)).y + move.node->frame().height);
    return highest;
}

void TreeView::setPointerHold(PointerHold hold)
{
    steady_.setHold(hold);
    if (hold != PointerHold::None) {
        heldCanvas_ = heldCanvas_.expandedTo(view_.canvas());
        return;
    }
    heldCanvas_ = {0, 0};
    layOutContent();
    redraw();
    const auto awaited = std::exchange(awaitedReveal_, std::nullopt);
    if (const Person* const person = awaited ? pool().context().person(*awaited) : nullptr)
        reveal(*person);
}

} // namespace lineara
