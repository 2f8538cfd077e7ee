#pragma once

#include "elements/geometry.h"

#include <QColor>
#include <QPainterPath>

class QPainter;

namespace lineara {

class LeafView;
struct ImageLayer;

/// A leaf turned by an angle, in picture coordinates from the bottom left corner of its box.
QPainterPath turnedLeaf(double angle);

/// The true shapes of a node's parts. Rectangles and points are in picture coordinates.
void paintLeaf(QPainter& painter, const QPainterPath& leaf);
void paintHandle(QPainter& painter, const QRectF& circle, const QColor& fill);
/// The middle of the picture, as wide as there is room, within its border.
void paintPicture(QPainter& painter, const ImageLayer& layer, const QRectF& room);
void paintPanel(QPainter& painter, const QRectF& panel, const QColor& background, const QColor& border);
void paintTexts(QPainter& painter, const LeafView& node);

/// Stands for texts that are too small to be read: a bar for each line.
void paintTextBars(QPainter& painter, const LeafView& node);

} // namespace lineara
