#include "accessible_node.h"

#include "canvas/tree_view.h"
#include "elements/notifications.h"
#include "model/person.h"
#include "platform/notification_center.h"

#include <QCoreApplication>

namespace lineara {

namespace {

QString nameOf(const LeafView& node)
{
    const QString name = node.infoView().isNameless() ? node.infoView().nameLines().join(u' ') : *node.person().name();
    const QString era = node.person().era();
    return era.isEmpty() ? name : name + QStringLiteral(", ") + era;
}

/// Whether it is brought out among others or dimmed; nothing while nobody is, and of a selected node, which never is.
QString standingOf(const TreeView& canvas, const LeafView& node)
{
    if (!canvas.isHighlighting())
        return {};
    if (node.isHighlighted())
        return QCoreApplication::translate("TreeView", "Highlighted");
    return FamilyScene::standsOut(node) ? QString() : QCoreApplication::translate("TreeView", "Dimmed");
}

} // namespace

LeafView* AccessibleElement::node() const
{
    const Person* const person = canvas_.pool().context().person(person_);
    return person && canvas_.scene().shows(*person) ? person->leafView() : nullptr;
}

QRect AccessibleElement::rect() const
{
    if (!isValid())
        return {};
    const Frame place = frame();
    const QRectF pixels(canvas_.toViewport({place.x, place.y + place.height}),
                        canvas_.toViewport({place.x + place.width, place.y}));
    const QRect seen = pixels.toAlignedRect();
    return {canvas_.viewport()->mapToGlobal(seen.topLeft()), seen.size()};
}

QAccessible::State AccessibleElement::state() const
{
    QAccessible::State state;
    const QRect view(canvas_.viewport()->mapToGlobal(QPoint(0, 0)), canvas_.viewport()->size());
    state.invalid = !isValid();
    state.offscreen = !view.intersects(rect());
    state.invisible = !canvas_.isVisible();
    return state;
}

QAccessibleInterface* AccessibleHandle::parent() const
{
    QAccessibleInterface* const canvasInterface = QAccessible::queryAccessibleInterface(&canvas());
    const LeafView* const shown = node();
    return shown ? canvasInterface->child(static_cast<int>(shown->index())) : nullptr;
}

const ConnectorView& AccessibleHandle::handle() const
{
    return kind_ == Kind::Partner ? node()->partnerHandle() : node()->childHandle();
}

Frame AccessibleHandle::frame() const
{
    return handle().frame();
}

QString AccessibleHandle::text(QAccessible::Text what) const
{
    return what == QAccessible::Name && isValid() ? handle().toolTip() : QString();
}

AccessibleNode::~AccessibleNode()
{
    for (const auto& id : handles_) {
        if (id)
            QAccessible::deleteAccessibleInterface(*id);
    }
}

QAccessibleInterface* AccessibleNode::parent() const
{
    return QAccessible::queryAccessibleInterface(&canvas());
}

Frame AccessibleNode::frame() const
{
    return node()->frame();
}

QAccessibleInterface* AccessibleNode::child(int index) const
{
    if (!isValid() || index < 0 || index >= childCount())
        return nullptr;
    auto& id = handles_[static_cast<std::size_t>(index)];
    if (!id) {
        const auto kind = index == 0 ? AccessibleHandle::Kind::Partner : AccessibleHandle::Kind::Child;
        id =
            QAccessible::registerAccessibleInterface(new AccessibleHandle(canvas(), node()->person().recordId(), kind));
    }
    return QAccessible::accessibleInterface(*id);
}

QAccessibleInterface* AccessibleNode::childAt(int x, int y) const
{
    for (int index = 0; index < childCount(); ++index) {
        QAccessibleInterface* const handle = child(index);
        if (handle && handle->rect().contains(x, y))
            return handle;
    }
    return nullptr;
}

int AccessibleNode::indexOfChild(const QAccessibleInterface* child) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (child && this->child(index) == child)
            return index;
    }
    return -1;
}

QAccessible::State AccessibleNode::state() const
{
    QAccessible::State state = AccessibleElement::state();
    const LeafView* const shown = node();
    state.focusable = true;
    state.selectable = true;
    state.selected = shown && shown->infoView().isFocused();
    state.focused = shown && canvas().hasFocus() && canvas().firstResponderNode() == shown;
    return state;
}

QString AccessibleNode::text(QAccessible::Text what) const
{
    if (!isValid())
        return {};
    if (what == QAccessible::Description)
        return standingOf(canvas(), *node());
    return what == QAccessible::Name ? nameOf(*node()) : QString();
}

void* AccessibleNode::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleNode::actionNames() const
{
    return {pressAction()};
}

void AccessibleNode::doAction(const QString& name)
{
    if (name != pressAction() || !isValid())
        return;
    const RecordId person = node()->person().recordId();
    NotificationCenter::defaultCenter().enqueue(PersonClickedNotification{&canvas().pool(), person});
}

} // namespace lineara
