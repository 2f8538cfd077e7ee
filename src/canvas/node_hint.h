#pragma once

#include "elements/leaf_view.h"

#include <QString>

#include <optional>

namespace lineara {

/// What a node tells about one of its parts, and where that part is.
struct NodeHint
{
    QString text;
    Frame frame;
};

std::optional<NodeHint> hintOf(const LeafView& node, NodePart part);

} // namespace lineara
