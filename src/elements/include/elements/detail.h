#pragma once

#include <cstddef>
#include <cstdint>

namespace lineara {

/// How much of a node or link is worth drawing at a zoom.
enum class Detail : std::uint8_t
{
    Full,   ///< everything, antialiased
    Plain,  ///< no antialiasing, outlines one pixel wide, texts as bars
    Coarse, ///< boxes and lines that the canvas draws in batches
};

/// Whether the next picture will follow at once, so that this one may be rougher.
enum class Motion : std::uint8_t
{
    Still,
    Moving
};

/// What is drawn small is drawn simply, but a few nodes are drawn well at any zoom, because they cost little. While
/// pictures follow one another only as much is drawn as there is time for.
/// `zoom` is the one of the view, whatever the density of its screen: pixels of the desktop for one point.
constexpr Detail detailAt(double zoom, std::size_t nodesInView, Motion motion)
{
    const bool isMoving = motion == Motion::Moving;
    const std::size_t few = isMoving ? 200 : 400;
    const std::size_t notMany = isMoving ? 700 : 1'500;
    if (nodesInView <= few || (!isMoving && zoom >= 0.5))
        return Detail::Full;
    return nodesInView <= notMany || (!isMoving && zoom >= 0.15) ? Detail::Plain : Detail::Coarse;
}

} // namespace lineara
