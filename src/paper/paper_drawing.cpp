#include "paper_drawing.h"

#include "paper/paper_picture.h"
#include "paper_output.h"

#include <QElapsedTimer>
#include <QPainter>

namespace lineara {

PaperOutput::~PaperOutput() = default;

namespace {

/// A window that answers a little later than at once is still alive.
constexpr int millisecondsOfStep = 30;
constexpr std::size_t shapesAtATime = 64;

} // namespace

void PaperDrawing::beginPage()
{
    painter_ = output_.begin(page_);
    if (!painter_) {
        page_ = output_.pages();
        return;
    }
    drawing_.emplace(picture_.family(), output_.areaOf(page_).translated(-picture_.familyPlace()));
}

bool PaperDrawing::step()
{
    QElapsedTimer clock;
    clock.start();
    while (page_ < output_.pages() && clock.elapsed() < millisecondsOfStep) {
        if (!drawing_)
            beginPage();
        if (!drawing_)
            break;
        painter_->save();
        painter_->translate(picture_.familyPlace());
        const bool isLeft = drawing_->paintNext(*painter_, shapesAtATime);
        painter_->restore();
        if (isLeft)
            continue;
        picture_.paintTexts(*painter_);
        drawing_.reset();
        output_.end(page_++);
    }
    return page_ < output_.pages();
}

double PaperDrawing::part() const
{
    const double onPage = drawing_ && drawing_->shapes() > 0
                              ? static_cast<double>(drawing_->painted()) / static_cast<double>(drawing_->shapes())
                              : 0;
    return (static_cast<double>(page_) + onPage) / static_cast<double>(output_.pages());
}

} // namespace lineara
