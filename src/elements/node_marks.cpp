#include "elements/node_marks.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"

#include <QPainter>

#include <algorithm>

namespace lineara {

namespace {

constexpr double reach = 4; ///< of a mark beyond the node
constexpr double cornerRadius = 10;
constexpr double haloWidth = 3;
constexpr double ringWidth = 1.5;

QRectF surroundings(const LeafView& node)
{
    return toPicture(node.frame()).adjusted(-reach, -reach, reach, reach);
}

/// Grows with the picture, but can be seen in one of any size.
double shownWidth(const QPainter& painter, double width)
{
    return std::max(width, width / painter.worldTransform().m11());
}

void paintFrame(QPainter& painter, const LeafView& node, const QPen& outline, const QBrush& fill)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline);
    painter.setBrush(fill);
    painter.drawRoundedRect(surroundings(node), cornerRadius, cornerRadius);
    painter.restore();
}

} // namespace

void paintMarksBelow(QPainter& painter, const NodeMarks& marks)
{
    const auto& target = marks.linkTarget;
    if (!target || !target->isPossible)
        return;
    QColor fill = colours::linkFill(target->linkType);
    fill.setAlphaF(colours::haloOpacity);
    paintFrame(painter, *target->node, QPen(colours::linkStroke(target->linkType), shownWidth(painter, haloWidth)),
               fill);
}

void paintMarksAbove(QPainter& painter, const NodeMarks& marks)
{
    if (marks.linkTarget && !marks.linkTarget->isPossible)
        paintFrame(painter, *marks.linkTarget->node, Qt::NoPen, colours::refusalVeil());
    if (marks.focused)
        paintFrame(painter, *marks.focused,
                   QPen(colours::focusRing(), shownWidth(painter, ringWidth), Qt::DotLine, Qt::RoundCap), Qt::NoBrush);
}

} // namespace lineara
