// Some persons brought out among all others, and the click that compares two of them.

#include "canvas/tree_view.h"
#include "canvas_accessibility.h"
#include "model/person.h"

#include <QMouseEvent>

namespace lineara {

void TreeView::setHighlight(std::span<const RecordId> persons)
{
    scene_.setHighlight(persons);
    redraw();
    announceHighlight(*this);
}

void TreeView::clearHighlight()
{
    const bool wasHighlighting = isHighlighting();
    scene_.clearHighlight();
    redraw();
    if (wasHighlighting)
        announceHighlight(*this);
}

bool TreeView::dismissHighlight()
{
    if (!isHighlighting())
        return false;
    clearHighlight();
    Q_EMIT highlightDismissed();
    return true;
}

bool TreeView::pressToCompare(const QMouseEvent& event)
{
    if (event.modifiers() != Qt::ControlModifier)
        return false;
    const CanvasHit found = hitNode(toCanvas(event.position()));
    if (!found.node)
        return false;
    Q_EMIT comparisonRequested(found.node->person().recordId());
    return true;
}

} // namespace lineara
