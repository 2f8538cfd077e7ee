#pragma once

#include "paper/poster_marks.h"
#include "paper_output.h"
#include "pdf_canvas.h"
#include "vector_device.h"

#include <QPainter>

namespace lineara {

class PaperPicture;

/// A PDF file of the sheets of a plan.
class PdfOutput : public PaperOutput
{
public:
    PdfOutput(const PaperPicture& picture, PosterPlan plan, PosterMarks marks);
    ~PdfOutput() override;

    std::size_t pages() const override { return plan_.pages().size(); }
    QRectF areaOf(std::size_t page) const override { return plan_.pages()[page].source; }
    QPainter* begin(std::size_t page) override;
    void end(std::size_t page) override;
    Outcome<QByteArray> finish() override;

private:
    const PaperPicture& picture_;
    PosterPlan plan_;
    PosterMarks marks_;
    PdfCanvas canvas_;
    VectorDevice device_;
    QPainter painter_;
};

} // namespace lineara
