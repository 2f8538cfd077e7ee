#include "elements/person_layer_view.h"

#include "elements/colours.h"

#include <algorithm>

namespace lineara {

PersonLayerView::~PersonLayerView()
{
    for (LeafView* const node : nodes_)
        letGo(*node);
}

void PersonLayerView::addNode(LeafView& node)
{
    if (contains(node))
        return;
    node.index_ = static_cast<std::uint32_t>(nodes_.size());
    nodes_.push_back(&node);
    node.layerPasses_ = &passes_;
    node.minimumSizePairs_ -= passes_;
}

void PersonLayerView::removeNode(LeafView& node)
{
    if (!contains(node))
        return;
    if (marks_.focused == &node)
        marks_.focused = nullptr;
    if (marks_.linkTarget && marks_.linkTarget->node == &node)
        marks_.linkTarget.reset();
    letGo(node);
    nodes_.erase(nodes_.begin() + node.index_);
    for (std::size_t index = node.index_; index < nodes_.size(); ++index)
        nodes_[index]->index_ = static_cast<std::uint32_t>(index);
}

/// The node keeps the passes that it has seen.
void PersonLayerView::letGo(LeafView& node) const
{
    node.layerPasses_ = nullptr;
    node.minimumSizePairs_ += passes_;
}

bool PersonLayerView::contains(const LeafView& node) const
{
    return node.index_ < nodes_.size() && nodes_[node.index_] == &node;
}

LeafView* PersonLayerView::nodeAt(CanvasPoint point) const
{
    const auto found = std::find_if(nodes_.rbegin(), nodes_.rend(),
                                    [&](const LeafView* node) { return node->frame().contains(point); });
    return found != nodes_.rend() ? *found : nullptr;
}

void PersonLayerView::drawConnection(const QString& type, CanvasPoint from, CanvasPoint to)
{
    connection_ = RubberBand{colours::linkStroke(type), from, to};
}

} // namespace lineara
