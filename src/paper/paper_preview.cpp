#include "paper_preview.h"

#include "paper/paper_picture.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr int longestSide = 1'800; ///< of the picture that is looked at, in pixels
constexpr double border = 12;
constexpr double gap = 0.04; ///< between two sheets, in widths of one

QRectF fittedInto(QSizeF size, QRectF room)
{
    const QSizeF fitted = size.scaled(room.size(), Qt::KeepAspectRatio);
    return {room.center() - QPointF(fitted.width(), fitted.height()) / 2, fitted};
}

/// What image programs show where nothing is.
void paintChecks(QPainter& painter, const QRectF& area)
{
    painter.fillRect(area, Qt::white);
    painter.fillRect(area, QBrush(QColor(225, 225, 225), Qt::Dense4Pattern));
}

} // namespace

PaperPreview::PaperPreview()
{
    setObjectName(QStringLiteral("paperPreview"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PaperPreview::showPicture(const PaperPicture& picture)
{
    pictureSize_ = picture.size();
    const double scale = std::min(2.0, longestSide / std::max({pictureSize_.width(), pictureSize_.height(), 1.0}));
    image_ = QImage((pictureSize_ * scale).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    painter.scale(scale, scale);
    picture.paintPreview(painter);
    painter.end();
    update();
}

void PaperPreview::showPages(std::optional<PosterPlan> plan)
{
    plan_ = std::move(plan);
    update();
}

void PaperPreview::setTransparent(bool isTransparent)
{
    isTransparent_ = isTransparent;
    update();
}

void PaperPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), palette().mid());
    if (plan_)
        paintPages(painter);
    else
        paintAlone(painter);
}

void PaperPreview::paintAlone(QPainter& painter) const
{
    const QRectF room = QRectF(rect()).adjusted(border, border, -border, -border);
    const QRectF place = fittedInto(pictureSize_, room);
    if (isTransparent_) {
        paintChecks(painter, place);
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    }
    painter.drawImage(place, image_);
}

void PaperPreview::paintPages(QPainter& painter) const
{
    const QSizeF sheet = plan_->sheet().size;
    const double between = gap * sheet.width();
    const QSizeF all(plan_->columns() * (sheet.width() + between) - between,
                     plan_->rows() * (sheet.height() + between) - between);
    const QRectF place = fittedInto(all, QRectF(rect()).adjusted(border, border, -border, -border));
    painter.translate(place.topLeft());
    painter.scale(place.width() / all.width(), place.width() / all.width());
    const double pixels = image_.width() / pictureSize_.width();
    for (const PosterPage& page : plan_->pages()) {
        const QPointF corner(page.column * (sheet.width() + between), page.row * (sheet.height() + between));
        painter.fillRect(QRectF(corner, sheet), Qt::white);
        // Of the sheet only what lies within the picture; the rest of it is paper.
        const QRectF seen = page.source & QRectF({}, pictureSize_);
        const QRectF shown((seen.topLeft() - page.source.topLeft()) * plan_->scale() + page.target.topLeft() + corner,
                           seen.size() * plan_->scale());
        painter.drawImage(shown, image_, QRectF(seen.topLeft() * pixels, seen.size() * pixels));
    }
}

} // namespace lineara
