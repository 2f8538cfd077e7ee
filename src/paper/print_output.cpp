#include "print_output.h"

#include "paper/paper_picture.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPrinter>

#include <utility>

namespace lineara {

namespace {

struct PrintOutputTexts
{
    Q_DECLARE_TR_FUNCTIONS(PrintOutput)
};

} // namespace

void setPaper(QPrinter& printer, const PaperSheet& sheet)
{
    const bool isLying = sheet.size.width() > sheet.size.height();
    const QSizeF upright = isLying ? sheet.size.transposed() : sheet.size;
    printer.setFullPage(true);
    printer.setPageLayout(QPageLayout(QPageSize(upright, QPageSize::Point),
                                      isLying ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
                                      QPageLayout::Point));
    printer.setFullPage(true);
}

PrintOutput::PrintOutput(const PaperPicture& picture, PosterPlan plan, PosterMarks marks,
                         std::shared_ptr<QPrinter> printer)
    : picture_(picture), plan_(std::move(plan)), marks_(marks), printer_(std::move(printer))
{}

PrintOutput::~PrintOutput()
{
    if (!painter_.isActive())
        return;
    printer_->abort();
    painter_.end();
}

void PrintOutput::standOnPaper()
{
    constexpr double pointsPerInch = 72;
    painter_.resetTransform();
    painter_.setClipping(false);
    painter_.scale(printer_->resolution() / pointsPerInch, printer_->resolution() / pointsPerInch);
}

QPainter* PrintOutput::begin(std::size_t page)
{
    isSound_ = isSound_ && (page == 0 ? painter_.begin(printer_.get()) : printer_->newPage());
    if (!isSound_)
        return nullptr;
    const PosterPage& shown = plan_.pages()[page];
    standOnPaper();
    painter_.setClipRect(shown.target);
    painter_.translate(shown.target.topLeft() - shown.source.topLeft() * plan_.scale());
    painter_.scale(plan_.scale(), plan_.scale());
    return &painter_;
}

void PrintOutput::end(std::size_t page)
{
    standOnPaper();
    paintMarks(painter_, plan_, page, marks_);
}

Outcome<QByteArray> PrintOutput::finish()
{
    if (isSound_ && hasAssembly(plan_, marks_)) {
        isSound_ = printer_->newPage();
        standOnPaper();
        paintAssembly(painter_, plan_, picture_);
    }
    if (isSound_ && painter_.end() && printer_->printerState() != QPrinter::Error)
        return QByteArray();
    if (!printer_->outputFileName().isEmpty())
        return Failure{
            PrintOutputTexts::tr("\u201c%1\u201d can\u2019t be written. Is there such a folder, with room and "
                                 "permission for a file?")
                .arg(printer_->outputFileName())};
    return Failure{PrintOutputTexts::tr("\u201c%1\u201d can\u2019t print: it took not all pages. Is it switched on and "
                                        "connected?")
                       .arg(printer_->printerName())};
}

} // namespace lineara
