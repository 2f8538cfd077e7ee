#include "link_raster.h"

#include "elements/colours.h"

#include <QPaintDevice>
#include <QPainter>

namespace lineara {

namespace {

QRgb pixelOf(const QColor& colour)
{
    return qPremultiply(colour.rgba());
}

} // namespace

LinkRaster::LinkRaster(QPainter& painter, Ground ground)
    : painter_(painter), density_(painter.device()->devicePixelRatioF()),
      toPixels_(painter.worldTransform() * QTransform::fromScale(density_, density_)),
      pixels_(QSize(painter.device()->width(), painter.device()->height()) * density_,
              ground == Ground::White ? qRgb(255, 255, 255) : qRgba(0, 0, 0, 0)),
      partner_{pixelOf(colours::partnerStroke()), pixelOf(colours::partnerFill())},
      offspring_{pixelOf(colours::offspringStroke()), pixelOf(colours::offspringFill())},
      selectedStroke_(pixelOf(colours::selectedStroke()))
{}

void LinkRaster::addAsLine(const LinkLayer& link)
{
    if (link.isSelected())
        selected_ = &link;
    else
        line(link, lookOf(link).stroke);
}

void LinkRaster::addInShape(const LinkLayer& link)
{
    const QRgb stroke = link.isSelected() ? selectedStroke_ : lookOf(link).stroke;
    for (const QPolygonF& outline : link.path().toSubpathPolygons(toPixels_)) {
        pixels_.fill(outline, lookOf(link).fill);
        for (qsizetype at = 1; at < outline.size(); ++at)
            pixels_.line(outline[at - 1], outline[at], stroke);
    }
}

void LinkRaster::paint()
{
    if (selected_)
        line(*selected_, selectedStroke_);
    const QTransform world = painter_.worldTransform();
    painter_.resetTransform();
    painter_.drawImage(QRectF(QPointF(0, 0), QSizeF(pixels_.image().size()) / density_), pixels_.image());
    painter_.setWorldTransform(world);
}

void LinkRaster::line(const LinkLayer& link, QRgb colour)
{
    pixels_.line(toPixels_.map(toPicture(link.startPoint())), toPixels_.map(toPicture(link.endPoint())), colour);
}

} // namespace lineara
