#pragma once

#include "paper/poster_marks.h"
#include "paper_output.h"

#include <QPainter>

#include <memory>

class QPrinter;

namespace lineara {

class PaperPicture;

/// The sheets of a plan on a printer. What was sent before it is destroyed unfinished is taken back, where the printer
/// allows that.
class PrintOutput : public PaperOutput
{
public:
    PrintOutput(const PaperPicture& picture, PosterPlan plan, PosterMarks marks, std::shared_ptr<QPrinter> printer);
    ~PrintOutput() override;

    std::size_t pages() const override { return plan_.pages().size(); }
    QRectF areaOf(std::size_t page) const override { return plan_.pages()[page].source; }
    QPainter* begin(std::size_t page) override;
    void end(std::size_t page) override;
    Outcome<QByteArray> finish() override;

private:
    void standOnPaper();

    const PaperPicture& picture_;
    PosterPlan plan_;
    PosterMarks marks_;
    std::shared_ptr<QPrinter> printer_;
    QPainter painter_;
    bool isSound_ = true;
};

/// Tells the printer of the plan's paper, upright or lying.
void setPaper(QPrinter& printer, const PaperSheet& sheet);

} // namespace lineara
