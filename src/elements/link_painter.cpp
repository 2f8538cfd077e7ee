#include "elements/link_painter.h"

#include "elements/colours.h"
#include "elements/link_layer.h"
#include "elements/person_layer_view.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

namespace lineara {

namespace {

// Antialiasing a ribbon of many screens costs milliseconds and shows nowhere: it is all but level.
constexpr double smoothViewWidths = 4;

/// On a screen the line never gets thinner than one of its pixels, which is drawn by a faster way, and grows with the
/// picture beyond that.
double outlineWidth(const QPainter& painter)
{
    const bool isInPixels = painter.paintEngine()->type() == QPaintEngine::Raster;
    const double pixels = LinkLayer::lineWidth * painter.worldTransform().m11() * painter.device()->devicePixelRatioF();
    return isInPixels && pixels <= 1 ? 0 : LinkLayer::lineWidth;
}

} // namespace

LinkPainter::LinkPainter(QPainter& painter, Detail detail, const Frame& visible)
    : painter_(painter), greatestSmoothWidth_(smoothViewWidths * visible.width),
      isAntialiased_(painter.testRenderHint(QPainter::Antialiasing)), isSmooth_(detail == Detail::Full)
{
    painter_.save();
    const double width = outlineWidth(painter);
    partner_ = {QPen(colours::partnerStroke(), width), colours::partnerFill()};
    offspring_ = {QPen(colours::offspringStroke(), width), colours::offspringFill()};
    selected_ = QPen(colours::selectedStroke(), width);
}

LinkPainter::~LinkPainter()
{
    painter_.restore();
}

void LinkPainter::paint(const LinkLayer& link)
{
    const Look& look = link.isPartnerLink() ? partner_ : offspring_;
    setAntialiasing(isSmooth_ && link.bounds().width <= greatestSmoothWidth_);
    painter_.setPen(showsSelection_ && link.isSelected() ? selected_ : look.outline);
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
