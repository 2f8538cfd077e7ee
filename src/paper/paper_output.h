#pragma once

#include "platform/outcome.h"

#include <QRectF>

#include <cstddef>

class QPainter;

namespace lineara {

/// Takes a picture page by page, or stripe by stripe.
class PaperOutput
{
public:
    PaperOutput() = default;
    virtual ~PaperOutput();
    PaperOutput(const PaperOutput&) = delete;
    PaperOutput& operator=(const PaperOutput&) = delete;

    virtual std::size_t pages() const = 0;
    /// What of the picture comes onto a page, in points from its top left corner.
    virtual QRectF areaOf(std::size_t page) const = 0;
    /// A painter that stands in points of the picture, on a ground that has been drawn; nullptr where no more can be
    /// drawn, as finish() will tell. Pages come in order.
    virtual QPainter* begin(std::size_t page) = 0;
    virtual void end(std::size_t page) = 0;
    /// Once all pages have been drawn.
    virtual Outcome<QByteArray> finish() = 0;
};

} // namespace lineara
