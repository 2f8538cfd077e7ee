#include "accessible_canvas.h"

#include "accessible_node.h"
#include "canvas/tree_view.h"

#include <QCoreApplication>

#include <algorithm>

namespace lineara {

namespace {

QString highlightOf(TreeView& canvas)
{
    const auto isHighlighted = [](const LeafView* node) { return node->isHighlighted(); };
    const auto count = static_cast<int>(std::ranges::count_if(canvas.personLayer().nodes(), isHighlighted));
    return QCoreApplication::translate("TreeView", "%n person(s) highlighted, everybody else dimmed", nullptr, count);
}

} // namespace

AccessibleCanvas::AccessibleCanvas(TreeView& canvas)
    : QAccessibleWidget(&canvas, QAccessible::Tree, QCoreApplication::translate("TreeView", "Family tree"))
{}

AccessibleCanvas::~AccessibleCanvas()
{
    for (const auto& [person, id] : nodes_)
        QAccessible::deleteAccessibleInterface(id);
}

TreeView& AccessibleCanvas::canvas() const
{
    return static_cast<TreeView&>(*widget());
}

int AccessibleCanvas::childCount() const
{
    return static_cast<int>(canvas().personLayer().nodes().size());
}

QAccessibleInterface* AccessibleCanvas::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    return nodeOf(canvas().personLayer().nodes()[static_cast<std::size_t>(index)]->person().recordId());
}

/// Named by the person, for nodes may come and go while a tool holds on to what it was given.
QAccessibleInterface* AccessibleCanvas::nodeOf(RecordId person) const
{
    if (const auto known = nodes_.find(person); known != nodes_.end())
        return QAccessible::accessibleInterface(known->second);
    auto* const made = new AccessibleNode(canvas(), person);
    nodes_.emplace(person, QAccessible::registerAccessibleInterface(made));
    return made;
}

QAccessibleInterface* AccessibleCanvas::childAt(int x, int y) const
{
    const QPoint pixel = canvas().viewport()->mapFromGlobal(QPoint(x, y));
    const LeafView* const node = canvas().hitNode(canvas().toCanvas(QPointF(pixel))).node;
    return node && canvas().viewport()->rect().contains(pixel) ? nodeOf(node->person().recordId()) : nullptr;
}

int AccessibleCanvas::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const node = dynamic_cast<const AccessibleNode*>(child);
    const LeafView* const shown = node && &node->canvas() == &canvas() ? node->node() : nullptr;
    return shown ? static_cast<int>(shown->index()) : -1;
}

QAccessibleInterface* AccessibleCanvas::focusChild() const
{
    const LeafView* const node = canvas().hasFocus() ? canvas().firstResponderNode() : nullptr;
    return node ? nodeOf(node->person().recordId()) : nullptr;
}

QString AccessibleCanvas::text(QAccessible::Text what) const
{
    if (what != QAccessible::Description || !canvas().isHighlighting())
        return QAccessibleWidget::text(what);
    return highlightOf(canvas());
}

} // namespace lineara
