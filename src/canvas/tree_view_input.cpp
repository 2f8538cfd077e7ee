// What the canvas does with buttons and keys.

#include "canvas/tree_view.h"
#include "canvas_gestures.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "tree_walk.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace lineara {

namespace {

std::optional<WalkDirection> walkDirection(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return WalkDirection::ToParent;
    case Qt::Key_Down:
        return WalkDirection::ToChild;
    case Qt::Key_Left:
        return WalkDirection::Left;
    case Qt::Key_Right:
        return WalkDirection::Right;
    default:
        return std::nullopt;
    }
}

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Menus and other windows borrow the keyboard and give it back.
bool isBorrowed(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
}

} // namespace

bool TreeView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
        gestures_->activationChanged();
        break;
    case QEvent::WindowDeactivate:
        pointerLost();
        gestures_->activationChanged();
        break;
    case QEvent::Hide:
        pointerLost();
        break;
    case QEvent::ShortcutOverride:
        // While something is dragged, Escape is the canvas's own, whatever else it may be a shortcut for.
        if (gestures_->isHolding() && static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QAbstractScrollArea::event(event);
}

void TreeView::mousePressEvent(QMouseEvent* event)
{
    if (gestures_->isHolding() && event->button() != Qt::LeftButton)
        return;
    if (!navigation_.press(*event) && event->button() == Qt::LeftButton && !pressToCompare(*event))
        gestures_->press(event->position());
    setPointerHold(gestures_->isHoldingNode() ? PointerHold::Node : PointerHold::Canvas);
    updateCursor();
}

/// The second press of two quick ones is a press like any other.
void TreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void TreeView::mouseMoveEvent(QMouseEvent* event)
{
    if (!movedByHand(navigation_.move(*event)))
        gestures_->move(event->position(), event->buttons());
    if (event->buttons() == Qt::NoButton && steady_.hold() != PointerHold::None)
        pointerLost();
}

void TreeView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!navigation_.release(*event) && event->button() == Qt::LeftButton)
        gestures_->release(event->position());
    if (event->buttons() == Qt::NoButton)
        setPointerHold(PointerHold::None);
    updateCursor();
}

/// Where it is let go will not be heard of.
void TreeView::pointerLost()
{
    gestures_->cancel();
    setPointerHold(PointerHold::None);
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    if (!pressKey(*event))
        QAbstractScrollArea::keyPressEvent(event);
    updateCursor();
}

bool TreeView::pressKey(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Escape && gestures_->cancel()) {
        setPointerHold(PointerHold::Canvas);
        return true;
    }
    if (event.key() == Qt::Key_Escape && dismissHighlight())
        return true;
    if (navigation_.key(event))
        return true;
    if (gestures_->isHolding() || (event.modifiers() & ~Qt::KeypadModifier))
        return false;
    if (isReturn(event.key()) && firstResponderNode()) {
        Q_EMIT editNameRequested();
        return true;
    }
    const auto direction = walkDirection(event.key());
    return direction && walk(*direction);
}

/// False where there is nobody to walk to or from.
bool TreeView::walk(WalkDirection direction)
{
    const LeafView* const from = firstResponderNode();
    LeafView* const to =
        from ? nodeBeside(personLayer(), *from, direction) : nodeNearest(personLayer(), view_.visible().centre());
    if (!to)
        return from != nullptr;
    gestures_->focusOn(*to);
    NotificationCenter::defaultCenter().enqueue(PersonClickedNotification{&pool(), to->person().recordId()});
    reveal(to->person());
    return true;
}

void TreeView::keyReleaseEvent(QKeyEvent* event)
{
    if (!navigation_.key(*event))
        QAbstractScrollArea::keyReleaseEvent(event);
    updateCursor();
}

void TreeView::focusInEvent(QFocusEvent* event)
{
    gestures_->focusChanged();
    QAbstractScrollArea::focusInEvent(event);
}

void TreeView::focusOutEvent(QFocusEvent* event)
{
    navigation_.letGo();
    if (!isBorrowed(event->reason()))
        gestures_->resignFocus();
    else if (event->reason() == Qt::PopupFocusReason)
        pointerLost();
    gestures_->focusChanged();
    updateCursor();
    QAbstractScrollArea::focusOutEvent(event);
}

LeafView* TreeView::firstResponderNode() const
{
    return gestures_->firstResponderNode();
}

void TreeView::clearFirstResponder()
{
    gestures_->clearFirstResponder();
}

void TreeView::nodeMoved(const LeafView& node)
{
    if (!scene_.shows(node.person()))
        return;
    scene_.nodeMoved(node);
    contentChanged();
}

bool TreeView::moves() const
{
    return rest_.isActive() || glide_.isRunning() || gestures_->isDragging();
}

} // namespace lineara
