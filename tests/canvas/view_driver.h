#pragma once

// What tests do to a canvas in the place of a user, and how they look at it.

#include "shown_family.h"

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <QWheelEvent>

namespace lineara {

/// A family of 40 x 9 persons, several views wide and high.
inline void addManyRows(ShownFamily& family)
{
    for (int row = 1; row <= 9; ++row)
        for (int place = 0; place < 40; ++place)
            family.add(place * 152, row);
}

inline void turnWheel(TreeView& view, QPoint angle, Qt::KeyboardModifiers modifiers, QPointF at = {300, 200})
{
    QWheelEvent event(at, view.viewport()->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

inline void sendMouse(TreeView& view, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

inline QImage pictureOf(TreeView& view)
{
    QImage image(view.viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    view.viewport()->render(&image);
    return image;
}

inline bool isBlank(const QImage& image)
{
    QImage white(image.size(), image.format());
    white.fill(Qt::white);
    return image == white;
}

inline bool isInView(const TreeView& view, const Person& person)
{
    const Frame node = person.leafView()->frame();
    const QRectF pixels(view.toViewport({node.x, node.y + node.height}),
                        view.toViewport({node.x + node.width, node.y}));
    return QRectF(view.viewport()->rect()).contains(pixels);
}

} // namespace lineara
