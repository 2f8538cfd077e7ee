#pragma once

#include <QByteArray>
#include <QPainterPath>
#include <QPointF>

namespace lineara {

/// Appends "x y " with at most that many decimals.
void appendPoint(QByteArray& ops, QPointF point, int decimals = 2);

/// What makes a path the current one in a PDF file, with at most that many decimals.
QByteArray pathOps(const QPainterPath& path, int decimals = 2);

} // namespace lineara
