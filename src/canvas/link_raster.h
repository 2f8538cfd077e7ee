#pragma once

#include "elements/link_layer.h"
#include "plain_raster.h"

#include <QTransform>

#include <cstdint>

class QPainter;

namespace lineara {

/// Links without smooth edges on the white of the canvas, gathered as pixels and put into the picture at once: for
/// views in which links are thin, and for pictures that move on at once. On the white ground it covers what was painted
/// before.
class LinkRaster
{
public:
    enum class Ground : std::uint8_t
    {
        White,
        Clear ///< what was painted before shows through
    };

    /// Takes the painter's transform; the painter draws on a device of pixels.
    LinkRaster(QPainter& painter, Ground ground);

    /// From centre to centre; the selected one will lie above all others.
    void addAsLine(const LinkLayer& link);
    /// In its true outline.
    void addInShape(const LinkLayer& link);

    void paint();

private:
    struct Look
    {
        QRgb stroke;
        QRgb fill;
    };
    const Look& lookOf(const LinkLayer& link) const { return link.isPartnerLink() ? partner_ : offspring_; }
    void line(const LinkLayer& link, QRgb colour);

    QPainter& painter_;
    double density_;      ///< pixels of the device for one unit of the painter
    QTransform toPixels_; ///< from the picture
    PlainRaster pixels_;
    Look partner_;
    Look offspring_;
    QRgb selectedStroke_;
    const LinkLayer* selected_ = nullptr;
};

} // namespace lineara
