#pragma once

// The hand on the mouse.

#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "view_driver.h"

#include <string>
#include <vector>

namespace lineara {

/// Presses, moves and releases the left button over a canvas. Places are pixels of the viewport.
class Hand
{
public:
    explicit Hand(TreeView& view) : view_(view) {}

    void press(QPointF at)
    {
        hover(at);
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    }
    void drag(QPointF to) { send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton); }
    void dragBy(QPointF way) { drag(at_ + way); }
    void release() { send(QEvent::MouseButtonRelease, at_, Qt::LeftButton, Qt::NoButton); }
    void click(QPointF at)
    {
        press(at);
        release();
    }
    /// Moves without a button.
    void hover(QPointF to) { send(QEvent::MouseMove, to, Qt::NoButton, Qt::NoButton); }
    QPointF at() const { return at_; }

    QPointF panel(const Person& person) const { return view_.toViewport(person.leafView()->infoFrame().centre()); }
    QPointF picture(const Person& person) const { return view_.toViewport(person.leafView()->imageFrame().centre()); }
    /// On the node, but on none of its parts.
    QPointF background(const Person& person) const
    {
        const Frame node = person.leafView()->frame();
        return view_.toViewport({node.x + 1, node.y + 1});
    }
    QPointF partnerHandle(const Person& person) const
    {
        return view_.toViewport(person.leafView()->partnerHandle().frame().centre());
    }
    QPointF childHandle(const Person& person) const
    {
        return view_.toViewport(person.leafView()->childHandle().frame().centre());
    }

private:
    void send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        at_ = at;
        sendMouse(view_, type, at, button, buttons);
    }

    TreeView& view_;
    QPointF at_;
};

/// Writes down what is announced about a family, in the order of delivery.
class Announcements
{
public:
    explicit Announcements(const Pool& pool)
    {
        observe<PersonClickedNotification>(pool, "PersonClicked");
        observe<PersonDragEndedNotification>(pool, "PersonDragEnded");
        observe<connectionDragNotification>(pool, "connectionDrag");
        observe<connectionEndNotification>(pool, "connectionEnd");
        observe<createLinkNotification>(pool, "createLink");
        links_ =
            NotificationCenter::defaultCenter().observe<LinkSelectionNotification>([this, &pool](const auto& made) {
                if (made.family == &pool)
                    log.push_back(made.link ? "LinkSelection" : "LinkSelection none");
            });
    }

    std::vector<std::string> log;

private:
    template<class Notification>
    void observe(const Pool& pool, const char* name)
    {
        observed_.push_back(
            NotificationCenter::defaultCenter().observe<Notification>([this, &pool, name](const auto& posted) {
                if (posted.family == &pool)
                    log.push_back(name);
            }));
    }

    std::vector<Subscription> observed_;
    Subscription links_;
};

} // namespace lineara
