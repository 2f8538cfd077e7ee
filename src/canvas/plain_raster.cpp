#include "plain_raster.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <ranges>
#include <utility>

namespace lineara {

namespace {

struct Segment
{
    QPointF from;
    QPointF to;
};

/// Share of the way from 0 to 1 that lies within the image, narrowed edge by edge (Liang and Barsky, 1984).
struct Share
{
    double begin = 0;
    double end = 1;

    /// `rise` is what one whole way gains towards beyond an edge that lies `room` away.
    bool narrow(double rise, double room)
    {
        if (rise == 0)
            return room >= 0;
        if (rise < 0)
            begin = std::max(begin, room / rise);
        else
            end = std::min(end, room / rise);
        return begin <= end;
    }
};

std::optional<Segment> clipped(const Segment& line, QSize size)
{
    const QPointF way = line.to - line.from;
    const QPointF last(size.width() - 1, size.height() - 1);
    Share share;
    if (!share.narrow(-way.x(), line.from.x()) || !share.narrow(way.x(), last.x() - line.from.x()) ||
        !share.narrow(-way.y(), line.from.y()) || !share.narrow(way.y(), last.y() - line.from.y()))
        return std::nullopt;
    return Segment{line.from + share.begin * way, line.from + share.end * way};
}

/// The colour with all four parts times `share` / 255, rounded. Two parts at a time, each with eight bits of room above
/// it: three quarters of the time of a filled shape is spent here.
QRgb scaled(QRgb colour, std::uint32_t share)
{
    constexpr std::uint32_t lowParts = 0x00ff00ff;
    const auto divided = [](std::uint32_t parts) {
        parts += 0x00800080;
        return (parts + (parts >> 8 & lowParts)) >> 8 & lowParts;
    };
    return divided((colour & lowParts) * share) | divided((colour >> 8 & lowParts) * share) << 8;
}

/// What a colour lets through, of 255.
std::uint32_t restOf(QRgb colour)
{
    return 255U - static_cast<std::uint32_t>(qAlpha(colour));
}

/// The first of `count` pixels whose middle lies at `place` or behind it; `count` if there is none.
int firstMiddleFrom(double place, int count)
{
    return static_cast<int>(std::clamp(place + 0.5, 0.0, static_cast<double>(count)));
}

} // namespace

PlainRaster::PlainRaster(QSize size, QRgb ground)
    : ground_(ground), image_(size, qAlpha(ground) == 255 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied),
      pixels_(reinterpret_cast<QRgb*>(image_.bits())),
      stride_(image_.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
{
    image_.fill(ground);
}

QRgb PlainRaster::onGround(QRgb colour) const
{
    return colour + scaled(ground_, restOf(colour));
}

void PlainRaster::line(QPointF from, QPointF to, QRgb colour)
{
    const QPointF corner(0.5, 0.5); // of the first pixel to its middle
    const auto seen = clipped({from - corner, to - corner}, image_.size());
    if (!seen)
        return;
    const QPointF way = seen->to - seen->from;
    const int steps = static_cast<int>(std::ceil(std::max(std::abs(way.x()), std::abs(way.y()))));
    const QPointF step = steps > 0 ? way / steps : QPointF();
    const QRgb pixel = onGround(colour);
    QPointF place = seen->from + corner;
    for (int at = 0; at <= steps; ++at, place += step)
        row(static_cast<int>(place.y()))[static_cast<int>(place.x())] = pixel;
}

void PlainRaster::fill(std::span<const QPointF> outline, QRgb colour)
{
    if (outline.empty())
        return;
    const auto [top, bottom] = std::ranges::minmax(outline | std::views::transform(&QPointF::y));
    const int firstRow = firstMiddleFrom(top, image_.height());
    const int endRow = firstMiddleFrom(bottom, image_.height());
    if (firstRow >= endRow)
        return;
    const auto rows = static_cast<std::size_t>(endRow - firstRow);
    crossings_.resize(std::max(crossings_.size(), rows));
    QPointF from = outline.back();
    for (const QPointF& to : outline)
        addCrossings(std::exchange(from, to), to, firstRow);
    for (std::size_t at = 0; at < rows; ++at)
        fillRow(firstRow + static_cast<int>(at), crossings_[at], colour);
}

void PlainRaster::addCrossings(QPointF from, QPointF to, int firstRow)
{
    const int winding = from.y() < to.y() ? 1 : -1;
    if (winding < 0)
        std::swap(from, to);
    const int begin = firstMiddleFrom(from.y(), image_.height());
    const int end = firstMiddleFrom(to.y(), image_.height());
    if (begin >= end)
        return;
    const double slope = (to.x() - from.x()) / (to.y() - from.y());
    double x = from.x() + (begin + 0.5 - from.y()) * slope;
    for (int y = begin; y < end; ++y, x += slope)
        crossings_[static_cast<std::size_t>(y - firstRow)].push_back({x, winding});
}

void PlainRaster::fillRow(int y, std::vector<Crossing>& crossings, QRgb colour)
{
    if (crossings.size() == 2) {
        if (crossings[1].x < crossings[0].x)
            std::swap(crossings[0], crossings[1]);
    } else {
        std::ranges::sort(crossings, {}, &Crossing::x);
    }
    const std::uint32_t rest = restOf(colour);
    QRgb* const pixels = row(y);
    int winding = 0;
    for (std::size_t at = 0; at + 1 < crossings.size(); ++at) {
        winding += crossings[at].winding;
        if (winding == 0)
            continue;
        QRgb* const end = pixels + firstMiddleFrom(crossings[at + 1].x, image_.width());
        for (QRgb* pixel = pixels + firstMiddleFrom(crossings[at].x, image_.width()); pixel < end; ++pixel)
            *pixel = colour + scaled(*pixel, rest);
    }
    crossings.clear();
}

} // namespace lineara
