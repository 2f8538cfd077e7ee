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

/// What is drawn small is drawn simply, but a few nodes are drawn well at any zoom, because they cost little.
/// `zoom` is the one of the view, whatever the density of its screen: pixels of the desktop for one point.
constexpr Detail detailAt(double zoom, std::size_t nodesInView)
{
    constexpr std::size_t few = 400;
    constexpr std::size_t notMany = 1'500;
    if (zoom >= 0.5 || nodesInView <= few)
        return Detail::Full;
    return zoom >= 0.15 || nodesInView <= notMany ? Detail::Plain : Detail::Coarse;
}

} // namespace lineara
