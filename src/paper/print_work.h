#pragma once

#include "paper/paper_picture.h"
#include "paper/picture_export.h"
#include "paper_drawing.h"
#include "paper_work.h"

#include <memory>

class QPrinter;

namespace lineara {

class PrintOutput;

/// Draws a picture onto the sheets of a printer.
class PrintWork : public PaperWork
{
public:
    static Outcome<std::unique_ptr<PaperWork>> begin(std::unique_ptr<PaperPicture> picture, const PosterSheets& sheets,
                                                     std::shared_ptr<QPrinter> printer);
    ~PrintWork() override;

    bool step() override { return drawing_.step(); }
    double part() const override { return drawing_.part(); }
    Outcome<Done> finish() override;

private:
    PrintWork(std::unique_ptr<PaperPicture> picture, std::unique_ptr<PrintOutput> output);

    std::unique_ptr<PaperPicture> picture_;
    std::unique_ptr<PrintOutput> output_;
    PaperDrawing drawing_;
};

} // namespace lineara
