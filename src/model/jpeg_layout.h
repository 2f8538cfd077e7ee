#pragma once

#include <QByteArray>

#include <cstdint>

namespace lineara {

/// What decoding a JPEG holds in memory, as its header tells. Unreadable headers count as the costliest kind.
struct JpegLayout
{
    /// Colour components of a pixel.
    int components = 4;
    /// All coefficients must be held until the last scan has been read; otherwise rows leave as they come.
    bool holdsWholeImage = true;
    /// At least as many as there are. Every scan is a walk over the whole picture, and costs the file only bytes.
    std::int64_t scans = 0;

    static JpegLayout of(const QByteArray& jpeg);
};

} // namespace lineara
