#pragma once

namespace lineara {

class BranchLayerView;
class LeafView;
class Pool;

/// What nodes, handles and link shapes ask of the canvas that shows them, while a pointer is on them.
class ElementHost
{
public:
    virtual const Pool& pool() const = 0;

    virtual void makeFirstResponder(LeafView& node) = 0;
    virtual void makeFirstResponder(BranchLayerView& layer) = 0;

    /// A drag is about to change the x of the node's person.
    virtual void willMove(LeafView& node) = 0;
    /// A drag has changed the node's height; its vertical constant was `before`.
    virtual void wasPulled(LeafView& node, double before) = 0;
    virtual void setNeedsUpdateConstraints() = 0;
    /// Scrolls on for as long as the pointer is dragged at an edge of the view.
    virtual void autoscroll() = 0;

protected:
    ~ElementHost() = default;
};

} // namespace lineara
