#pragma once

#include "canvas/picture_drawing.h"

#include <cstddef>
#include <optional>

namespace lineara {

class PaperOutput;
class PaperPicture;

/// Draws a picture onto all pages of an output, bit by bit. Like a PictureDrawing it is good until the family changes.
class PaperDrawing
{
public:
    /// Both must outlive the drawing.
    PaperDrawing(const PaperPicture& picture, PaperOutput& output) : picture_(picture), output_(output) {}

    /// Draws for some milliseconds. True while something is left.
    bool step();
    /// How much is done, from 0 to 1.
    double part() const;

private:
    void beginPage();

    const PaperPicture& picture_;
    PaperOutput& output_;
    std::size_t page_ = 0;
    std::optional<PictureDrawing> drawing_; // of the page that has been begun
    QPainter* painter_ = nullptr;
};

} // namespace lineara
