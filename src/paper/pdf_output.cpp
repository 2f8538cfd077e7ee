#include "pdf_output.h"

#include "paper/paper_picture.h"

#include <utility>

namespace lineara {

PdfOutput::PdfOutput(const PaperPicture& picture, PosterPlan plan, PosterMarks marks)
    : picture_(picture), plan_(std::move(plan)), marks_(marks), device_(canvas_, picture.size()), painter_(&device_)
{}

PdfOutput::~PdfOutput() = default;

QPainter* PdfOutput::begin(std::size_t page)
{
    const PosterPage& shown = plan_.pages()[page];
    canvas_.beginPage(plan_.sheet().size);
    const QPointF origin = shown.target.topLeft() - shown.source.topLeft() * plan_.scale();
    canvas_.beginArea(origin, plan_.scale(), shown.target);
    return &painter_;
}

void PdfOutput::end(std::size_t page)
{
    canvas_.endArea();
    canvas_.beginArea({}, 1, std::nullopt);
    paintMarks(painter_, plan_, page, marks_);
    canvas_.endArea();
    canvas_.endPage();
}

Outcome<QByteArray> PdfOutput::finish()
{
    if (hasAssembly(plan_, marks_)) {
        canvas_.beginPage(plan_.sheet().size);
        canvas_.beginArea({}, 1, std::nullopt);
        paintAssembly(painter_, plan_, picture_);
        canvas_.endArea();
        canvas_.endPage();
    }
    painter_.end();
    return canvas_.finish(picture_.texts().title);
}

} // namespace lineara
