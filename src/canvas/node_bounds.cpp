#include "canvas/node_bounds.h"

#include "elements/leaf_view.h"

#include <algorithm>

namespace lineara {

namespace {

constexpr std::size_t blockSize = 256;

} // namespace

void NodeBounds::moved(std::size_t at)
{
    if (at / blockSize < blocks_.size())
        blocks_[at / blockSize].reset();
}

NodeBounds::Edges NodeBounds::around(const Edges& one, const Edges& other)
{
    return {std::min(one.left, other.left), std::min(one.bottom, other.bottom), std::max(one.right, other.right),
            std::max(one.top, other.top)};
}

NodeBounds::Edges NodeBounds::around(std::span<LeafView* const> nodes)
{
    const auto edgesOf = [](const LeafView& node) {
        const Frame frame = node.frame();
        return Edges{frame.x, frame.y, frame.x + frame.width, frame.y + frame.height};
    };
    Edges edges = edgesOf(*nodes.front());
    for (const LeafView* const node : nodes.subspan(1))
        edges = around(edges, edgesOf(*node));
    return edges;
}

std::optional<Frame> NodeBounds::of(std::span<LeafView* const> nodes)
{
    if (nodes.empty())
        return std::nullopt;
    blocks_.resize((nodes.size() + blockSize - 1) / blockSize);
    for (std::size_t block = 0; block < blocks_.size(); ++block) {
        const std::size_t begin = block * blockSize;
        if (!blocks_[block])
            blocks_[block] = around(nodes.subspan(begin, std::min(blockSize, nodes.size() - begin)));
    }
    Edges all = *blocks_.front();
    for (const std::optional<Edges>& block : blocks_)
        all = around(all, *block);
    return Frame{all.left, all.bottom, all.right - all.left, all.top - all.bottom};
}

} // namespace lineara
