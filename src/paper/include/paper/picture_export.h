#pragma once

#include "paper/poster_marks.h"
#include "paper/poster_plan.h"
#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QSize>
#include <QSizeF>

#include <cstdint>
#include <memory>
#include <optional>

namespace lineara {

class PaperDrawing;
class PaperOutput;
class PaperPicture;

enum class PictureKind : std::uint8_t
{
    Pdf,
    Svg,
    Png
};

enum class PictureGround : std::uint8_t
{
    White,
    Transparent
};

/// Sheets of a PDF file, in place of one page as large as the picture.
struct PosterSheets
{
    PaperSheet sheet;
    PosterWish wish;
    PosterMarks marks;
};

/// What file a picture becomes.
struct PictureWish
{
    PictureKind kind = PictureKind::Pdf;
    PictureGround ground = PictureGround::White; ///< of SVG and PNG; PDF's is the paper
    QSize pixels;                                ///< of PNG; the picture keeps its shape and stands in the middle
    std::optional<PosterSheets> sheets;          ///< of PDF
};

inline constexpr int mostPixelsAcross = 65'000;
inline constexpr qint64 mostPixels = 1'000'000'000;

/// Writes a picture into a file, bit by bit. The same family gives the same bytes. Nothing touches the disk before
/// save(). Main thread only; good until anything in the family or on its canvas changes.
class PictureExport
{
public:
    /// The picture must outlive the export. Fails where the wish can't be fulfilled: a sentence that says what to
    /// change.
    static Outcome<std::unique_ptr<PictureExport>> begin(const PaperPicture& picture, const PictureWish& wish);
    ~PictureExport();

    /// Draws for some milliseconds. True while something is left.
    bool step();
    double part() const;

    /// The whole file, once nothing is left.
    Outcome<QByteArray> bytes();

private:
    PictureExport(const PaperPicture& picture, std::unique_ptr<PaperOutput> output);

    std::unique_ptr<PaperOutput> output_;
    std::unique_ptr<PaperDrawing> drawing_;
};

/// The file's content in one go. Stopped by `progress`, it fails without a message.
Outcome<QByteArray> pictureBytes(const PaperPicture& picture, const PictureWish& wish, const Progress& progress = {});

/// Puts content in the place of the file at `path`, or leaves everything as it was. The failure names the file.
Outcome<Done> savePictureFile(const QString& path, const QByteArray& content);

/// The plan of a wish's sheets as they will come out, without blank ones where that is wished.
Outcome<PosterPlan> planOf(const PaperPicture& picture, const PosterSheets& sheets);

/// One page as large as the picture, or smaller where no PDF page may be as long.
PosterPlan ownPageOf(QSizeF picture);

} // namespace lineara
