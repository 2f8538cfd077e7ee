#pragma once

#include "elements/notifications.h"

#include <QPointF>

namespace lineara {

class LeafView;
class TreeView;

/// A link between the press on a handle and the release: draws the rubber band, shows at the node under the pointer
/// whether a link is possible, and makes it where the handle is released.
class LinkDrag
{
public:
    explicit LinkDrag(TreeView& canvas) : canvas_(canvas) {}

    /// `pointer` is in pixels of the viewport. Both are for notifications of the canvas's own family.
    void connectionDrag(const connectionDragNotification& drag, QPointF pointer);
    void connectionEnd(const connectionEndNotification& end, QPointF pointer);
    /// Leaves nothing to be seen.
    void clear();

    /// To be called before a node leaves the canvas.
    void forget(const LeafView& node);

private:
    LeafView* nodeUnder(QPointF pointer) const;
    void enter(LeafView* node, const connectionDragNotification& drag);

    TreeView& canvas_;
    const LeafView* entered_ = nullptr;
};

} // namespace lineara
