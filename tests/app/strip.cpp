#include "strip.h"

#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QScreen>

namespace lineara {

namespace {

constexpr int gap = 12;
constexpr int textHeight = 36;

/// The display's own pointer is in no picture of it.
void drawPointer(QPixmap& picture, QPoint tip)
{
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(tip);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({{0, 0}, {0, 17}, {4, 13.5}, {7, 20}, {9.5, 19}, {6.5, 12.5}, {12, 12}}));
}

} // namespace

void Strip::add(QRect part, const QString& text)
{
    QPixmap picture = QApplication::primaryScreen()->grabWindow(0, part.x(), part.y(), part.width(), part.height());
    drawPointer(picture, QCursor::pos() - part.topLeft());
    shots_.push_back({picture, text});
}

bool Strip::save(const QString& path) const
{
    QSize size(gap, 0);
    for (const Shot& shot : shots_)
        size = {size.width() + shot.picture.width() + gap, qMax(size.height(), shot.picture.height())};
    QImage strip(size + QSize(0, gap + textHeight), QImage::Format_RGB32);
    strip.fill(QColor(230, 230, 230));
    QPainter painter(&strip);
    int left = gap;
    for (const Shot& shot : shots_) {
        painter.drawPixmap(left, gap, shot.picture);
        painter.drawText(QRect(left, gap + size.height(), shot.picture.width(), textHeight), Qt::AlignCenter,
                         shot.text);
        left += shot.picture.width() + gap;
    }
    return strip.save(path);
}

} // namespace lineara
