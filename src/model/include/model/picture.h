#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

namespace lineara {

/// A person's picture, ready to be shown: the size that the file declares (turned upright where the file says so)
/// and pixels scaled down to what any view needs.
///
/// Damaged bytes give a size of 0 x 0 and no pixels; that is a picture all the same, not the absence of one.
class Picture
{
public:
    /// Reads the picture, bounded in time and memory however large or damaged the file is.
    static Picture decode(const QByteArray& bytes);

    /// Width and height in pixels of the upright picture; 0 x 0 if the bytes can't be read.
    QSize size() const { return size_; }

    /// At most 1024 pixels on the longer side; null if the bytes can't be decoded.
    const QImage& pixels() const { return pixels_; }

private:
    QSize size_{0, 0};
    QImage pixels_;
};

} // namespace lineara
