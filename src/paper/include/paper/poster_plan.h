#pragma once

#include "platform/outcome.h"

#include <QMarginsF>
#include <QRectF>
#include <QSizeF>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace lineara {

/// A sheet of paper as it lies in the printer, in points of paper, 72 to an inch.
struct PaperSheet
{
    QSizeF size;
    QMarginsF margins;

    /// What may be printed on; without a size if the margins leave nothing.
    QRectF printable() const;
};

/// How large a picture becomes on how many sheets.
struct PosterWish
{
    enum class Sizing : std::uint8_t
    {
        OnePage,     ///< as large as one sheet allows, at most at greatestFit
        Scale,       ///< as `scale` says
        PagesAcross, ///< as wide as `pages` sheets side by side
        PagesDown    ///< as high as `pages` sheets one below the other
    };

    /// One person on one sheet would otherwise have a face as large as life.
    static constexpr double greatestFit = 3;

    Sizing sizing = Sizing::OnePage;
    double scale = 1; ///< points of paper for each of the picture
    int pages = 2;
    double overlap = 28; ///< points of paper that neighbouring sheets have in common
};

/// One sheet of a poster.
struct PosterPage
{
    int column = 0;
    int row = 0;
    QRectF source; ///< in points of the picture, from its top left corner; may reach beyond the picture
    QRectF target; ///< in points of paper, from the sheet's top left corner
    friend bool operator==(const PosterPage&, const PosterPage&) = default;
};

/// Which part of a picture comes onto which sheet, row by row from the top left. Geometry alone.
class PosterPlan
{
public:
    static constexpr std::size_t mostPages = 2'000;

    /// The picture is given in points of its own. Fails where the margins or the overlap leave no room on a sheet, and
    /// where there would be more than mostPages.
    static Outcome<PosterPlan> make(QSizeF picture, const PaperSheet& sheet, const PosterWish& wish);

    /// Points of paper for each of the picture.
    double scale() const { return scale_; }
    int columns() const { return columns_; }
    int rows() const { return rows_; }
    /// Points of paper; 0 on a single sheet.
    double overlap() const { return overlap_; }
    const PaperSheet& sheet() const { return sheet_; }
    const std::vector<PosterPage>& pages() const { return pages_; }

    /// Leaves out pages, but for the last that is left; columns and rows keep their numbers.
    void leaveOut(const std::function<bool(const PosterPage&)>& isBlank);

private:
    PosterPlan() = default;
    void cut(QSizeF picture, QRectF room);

    PaperSheet sheet_;
    double scale_ = 1;
    double overlap_ = 0;
    int columns_ = 1;
    int rows_ = 1;
    std::vector<PosterPage> pages_;
};

} // namespace lineara
