#include "elements/link_painter.h"

#include "elements/colours.h"
#include "elements/link_layer.h"
#include "elements/person_layer_view.h"

#include <QPainter>

namespace lineara {

namespace {

// Antialiasing a ribbon of many screens costs milliseconds and shows nowhere: it is all but level.
constexpr double smoothViewWidths = 4;

QPen outlinePen(const QColor& color, double scale)
{
    // Up to 100 % the line is one pixel, which is drawn by a faster way; beyond it grows with the picture.
    return QPen(color, scale > 1 ? LinkLayer::lineWidth : 0);
}

} // namespace

LinkPainter::LinkPainter(QPainter& painter, Detail detail, const Frame& visible)
    : painter_(painter), greatestSmoothWidth_(smoothViewWidths * visible.width),
      isAntialiased_(painter.testRenderHint(QPainter::Antialiasing)), isSmooth_(detail == Detail::Full)
{
    painter_.save();
    const double scale = painter.worldTransform().m11();
    partner_ = {outlinePen(colours::partnerStroke(), scale), colours::partnerFill()};
    offspring_ = {outlinePen(colours::offspringStroke(), scale), colours::offspringFill()};
    selected_ = outlinePen(colours::selectedStroke(), scale);
}

LinkPainter::~LinkPainter()
{
    painter_.restore();
}

void LinkPainter::paint(const LinkLayer& link)
{
    const Look& look = link.isPartnerLink() ? partner_ : offspring_;
    setAntialiasing(isSmooth_ && link.bounds().width <= greatestSmoothWidth_);
    painter_.setPen(link.isSelected() ? selected_ : look.outline);
    painter_.setBrush(look.fill);
    painter_.drawPath(link.path());
}

void LinkPainter::setAntialiasing(bool wanted)
{
    if (wanted != isAntialiased_)
        painter_.setRenderHint(QPainter::Antialiasing, wanted);
    isAntialiased_ = wanted;
}

void paintRubberBand(QPainter& painter, const RubberBand& band)
{
    constexpr double width = PersonLayerView::connectionLineWidth;
    QPen pen(band.strokeColor, width);
    pen.setCapStyle(Qt::RoundCap);
    // Dash patterns count in widths of the line.
    pen.setDashPattern({PersonLayerView::connectionDash / width, PersonLayerView::connectionGap / width});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.drawLine(toPicture(band.from), toPicture(band.to));
    painter.restore();
}

} // namespace lineara
