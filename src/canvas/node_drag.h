#pragma once

#include "elements/geometry.h"
#include "model/journal.h"

#include <optional>

namespace lineara {

class ElementHost;
class LeafView;
class TreeView;

/// A node between press and release: gives its movement a step of the history, and can take all of it back.
class NodeDrag
{
public:
    explicit NodeDrag(TreeView& canvas) : canvas_(canvas) {}

    void press(LeafView& node);
    void drag(CanvasPoint point, ElementHost& host);
    void release(ElementHost& host);
    /// As if the node had never been pressed.
    void cancel();
    /// The drag is over without a release, and what it has changed stays.
    void drop();

    /// The pressed node, or nullptr.
    LeafView* node() const { return node_; }

    /// Has the row make room for the node where it is held, as if it were dropped there: to be called ahead of whatever
    /// takes the step of the movement as it is now.
    void makeRoom();

    /// To be called ahead of each change of the person's x.
    void ensureStep();
    /// To be called after each pull up or down, with the vertical constant ahead of it.
    void pulledFrom(double height);

private:
    /// Whether nobody has begun a step since the drag has.
    bool hasLatestStep() const;
    /// Whether changes made now belong to the step of the drag.
    bool hasOpenStep() const;
    void goBackToHeight(LeafView& node) const;

    TreeView& canvas_;
    LeafView* node_ = nullptr;
    std::optional<StepId> step_;
    std::optional<double> heightBefore_; // vertical constant ahead of the first pull
};

} // namespace lineara
