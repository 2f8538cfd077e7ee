#include "node_shapes.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"
#include "elements/node_layout.h"
#include "node_text.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace lineara {

namespace {

constexpr double leafLineWidth = 2.0;

// The block of texts stands in the middle of what the child handle leaves free of the panel.
constexpr double nameLineHeight = 14;
constexpr double eraLineHeight = 13;
constexpr double textBottom = node_layout::panelBottom + node_layout::handleOverhang;
constexpr double textTop = node_layout::panelTop - 2;
constexpr double baselineShare = 0.78; ///< of a line lies above its baseline

/// Gives the lines of text their baselines, one below the other.
class TextBlock
{
public:
    TextBlock(const Frame& node, double height)
        : middle_(node.centre().x), top_(node.y + (textBottom + textTop + height) / 2)
    {}

    /// Left end of the baseline of the next line, whose text is centred.
    CanvasPoint nextLine(double lineHeight, double width)
    {
        const CanvasPoint start{middle_ - width / 2, top_ - lineHeight * baselineShare};
        top_ -= lineHeight;
        return start;
    }

private:
    double middle_;
    double top_;
};

double blockHeight(const QStringList& nameLines, const QString& era)
{
    return static_cast<double>(nameLines.size()) * nameLineHeight + (era.isEmpty() ? 0 : eraLineHeight);
}

} // namespace

QPainterPath turnedLeaf(double angle)
{
    QPainterPath leaf = LeafImageView::createRotatedLeaf(LeafImageView::leafOutline(), angle);
    for (int at = 0; at < leaf.elementCount(); ++at) {
        const QPointF point = toPicture(CanvasPoint{leaf.elementAt(at).x, leaf.elementAt(at).y});
        leaf.setElementPositionAt(at, point.x(), point.y());
    }
    return leaf;
}

void paintLeaf(QPainter& painter, const QPainterPath& leaf)
{
    QPen outline(colours::leafStroke(), leafLineWidth);
    outline.setJoinStyle(Qt::MiterJoin);
    painter.setPen(outline);
    painter.setBrush(colours::leafFill());
    painter.drawPath(leaf);
}

void paintHandle(QPainter& painter, const QRectF& circle, const QColor& fill)
{
    painter.setPen(QPen(colours::handleOutline(), ConnectorView::lineWidth()));
    painter.setBrush(fill);
    painter.drawEllipse(circle);
}

void paintPixels(QPainter& painter, const ImageLayer& layer, const QRectF& room)
{
    const QSizeF pixels = layer.contents->size();
    const double seen = pixels.width() * std::min(1.0, room.width() / layer.frame.width);
    const QRectF source((pixels.width() - seen) / 2, 0, seen, pixels.height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(room, *layer.contents, source);
}

void paintPicture(QPainter& painter, const ImageLayer& layer, const QRectF& room)
{
    if (!layer.contents || room.isEmpty())
        return;
    // A picture too large to be decoded is an empty frame: there is one, and it can't be seen.
    if (!layer.contents->isNull())
        paintPixels(painter, layer, room);
    QPen border(layer.borderColor, layer.borderWidth);
    border.setJoinStyle(Qt::MiterJoin);
    painter.setPen(border);
    painter.setBrush(Qt::NoBrush);
    const double inset = layer.borderWidth / 2;
    painter.drawRect(room.adjusted(inset, inset, -inset, -inset));
}

void paintPanel(QPainter& painter, const QRectF& panel, const QColor& background, const QColor& border)
{
    constexpr double inset = LeafInfoView::borderWidth / 2;
    constexpr double radius = LeafInfoView::cornerRadius - inset;
    painter.setPen(QPen(border, LeafInfoView::borderWidth));
    painter.setBrush(background);
    painter.drawRoundedRect(panel.adjusted(inset, inset, -inset, -inset), radius, radius);
}

void paintTexts(QPainter& painter, const LeafView& node)
{
    const LeafInfoView& info = node.infoView();
    const NodeFonts& fonts = nodeFonts();
    const QStringList names = info.nameLines();
    const QString era = info.eraLine();
    TextBlock block(node.frame(), blockHeight(names, era));
    painter.setPen(info.isNameless() ? colours::hintText() : colours::nameText());
    painter.setFont(fonts.name.font());
    for (const QString& line : names)
        painter.drawText(toPicture(block.nextLine(nameLineHeight, fonts.name.advance(line))), line);
    if (era.isEmpty())
        return;
    painter.setPen(colours::eraText());
    painter.setFont(fonts.era.font());
    painter.drawText(toPicture(block.nextLine(eraLineHeight, fonts.era.advance(era))), era);
}

void paintTextBars(QPainter& painter, const LeafView& node)
{
    constexpr double nameBarHeight = 5;
    constexpr double eraBarHeight = 3;
    const Frame panel = node.infoFrame();
    const double nameWidth = panel.width - 2 * node_layout::textMargin;
    TextBlock block(node.frame(), nameLineHeight + eraLineHeight);
    const CanvasPoint name = block.nextLine(nameLineHeight, nameWidth);
    painter.fillRect(toPicture(Frame{name.x, name.y, nameWidth, nameBarHeight}), colours::eraText());
    const CanvasPoint era = block.nextLine(eraLineHeight, nameWidth / 2);
    painter.fillRect(toPicture(Frame{era.x, era.y, nameWidth / 2, eraBarHeight}), colours::hintText());
}

} // namespace lineara
