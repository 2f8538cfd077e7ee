#pragma once

namespace lineara {

class ConnectorView;
class LeafView;

/// Which handle the pointer is on. A handle is told when the pointer enters and leaves it, and not in between.
class HandleHover
{
public:
    /// The handle under the pointer now, or nullptr. True if that is another one than before.
    bool moveTo(ConnectorView* handle);

    /// To be called before a node is destroyed.
    void forget(const LeafView& node);

private:
    ConnectorView* entered_ = nullptr;
};

} // namespace lineara
