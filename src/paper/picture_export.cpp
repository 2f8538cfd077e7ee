#include "paper/picture_export.h"

#include "paper/paper_picture.h"
#include "paper_drawing.h"
#include "paper_limits.h"
#include "pdf_output.h"
#include "picture_outputs.h"
#include "store/atomic_file.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct PictureExportTexts
{
    Q_DECLARE_TR_FUNCTIONS(PictureExport)
};

using Output = Outcome<std::unique_ptr<PaperOutput>>;

Output pdfOutput(const PaperPicture& picture, const PictureWish& wish)
{
    if (!wish.sheets)
        return {std::make_unique<PdfOutput>(picture, ownPageOf(picture.size()), PosterMarks())};
    auto plan = planOf(picture, *wish.sheets);
    if (plan.failed())
        return plan.failure();
    return {std::make_unique<PdfOutput>(picture, std::move(plan.value()), wish.sheets->marks)};
}

Output pngOutput(const PaperPicture& picture, const PictureWish& wish)
{
    const QSize size = wish.pixels;
    if (size.width() < 1 || size.height() < 1)
        return Failure{PictureExportTexts::tr("The picture needs at least one pixel on each side.")};
    if (std::max(size.width(), size.height()) > mostPixelsAcross || qint64{size.width()} * size.height() > mostPixels) {
        return Failure{PictureExportTexts::tr("A PNG picture of %L1 \u00d7 %L2 pixels is too large: it may have %L3 on "
                                              "a side and %L4 million in all. Choose a smaller size, or PDF or SVG, "
                                              "which are sharp at any size.")
                           .arg(size.width())
                           .arg(size.height())
                           .arg(mostPixelsAcross)
                           .arg(mostPixels / 1'000'000)};
    }
    return {std::make_unique<PngOutput>(picture, size, wish.ground)};
}

Output outputOf(const PaperPicture& picture, const PictureWish& wish)
{
    switch (wish.kind) {
    case PictureKind::Pdf:
        return pdfOutput(picture, wish);
    case PictureKind::Svg:
        return {std::make_unique<SvgOutput>(picture, wish.ground)};
    case PictureKind::Png:
        break;
    }
    return pngOutput(picture, wish);
}

} // namespace

PictureExport::PictureExport(const PaperPicture& picture, std::unique_ptr<PaperOutput> output)
    : output_(std::move(output)), drawing_(std::make_unique<PaperDrawing>(picture, *output_))
{}

PictureExport::~PictureExport() = default;

Outcome<std::unique_ptr<PictureExport>> PictureExport::begin(const PaperPicture& picture, const PictureWish& wish)
{
    Output output = outputOf(picture, wish);
    if (output.failed())
        return output.failure();
    return std::unique_ptr<PictureExport>(new PictureExport(picture, std::move(output.value())));
}

bool PictureExport::step()
{
    return drawing_->step();
}

double PictureExport::part() const
{
    return drawing_->part();
}

Outcome<QByteArray> PictureExport::bytes()
{
    return output_->finish();
}

Outcome<QByteArray> pictureBytes(const PaperPicture& picture, const PictureWish& wish, const Progress& progress)
{
    auto begun = PictureExport::begin(picture, wish);
    if (begun.failed())
        return begun.failure();
    PictureExport& drawing = *begun.value();
    while (drawing.step()) {
        if (!progress.goesOn(drawing.part()))
            return Failure{};
    }
    return drawing.bytes();
}

Outcome<Done> savePictureFile(const QString& path, const QByteArray& content)
{
    return store::replaceFile(path, [&content](const store::ByteSink& sink) {
        return sink({content.data(), static_cast<std::size_t>(content.size())});
    });
}

Outcome<PosterPlan> planOf(const PaperPicture& picture, const PosterSheets& sheets)
{
    auto plan = PosterPlan::make(picture.size(), sheets.sheet, sheets.wish);
    if (!plan.failed() && sheets.marks.leavesOutBlank)
        plan.value().leaveOut([&picture](const PosterPage& page) { return picture.isBlank(page.source); });
    return plan;
}

PosterPlan ownPageOf(QSizeF picture)
{
    const QSizeF whole = picture.expandedTo({1, 1});
    const double scale = std::min(1.0, longestPdfPage / std::max(whole.width(), whole.height()));
    // One page without margins has room for any picture of its own size.
    constexpr double least = 18;
    return PosterPlan::make(whole, {(whole * scale).expandedTo({least, least}), {}}, {}).value();
}

} // namespace lineara
