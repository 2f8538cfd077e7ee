#pragma once

#include "elements/element_host.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"

#include <string>
#include <vector>

namespace lineara::tests {

/// Stands for the canvas, and writes down what elements ask of it and what they announce, in one order.
class RecordingHost final : public ElementHost
{
public:
    explicit RecordingHost(const Pool& pool) : pool_(pool)
    {
        auto& center = NotificationCenter::defaultCenter();
        observed_ = {
            center.observe<PersonClickedNotification>([this](const auto&) { log.push_back("PersonClicked"); }),
            center.observe<PersonDragEndedNotification>([this](const auto&) { log.push_back("PersonDragEnded"); }),
            center.observe<connectionDragNotification>([this](const auto& drag) { note("connectionDrag", drag); }),
            center.observe<connectionEndNotification>([this](const auto& end) { note("connectionEnd", end); }),
            center.observe<LinkSelectionNotification>([this](const auto& selected) {
                log.push_back(selected.link ? "LinkSelection " + selected.link->type.toStdString()
                                            : "LinkSelection none");
                family = selected.family;
            }),
        };
    }

    const Pool& pool() const override { return pool_; }
    void makeFirstResponder(LeafView&) override { log.push_back("node is first responder"); }
    void makeFirstResponder(BranchLayerView&) override { log.push_back("layer is first responder"); }
    void willMove(LeafView&) override { log.push_back("will move"); }
    void wasPulled(LeafView&, double before) override
    {
        log.push_back("was pulled");
        heightBefore = before;
    }
    void setNeedsUpdateConstraints() override { log.push_back("needs update"); }
    void autoscroll() override { log.push_back("autoscroll"); }

    std::vector<std::string> log;
    double heightBefore = 0;               ///< vertical constant ahead of the last pull
    const ConnectorView* handle = nullptr; ///< of the last notification that named one
    const Pool* family = nullptr;          ///< of the last notification that is looked at

private:
    template<class Notification>
    void note(const std::string& name, const Notification& notification)
    {
        log.push_back(name + " " + notification.type.toStdString());
        handle = notification.fromView;
        family = notification.family;
    }

    const Pool& pool_;
    std::vector<Subscription> observed_;
};

} // namespace lineara::tests
