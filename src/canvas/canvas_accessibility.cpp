#include "canvas_accessibility.h"

#include "accessible_canvas.h"
#include "canvas/tree_view.h"

#include <QAccessible>

namespace lineara {

namespace {

QAccessibleInterface* accessibleCanvas(const QString&, QObject* object)
{
    auto* const canvas = qobject_cast<TreeView*>(object);
    return canvas ? new AccessibleCanvas(*canvas) : nullptr;
}

} // namespace

void installCanvasAccessibility()
{
    QAccessible::installFactory(accessibleCanvas);
}

void announceFocus(TreeView& canvas, const LeafView& node)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&canvas, QAccessible::Focus);
    event.setChild(static_cast<int>(node.index()));
    QAccessible::updateAccessibility(&event);
}

void announceHighlight(TreeView& canvas)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&canvas, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
    if (const LeafView* const node = canvas.firstResponderNode()) {
        event.setChild(static_cast<int>(node->index()));
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace lineara
