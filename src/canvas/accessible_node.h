#pragma once

#include "elements/geometry.h"
#include "model/record.h"

#include <QAccessible>

#include <array>
#include <optional>

namespace lineara {

class ConnectorView;
class LeafView;
class TreeView;

/// What nodes and handles have in common for assistive tools: a place on a canvas. Invalid once the person is no longer
/// shown; it may come back.
class AccessibleElement : public QAccessibleInterface
{
public:
    AccessibleElement(TreeView& canvas, RecordId person) : canvas_(canvas), person_(person) {}

    TreeView& canvas() const { return canvas_; }
    /// Nullptr while the person is not shown.
    LeafView* node() const;

    bool isValid() const override { return node() != nullptr; }
    QObject* object() const override { return nullptr; }
    QRect rect() const override;
    QAccessible::State state() const override;
    void setText(QAccessible::Text, const QString&) override {}

protected:
    virtual Frame frame() const = 0;

private:
    TreeView& canvas_;
    RecordId person_;
};

/// One of the two handles of a node.
class AccessibleHandle : public AccessibleElement
{
public:
    enum class Kind
    {
        Partner,
        Child
    };
    AccessibleHandle(TreeView& canvas, RecordId person, Kind kind) : AccessibleElement(canvas, person), kind_(kind) {}

    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    QString text(QAccessible::Text what) const override;

private:
    Frame frame() const override;
    const ConnectorView& handle() const;

    Kind kind_;
};

/// The node of a person: its children are the two handles, and pressing it selects the person.
class AccessibleNode : public AccessibleElement, private QAccessibleActionInterface
{
public:
    AccessibleNode(TreeView& canvas, RecordId person) : AccessibleElement(canvas, person) {}
    ~AccessibleNode() override;

    QAccessibleInterface* parent() const override;
    int childCount() const override { return 2; }
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text what) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

private:
    Frame frame() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    mutable std::array<std::optional<QAccessible::Id>, 2> handles_; // made when first asked for
};

} // namespace lineara
