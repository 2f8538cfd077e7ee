#pragma once

#include "paper/picture_export.h"
#include "paper_output.h"
#include "png_file.h"
#include "svg_canvas.h"
#include "vector_device.h"

#include <QImage>
#include <QPainter>

namespace lineara {

/// An SVG file of a whole picture.
class SvgOutput : public PaperOutput
{
public:
    SvgOutput(const PaperPicture& picture, PictureGround ground);
    ~SvgOutput() override;

    std::size_t pages() const override { return 1; }
    QRectF areaOf(std::size_t page) const override;
    QPainter* begin(std::size_t page) override;
    void end(std::size_t /*page*/) override {}
    Outcome<QByteArray> finish() override;

private:
    QSizeF size_;
    PictureGround ground_;
    SvgCanvas canvas_;
    VectorDevice device_;
    QPainter painter_;
};

/// A PNG file of a whole picture, whose pages are stripes of pixels.
class PngOutput : public PaperOutput
{
public:
    PngOutput(const PaperPicture& picture, QSize pixels, PictureGround ground);
    ~PngOutput() override;

    std::size_t pages() const override;
    QRectF areaOf(std::size_t page) const override;
    QPainter* begin(std::size_t page) override;
    void end(std::size_t page) override;
    Outcome<QByteArray> finish() override;

private:
    QRect stripe(std::size_t page) const;

    QSize pixels_;
    PictureGround ground_;
    double scale_; ///< pixels for each point of the picture
    QPointF corner_;
    PngFile file_;
    QImage rows_;
    QPainter painter_;
};

} // namespace lineara
