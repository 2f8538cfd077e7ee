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
        if (!reducedMotion_ && comesIntoView(*node, from, to))
            moves.push_back({node, from, to});
        else
            node->setYConstant(to);
    }
    return moves;
}

bool TreeView::comesIntoView(const LeafView& node, double from, double to) const
{
    const Frame frame = node.frame();
    const double lowest = std::min(frame.y, frame.y + from - to);
    const QRectF swept = toPicture(Frame{frame.x, lowest, frame.width, frame.height + std::abs(to - from)});
    return swept.intersects(toPicture(view_.visible()));
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
