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

/// A pixel for each point is more than is seen of it.
QImage assemblySheet(const PosterPlan& plan, const PaperPicture& picture)
{
    QImage sheet(plan.sheet().size.toSize(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    paintAssembly(painter, plan, picture);
    return sheet;
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

void PaperPreview::showAlone()
{
    plan_.reset();
    assembly_ = {};
    update();
}

void PaperPreview::showPages(PosterPlan plan, const PosterMarks& marks, const PaperPicture& picture)
{
    marks_ = marks;
    assembly_ = hasAssembly(plan, marks) ? assemblySheet(plan, picture) : QImage();
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
    const int rows = plan_->rows() + (assembly_.isNull() ? 0 : 1);
    const QSizeF all(plan_->columns() * (sheet.width() + between) - between,
                     rows * (sheet.height() + between) - between);
    const QRectF place = fittedInto(all, QRectF(rect()).adjusted(border, border, -border, -border));
    painter.translate(place.topLeft());
    painter.scale(place.width() / all.width(), place.width() / all.width());
    for (std::size_t page = 0; page < plan_->pages().size(); ++page) {
        const PosterPage& shown = plan_->pages()[page];
        painter.save();
        painter.translate(shown.column * (sheet.width() + between), shown.row * (sheet.height() + between));
        paintPage(painter, page);
        painter.restore();
    }
    if (!assembly_.isNull())
        painter.drawImage(QRectF({0, plan_->rows() * (sheet.height() + between)}, sheet), assembly_);
}

void PaperPreview::paintPage(QPainter& painter, std::size_t page) const
{
    painter.fillRect(QRectF({}, plan_->sheet().size), Qt::white);
    // Of the sheet only what lies within the picture; the rest of it is paper.
    const PosterPage& shown = plan_->pages()[page];
    const QRectF seen = shown.source & QRectF({}, pictureSize_);
    const QRectF target((seen.topLeft() - shown.source.topLeft()) * plan_->scale() + shown.target.topLeft(),
                        seen.size() * plan_->scale());
    const double pixels = image_.width() / pictureSize_.width();
    painter.drawImage(target, image_, QRectF(seen.topLeft() * pixels, seen.size() * pixels));
    paintMarks(painter, *plan_, page, marks_);
}

} // namespace lineara
