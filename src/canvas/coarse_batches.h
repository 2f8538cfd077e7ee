#pragma once

#include <QLineF>
#include <QRect>
#include <QTransform>

#include <array>
#include <vector>

class QPainter;

namespace lineara {

class LeafView;
class LinkLayer;

/// Links as lines and nodes as boxes, gathered by colour and drawn in a few calls, for views in which a node is a few
/// pixels large. What would fall on the very pixels of the shape before it is left out.
class CoarseBatches
{
public:
    /// Takes the painter's transform; from then on the batches count in pixels.
    explicit CoarseBatches(QPainter& painter);

    void add(const LinkLayer& link);
    void add(const LeafView& node);

    /// Draws everything: partner links, offspring links, the selected link, then the nodes.
    void paint();

private:
    enum Colour
    {
        Partner,
        Offspring,
        Selected,
        LinkColours
    };

    QRect pixels(const QRectF& picture) const;

    QPainter& painter_;
    QTransform toPixels_;
    std::array<std::vector<QLine>, LinkColours> lines_;
    std::vector<QRect> panels_;
    std::vector<QRect> images_;
};

} // namespace lineara
