#include "recent_row.h"

#include "program_icon.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace lineara {

namespace {

constexpr int margin = 8;
constexpr int iconSize = 32;
constexpr int crossSize = 24;
constexpr int crossReach = 4; ///< from its middle to where its strokes end
constexpr double secondLineShare = 0.9;
constexpr double faintness = 0.75;

QFont secondLineFont(const QFont& font)
{
    QFont smaller(font);
    smaller.setPointSizeF(font.pointSizeF() * secondLineShare);
    return smaller;
}

QColor textColour(const QStyleOptionViewItem& option, bool isMissing)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const auto group = option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    if (isSelected)
        return option.palette.color(group, QPalette::HighlightedText);
    return option.palette.color(isMissing ? QPalette::Disabled : group, QPalette::Text);
}

void paintCross(QPainter& painter, const QRect& room, const QColor& colour)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap));
    const QPointF middle = QRectF(room).center();
    painter.drawLine(middle - QPointF(crossReach, crossReach), middle + QPointF(crossReach, crossReach));
    painter.drawLine(middle - QPointF(crossReach, -crossReach), middle + QPointF(crossReach, -crossReach));
}

/// Hovered rows, the chosen one, and those of which nothing else can be wanted.
bool showsCross(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    return index.data(MissingRole).toBool() || (option.state & (QStyle::State_MouseOver | QStyle::State_Selected));
}

} // namespace

RecentRow::RecentRow(QObject* parent) : QStyledItemDelegate(parent), icon_(familyIcon()) {}

QSize RecentRow::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const
{
    const int texts = QFontMetrics(option.font).height() + QFontMetrics(secondLineFont(option.font)).height();
    return {0, std::max(texts, iconSize) + 2 * margin};
}

QRect RecentRow::crossRect(const QRect& row, Qt::LayoutDirection direction)
{
    const QRect atRight(row.right() - margin - crossSize, row.center().y() - crossSize / 2, crossSize, crossSize);
    return QStyle::visualRect(direction, row, atRight);
}

void RecentRow::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem ground(option);
    ground.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    QApplication::style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter, option.widget);
    painter->save();
    const bool isMissing = index.data(MissingRole).toBool();
    const QRect& row = option.rect;
    const QRect icon(row.left() + margin, row.center().y() - iconSize / 2, iconSize, iconSize);
    icon_.paint(painter, QStyle::visualRect(option.direction, row, icon), Qt::AlignCenter,
                isMissing ? QIcon::Disabled : QIcon::Normal);
    paintTexts(*painter, option, index);
    if (showsCross(option, index))
        paintCross(*painter, crossRect(row, option.direction), textColour(option, false));
    painter->restore();
}

void RecentRow::paintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect& row = option.rect;
    const int left = row.left() + margin + iconSize + margin;
    const int width = row.right() - margin - crossSize - margin - left;
    const auto place = [&](int top, int height) {
        return QStyle::visualRect(option.direction, row, QRect(left, top, width, height));
    };
    const Qt::Alignment alignment =
        QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter | Qt::AlignAbsolute;
    const QFontMetrics first(option.font);
    const QFont smaller = secondLineFont(option.font);
    const QFontMetrics second(smaller);
    const int top = row.center().y() - (first.height() + second.height()) / 2;
    QColor colour = textColour(option, index.data(MissingRole).toBool());

    painter.setPen(colour);
    painter.setFont(option.font);
    painter.drawText(place(top, first.height()), static_cast<int>(alignment) | Qt::TextSingleLine,
                     first.elidedText(index.data().toString(), Qt::ElideMiddle, width));
    colour.setAlphaF(static_cast<float>(colour.alphaF() * faintness));
    painter.setPen(colour);
    painter.setFont(smaller);
    painter.drawText(place(top + first.height(), second.height()), static_cast<int>(alignment) | Qt::TextSingleLine,
                     second.elidedText(index.data(PlaceRole).toString(), Qt::ElideMiddle, width));
}

} // namespace lineara
