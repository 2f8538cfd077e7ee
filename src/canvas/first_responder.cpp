#include "first_responder.h"

#include "elements/branch_layer_view.h"

namespace lineara {

void FirstResponder::become(LeafView& node)
{
    becomeNobody();
    node_ = &node;
}

void FirstResponder::becomeBranchLayer()
{
    node_ = nullptr;
    isBranchLayer_ = true;
}

void FirstResponder::becomeNobody()
{
    node_ = nullptr;
    isBranchLayer_ = false;
    layer_.resignFirstResponder();
}

} // namespace lineara
