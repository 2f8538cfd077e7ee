#include "paper/poster_plan.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace lineara {

namespace {

struct PosterPlanTexts
{
    Q_DECLARE_TR_FUNCTIONS(PosterPlan)
};

/// What is left of a sheet must be worth printing.
constexpr double leastRoom = 18;
/// Computed lengths may be off by less than anybody can see.
constexpr double hair = 1e-6;

/// How many sheets of that room a length takes, each but the first adding its room less the overlap. Too many to be
/// counted are very many.
double sheetsFor(double length, double room, double overlap)
{
    if (length <= room + hair)
        return 1;
    return std::min(1e9, std::ceil((length - overlap) / (room - overlap) - hair));
}

double lengthOf(double sheets, double room, double overlap)
{
    return sheets * (room - overlap) + overlap;
}

double scaleFor(QSizeF picture, QSizeF room, const PosterWish& wish)
{
    switch (wish.sizing) {
    case PosterWish::Sizing::Scale:
        return wish.scale;
    case PosterWish::Sizing::PagesAcross:
        return lengthOf(std::max(1, wish.pages), room.width(), wish.overlap) / picture.width();
    case PosterWish::Sizing::PagesDown:
        return lengthOf(std::max(1, wish.pages), room.height(), wish.overlap) / picture.height();
    case PosterWish::Sizing::OnePage:
        break;
    }
    return std::min({room.width() / picture.width(), room.height() / picture.height(), PosterWish::greatestFit});
}

std::optional<Failure> obstacle(QSizeF room, const PosterWish& wish)
{
    if (!(room.width() >= leastRoom && room.height() >= leastRoom))
        return Failure{PosterPlanTexts::tr("The margins leave no room on the paper. Choose smaller ones.")};
    const bool isPoster = wish.sizing != PosterWish::Sizing::OnePage;
    const double narrow = std::min(room.width(), room.height());
    if (isPoster && !(wish.overlap >= 0 && wish.overlap <= narrow - leastRoom))
        return Failure{PosterPlanTexts::tr("The overlap leaves nothing new for the next page. Choose a smaller one.")};
    if (wish.sizing == PosterWish::Sizing::Scale && !(wish.scale > 0 && std::isfinite(wish.scale)))
        return Failure{PosterPlanTexts::tr("The size must be more than nothing.")};
    return std::nullopt;
}

} // namespace

QRectF PaperSheet::printable() const
{
    const QRectF room = QRectF({}, size).marginsRemoved(margins);
    return room.width() > 0 && room.height() > 0 ? room : QRectF(room.topLeft(), QSizeF(0, 0));
}

Outcome<PosterPlan> PosterPlan::make(QSizeF picture, const PaperSheet& sheet, const PosterWish& wish)
{
    const QRectF room = sheet.printable();
    if (auto failure = obstacle(room.size(), wish))
        return *failure;
    const QSizeF whole = picture.expandedTo({1, 1});
    PosterPlan plan;
    plan.sheet_ = sheet;
    plan.scale_ = scaleFor(whole, room.size(), wish);
    if (wish.sizing != PosterWish::Sizing::OnePage) {
        const double columns = sheetsFor(whole.width() * plan.scale_, room.width(), wish.overlap);
        const double rows = sheetsFor(whole.height() * plan.scale_, room.height(), wish.overlap);
        if (columns * rows > static_cast<double>(mostPages)) {
            return Failure{PosterPlanTexts::tr("That would be %L1 pages, more than the %L2 that can be printed. "
                                               "Choose a smaller size.")
                               .arg(columns * rows, 0, 'f', 0)
                               .arg(mostPages)};
        }
        plan.columns_ = static_cast<int>(columns);
        plan.rows_ = static_cast<int>(rows);
        plan.overlap_ = plan.columns_ * plan.rows_ > 1 ? wish.overlap : 0;
    }
    plan.cut(whole, room);
    return plan;
}

// What the sheets have more than the picture needs is shared out to both sides.
void PosterPlan::cut(QSizeF picture, QRectF room)
{
    const QSizeF own = room.size() / scale_;
    const double overlap = overlap_ / scale_;
    const double left = (picture.width() - lengthOf(columns_, own.width(), overlap)) / 2;
    const double top = (picture.height() - lengthOf(rows_, own.height(), overlap)) / 2;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            const QPointF corner(left + column * (own.width() - overlap), top + row * (own.height() - overlap));
            pages_.push_back({column, row, QRectF(corner, own), room});
        }
    }
}

void PosterPlan::leaveOut(const std::function<bool(const PosterPage&)>& isBlank)
{
    std::vector<PosterPage> kept;
    std::ranges::copy_if(pages_, std::back_inserter(kept), [&](const PosterPage& page) { return !isBlank(page); });
    if (kept.empty())
        kept.push_back(pages_.front());
    pages_ = std::move(kept);
}

} // namespace lineara
