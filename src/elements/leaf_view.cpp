#include "elements/leaf_view.h"

#include "elements/node_layout.h"
#include "model/person.h"

#include <algorithm>
#include <cmath>

namespace lineara {

// Memory grows with the family: a node is what it shows and no more.
static_assert(sizeof(LeafView) <= 200);

LeafView::LeafView(Person& person, RandomSource& random)
    : person_(&person), imageView_(person, random), infoView_(person), partnerHandle_(*this, u"partner"_qs),
      childHandle_(*this, u"offspring"_qs)
{}

void LeafView::setXConstant(double constant)
{
    if (xConstraint_)
        xConstraint_->constant = constant;
}

void LeafView::setYConstant(double constant)
{
    if (yConstraint_)
        yConstraint_->constant = constant;
}

void LeafView::updateXConstraint()
{
    setXConstant(person_->x().value_or(0));
}

Frame LeafView::frame() const
{
    const double left = xConstraint_ ? xConstraint_->constant : 0;
    const double bottom = yConstraint_ ? toCanvas({0, yConstraint_->constant}).y : 0;
    return {left, bottom, static_cast<double>(width()), node_layout::nodeHeight};
}

int LeafView::width() const
{
    using namespace node_layout;
    const double asked = std::max(infoView_.width() + 2 * handleOverhang, imageView_.widthConstraint().constant);
    return std::max(leastNodeSize, static_cast<int>(std::ceil(std::min<double>(asked, greatestNodeWidth))));
}

Frame LeafView::imageFrame() const
{
    using namespace node_layout;
    const Frame node = frame();
    const double shown = std::min(std::ceil(imageView_.widthConstraint().constant), node.width);
    return {node.x + (node.width - shown) / 2, node.y + pictureBottom, shown, pictureHeight};
}

Frame LeafView::infoFrame() const
{
    using namespace node_layout;
    const Frame node = frame();
    return {node.x + handleOverhang, node.y + panelBottom, node.width - 2 * handleOverhang, panelHeight};
}

std::optional<NodePart> LeafView::partAt(CanvasPoint point) const
{
    if (partnerHandle_.frame().contains(point))
        return NodePart::PartnerHandle;
    if (childHandle_.frame().contains(point))
        return NodePart::ChildHandle;
    if (infoFrame().contains(point))
        return NodePart::Info;
    if (imageFrame().contains(point))
        return NodePart::Image;
    return std::nullopt;
}

} // namespace lineara
