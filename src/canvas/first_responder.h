#pragma once

namespace lineara {

class BranchLayerView;
class LeafView;

/// Whom on the canvas the keyboard concerns: a node, the layer of links, or nobody. Kept by the canvas itself, whether
/// it has the keyboard focus of its window or not.
class FirstResponder
{
public:
    explicit FirstResponder(BranchLayerView& layer) : layer_(layer) {}

    /// Nullptr unless it is a node.
    LeafView* node() const { return node_; }
    bool isBranchLayer() const { return isBranchLayer_; }

    void become(LeafView& node);
    void becomeBranchLayer();
    void becomeNobody();

private:
    BranchLayerView& layer_;
    LeafView* node_ = nullptr;
    bool isBranchLayer_ = false;
};

} // namespace lineara
