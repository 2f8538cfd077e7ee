#include "handle_hover.h"

#include "elements/connector_view.h"

namespace lineara {

bool HandleHover::moveTo(ConnectorView* handle)
{
    if (handle == entered_)
        return false;
    if (entered_)
        entered_->mouseExited();
    entered_ = handle;
    if (entered_)
        entered_->mouseEntered();
    return true;
}

void HandleHover::forget(const LeafView& node)
{
    if (entered_ && &entered_->node() == &node)
        moveTo(nullptr);
}

} // namespace lineara
