#include "picture_outputs.h"

#include "paper/paper_picture.h"

#include <algorithm>

namespace lineara {

namespace {

/// Pixels held at a time: 16 MB of them.
constexpr int pixelsOfStripe = 4'000'000;

} // namespace

SvgOutput::SvgOutput(const PaperPicture& picture, PictureGround ground)
    : size_(picture.size()), ground_(ground), canvas_(picture.size(), picture.texts().title),
      device_(canvas_, picture.size()), painter_(&device_)
{}

SvgOutput::~SvgOutput() = default;

QRectF SvgOutput::areaOf(std::size_t /*page*/) const
{
    return {{}, size_};
}

QPainter* SvgOutput::begin(std::size_t /*page*/)
{
    if (ground_ == PictureGround::White)
        painter_.fillRect(QRectF({}, size_), Qt::white);
    return &painter_;
}

Outcome<QByteArray> SvgOutput::finish()
{
    painter_.end();
    return canvas_.finish();
}

PngOutput::PngOutput(const PaperPicture& picture, QSize pixels, PictureGround ground)
    : pixels_(pixels), ground_(ground), file_(pixels, ground == PictureGround::Transparent)
{
    const QSizeF size = picture.size();
    scale_ = std::min(pixels.width() / size.width(), pixels.height() / size.height());
    corner_ = QPointF(pixels.width() - size.width() * scale_, pixels.height() - size.height() * scale_) / 2;
}

PngOutput::~PngOutput() = default;

QRect PngOutput::stripe(std::size_t page) const
{
    const int height = std::clamp(pixelsOfStripe / pixels_.width(), 1, pixels_.height());
    const int top = static_cast<int>(page) * height;
    return {0, top, pixels_.width(), std::min(height, pixels_.height() - top)};
}

std::size_t PngOutput::pages() const
{
    const int height = stripe(0).height();
    return static_cast<std::size_t>((pixels_.height() + height - 1) / height);
}

QRectF PngOutput::areaOf(std::size_t page) const
{
    const QRectF area = stripe(page);
    return {(area.topLeft() - corner_) / scale_, area.size() / scale_};
}

QPainter* PngOutput::begin(std::size_t page)
{
    const QRect area = stripe(page);
    if (rows_.size() != area.size()) {
        rows_ = QImage(area.size(),
                       ground_ == PictureGround::White ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    }
    rows_.fill(ground_ == PictureGround::White ? Qt::white : Qt::transparent);
    painter_.begin(&rows_);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.translate(corner_ - area.topLeft());
    painter_.scale(scale_, scale_);
    return &painter_;
}

void PngOutput::end(std::size_t /*page*/)
{
    painter_.end();
    file_.add(rows_);
}

Outcome<QByteArray> PngOutput::finish()
{
    return file_.finish();
}

} // namespace lineara
