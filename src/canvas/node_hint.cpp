#include "node_hint.h"

#include "elements/shortened_text.h"

namespace lineara {

namespace {

NodeHint hintOf(const ConnectorView& handle)
{
    return {handle.toolTip(), handle.frame()};
}

} // namespace

std::optional<NodeHint> hintOf(const LeafView& node, NodePart part)
{
    switch (part) {
    case NodePart::PartnerHandle:
        return hintOf(node.partnerHandle());
    case NodePart::ChildHandle:
        return hintOf(node.childHandle());
    case NodePart::Info:
        if (const auto wholeName = node.infoView().toolTip())
            return NodeHint{plainToolTip(*wholeName), node.infoFrame()};
        return std::nullopt;
    case NodePart::Image:
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace lineara
