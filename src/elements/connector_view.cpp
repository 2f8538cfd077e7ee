#include "elements/connector_view.h"

#include "elements/colours.h"
#include "elements/element_host.h"
#include "elements/leaf_view.h"
#include "elements/node_layout.h"
#include "elements/notifications.h"
#include "model/pool.h"
#include "platform/notification_center.h"

#include <QCoreApplication>

namespace lineara {

Person& ConnectorView::person() const
{
    return node_->person();
}

bool ConnectorView::isPartnerHandle() const
{
    return type_ == partnerLink;
}

Frame ConnectorView::frame() const
{
    using namespace node_layout;
    const Frame panel = node_->infoFrame();
    const CanvasPoint centre = isPartnerHandle() ? CanvasPoint{panel.x + panel.width, panel.centre().y}
                                                 : CanvasPoint{panel.centre().x, panel.y};
    return {centre.x - handleSize / 2, centre.y - handleSize / 2, handleSize, handleSize};
}

Frame ConnectorView::circle() const
{
    const Frame bounds = frame();
    return {bounds.x + 1, bounds.y + 1, bounds.width - 2, bounds.height - 2};
}

QColor ConnectorView::fillColor() const
{
    return colours::linkFill(type_);
}

QColor ConnectorView::circleFill() const
{
    return highlighted_ ? colours::handleHover() : fillColor();
}

void ConnectorView::mouseDragged(ElementHost& host)
{
    highlighted_ = true;
    host.autoscroll();
    NotificationCenter::defaultCenter().post(connectionDragNotification{&host.pool(), type_, this});
}

void ConnectorView::mouseUp(ElementHost& host)
{
    highlighted_ = false;
    NotificationCenter::defaultCenter().post(connectionEndNotification{&host.pool(), type_, this});
}

QString ConnectorView::toolTip() const
{
    return isPartnerHandle() ? QCoreApplication::translate("ConnectorView", "Click and drag to connect to partner")
                             : QCoreApplication::translate("ConnectorView", "Click and drag to connect to child");
}

} // namespace lineara
