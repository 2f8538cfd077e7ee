#pragma once

#include "elements/geometry.h"

#include <QColor>
#include <QString>

namespace lineara {

class ElementHost;
class LeafView;
class Person;

/// A round handle of a node. Dragging it to another person makes a link of the handle's type.
class ConnectorView
{
public:
    /// `type` is "partner" for the partner handle; every other value makes a child handle.
    ConnectorView(LeafView& node, QString type) : node_(&node), type_(std::move(type)) {}

    LeafView& node() const { return *node_; }
    Person& person() const;
    const QString& type() const { return type_; }
    bool isPartnerHandle() const;

    /// The handle's square in canvas coordinates; its centre is where a rubber band starts.
    Frame frame() const;
    /// The circle: inset from the frame by 1 on every side.
    Frame circle() const;

    /// Colour of the type, whatever the pointer does.
    QColor fillColor() const;
    /// What is drawn: orange while hovered or dragged.
    QColor circleFill() const;
    static double lineWidth() { return 1.0; }

    bool isHighlighted() const { return highlighted_; }
    void mouseEntered() { highlighted_ = true; }
    void mouseExited() { highlighted_ = false; }
    // A press does nothing, and never reaches the node.
    void mouseDragged(ElementHost& host);
    /// Announced at every release, dragged or not.
    void mouseUp(ElementHost& host);

    /// Tells what dragging the handle does.
    QString toolTip() const;

private:
    LeafView* node_;
    QString type_;
    bool highlighted_ = false;
};

} // namespace lineara
