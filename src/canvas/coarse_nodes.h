#pragma once

#include <QRect>
#include <QTransform>

#include <vector>

class QPainter;

namespace lineara {

class LeafView;

/// Nodes as boxes, gathered by colour and drawn in two calls, for views in which a node is a few pixels large. What
/// would fall on the very pixels of the node before it is left out.
class CoarseNodes
{
public:
    /// Takes the painter's transform.
    explicit CoarseNodes(QPainter& painter);

    void add(const LeafView& node);

    void paint();

private:
    QRect pixels(const QRectF& picture) const;

    QPainter& painter_;
    QTransform toPixels_;
    std::vector<QRect> panels_;
    std::vector<QRect> images_;
};

} // namespace lineara
