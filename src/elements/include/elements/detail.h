#pragma once

#include <cstdint>

namespace lineara {

/// How much of a node or link is worth drawing at a zoom.
enum class Detail : std::uint8_t
{
    Full,   ///< everything, antialiased
    Plain,  ///< no antialiasing, outlines one pixel wide, texts as bars
    Coarse, ///< boxes and lines that the canvas draws in batches
};

/// Zoom is the one of the view, whatever the density of its screen: pixels of the desktop for one point.
constexpr Detail detailAt(double zoom)
{
    if (zoom >= 0.5)
        return Detail::Full;
    return zoom >= 0.15 ? Detail::Plain : Detail::Coarse;
}

} // namespace lineara
