#pragma once

#include "autoscroll.h"
#include "elements/element_host.h"
#include "first_responder.h"
#include "handle_hover.h"
#include "link_drag.h"
#include "node_drag.h"
#include "platform/observer_list.h"

#include <QPointF>

#include <cstdint>
#include <optional>

namespace lineara {

struct CanvasHit;
enum class NodePart : std::uint8_t;

/// What the pointer does on a canvas, apart from moving the view: hovers over handles, picks links, drags nodes, and
/// drags links from handles. Only the left button counts. All points are in pixels of the viewport.
class CanvasGestures final : private ElementHost
{
public:
    explicit CanvasGestures(TreeView& canvas);
    virtual ~CanvasGestures();
    CanvasGestures(const CanvasGestures&) = delete;
    CanvasGestures& operator=(const CanvasGestures&) = delete;

    void press(QPointF pixel);
    void move(QPointF pixel, Qt::MouseButtons buttons);
    void release(QPointF pixel);
    /// The pointer has left the view.
    void leave();
    /// The window has become the active one, or is so no longer. Handles light up in the active one only.
    void activationChanged();
    /// Ends a gesture as if it had never been begun, wherever the pointer is let go. False if there is none.
    bool cancel();

    /// True from press to release, and from the first movement to release.
    bool isHolding() const { return held_ != Held::Nothing; }
    bool isDragging() const { return isDragging_; }
    bool isHoldingNode() const { return held_ == Held::Node; }

    /// The user has moved the view beneath the pointer: what is dragged stays with the pointer.
    void scrolledByHand();
    /// The program has moved the view: what is dragged stays with the canvas.
    void viewMoved();
    /// What is being dragged leaves the family in order, and is dragged on.
    void settle();
    /// To be called before a node leaves the canvas.
    void forget(const LeafView& node);
    /// Records have gone back to, or come from, another state.
    void replayed();

    LeafView* firstResponderNode() const { return responder_.node(); }
    void makeFirstResponder(LeafView& node) override;
    /// The node becomes first responder of the canvas, which keeps the keyboard focus or goes without it as before.
    void focusOn(LeafView& node);
    void clearFirstResponder();
    /// Whether what is typed goes to the canvas has changed.
    void focusChanged();
    /// The keyboard focus has gone to another widget of the window.
    void resignFocus();

private:
    enum class Held : std::uint8_t
    {
        Nothing,
        Node,
        Handle,
        Elsewhere
    };

    const Pool& pool() const override;
    void makeFirstResponder(BranchLayerView& layer) override;
    void willMove(LeafView& node) override;
    void wasPulled(LeafView& node, double before) override;
    void setNeedsUpdateConstraints() override;
    void autoscroll() override;

    void pressOn(const CanvasHit& found);
    void pressOn(LeafView& node, std::optional<NodePart> part);
    void drag();
    void hover();
    void letGo();
    CanvasPoint dragPoint() const;

    TreeView& canvas_;
    FirstResponder responder_;
    HandleHover hover_;
    NodeDrag node_;
    LinkDrag link_;
    Autoscroll autoscroll_;
    ConnectorView* handle_ = nullptr; // while it is held
    std::optional<QPointF> pointer_;  // where it was last; no value while it is elsewhere
    Held held_ = Held::Nothing;
    bool isDragging_ = false;
    Subscription drags_;
    Subscription ends_;
};

} // namespace lineara
