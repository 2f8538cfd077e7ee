#include "elements/node_marks.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"

#include <QPainter>

#include <algorithm>

namespace lineara {

namespace {

constexpr double haloReach = 4; ///< beyond the node
constexpr double haloRadius = 10;
constexpr double haloWidth = 3;
constexpr double ringReach = 3.5; ///< beyond the panel
constexpr double ringWidth = 2;

QRectF haloOf(const LeafView& node)
{
    return toPicture(node.frame()).adjusted(-haloReach, -haloReach, haloReach, haloReach);
}

/// Grows with the picture, but can be seen in one of any size.
double shownWidth(const QPainter& painter, double width)
{
    return std::max(width, width / painter.worldTransform().m11());
}

void paintFrame(QPainter& painter, const QRectF& frame, double radius, const QPen& outline, const QBrush& fill)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.setBrush(fill);
    painter.drawRoundedRect(frame, radius, radius);
    painter.restore();
}

void paintHalo(QPainter& painter, const LinkTarget& target)
{
    QColor fill = colours::linkFill(target.linkType);
    fill.setAlphaF(colours::haloOpacity);
    const QPen outline(colours::linkStroke(target.linkType), shownWidth(painter, haloWidth));
    paintFrame(painter, haloOf(*target.node), haloRadius, outline, fill);
}

void paintRing(QPainter& painter, const LeafView& node)
{
    const QRectF ring = toPicture(node.infoFrame()).adjusted(-ringReach, -ringReach, ringReach, ringReach);
    const QPen outline(colours::focusRing(), shownWidth(painter, ringWidth));
    paintFrame(painter, ring, LeafInfoView::cornerRadius + ringReach, outline, Qt::NoBrush);
}

} // namespace

void paintMarksBelow(QPainter& painter, const NodeMarks& marks)
{
    if (marks.linkTarget && marks.linkTarget->isPossible)
        paintHalo(painter, *marks.linkTarget);
    if (marks.focused)
        paintRing(painter, *marks.focused);
}

void paintMarksAbove(QPainter& painter, const NodeMarks& marks)
{
    if (marks.linkTarget && !marks.linkTarget->isPossible)
        paintFrame(painter, haloOf(*marks.linkTarget->node), haloRadius, Qt::NoPen, colours::refusalVeil());
}

} // namespace lineara
