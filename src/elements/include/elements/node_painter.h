#pragma once

#include "elements/detail.h"

#include <QCache>
#include <QPixmap>
#include <QPointF>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

class QPainter;

namespace lineara {

class ConnectorView;
class LeafImageView;
class LeafView;

/// Draws nodes with a painter that stands in picture coordinates, scaled and moved but not turned. Keeps, within
/// bounds, what is dear to draw: panels, leaves, handles and reduced pictures, each at the size last needed. Main
/// thread only.
class NodePainter
{
public:
    /// A screen gets everything but texts from pixmaps; a document (a file, a printer) gets their true shapes, and
    /// nothing of what is selected or pointed at.
    enum class Medium : std::uint8_t
    {
        Screen,
        Document
    };

    explicit NodePainter(Medium medium = Medium::Screen);

    /// To be called ahead of a picture's nodes. While pictures follow one another at ever new zooms, pixmaps made for
    /// a zoom near by are stretched, which costs less than making new ones for each.
    void beginPicture(const QPainter& painter, Motion motion);

    /// The detail is Full or Plain; a Coarse node is drawn like a Plain one.
    void paint(QPainter& painter, const LeafView& node, Detail detail);

private:
    /// A drawing kept as pixels, and where they lie from its origin in points of the picture.
    struct Sprite
    {
        QPixmap pixels;
        QPointF offset;
    };

    /// How many pixels of the device make a point of the picture, and how many one of the painter's own units.
    struct Resolution
    {
        double scale;
        double density;
    };

    void paintShapes(QPainter& painter, const LeafView& node);
    void paintSprites(QPainter& painter, const LeafView& node);
    const Sprite& panelSprite(const LeafView& node, Resolution resolution);
    const Sprite& leafSprite(const LeafImageView& image, std::size_t leaf, Resolution resolution);
    const Sprite& handleSprite(const ConnectorView& handle, Resolution resolution);
    const Sprite& pictureSprite(const LeafView& node, Resolution resolution);

    Medium medium_;
    double restingScale_ = 0;             // of the last picture that was no part of a movement
    std::optional<double> stretchedFrom_; // the scale of the pixmaps, where they are stretched
    QCache<quint64, Sprite> shapes_;
    QCache<std::pair<qint64, quint64>, Sprite> pictures_; // by pixels and size
};

} // namespace lineara
