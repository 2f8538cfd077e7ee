#include "jpeg_layout.h"

namespace lineara {

namespace {

constexpr int startOfScan = 0xDA;

/// Segments of a JPEG one after the other, up to the first scan.
class Segments
{
public:
    explicit Segments(const QByteArray& jpeg) : jpeg_(jpeg) {}

    /// Moves to the next segment; false at the end or where the bytes are no segments any more.
    bool next()
    {
        at_ = contentAt_ + contentLength_;
        while (byte(at_) == 0xFF && byte(at_ + 1) == 0xFF)
            ++at_;
        const int length = byte(at_ + 2) << 8 | byte(at_ + 3);
        contentAt_ = at_ + 4;
        contentLength_ = length - 2;
        return byte(at_) == 0xFF && length >= 2 && contentAt_ + contentLength_ <= jpeg_.size();
    }

    int marker() const { return byte(at_ + 1); }
    int content(qsizetype position) const { return byte(contentAt_ + position); }

    bool isFrameHeader() const
    {
        return (marker() & 0xF0) == 0xC0 && marker() != 0xC4 && marker() != 0xC8 && marker() != 0xCC;
    }
    bool isProgressive() const { return (marker() & 3) == 2; }

private:
    int byte(qsizetype position) const
    {
        return position < jpeg_.size() ? static_cast<unsigned char>(jpeg_[position]) : 0;
    }

    const QByteArray& jpeg_;
    qsizetype at_ = 0;
    qsizetype contentAt_ = 2;
    qsizetype contentLength_ = 0;
};

} // namespace

JpegLayout JpegLayout::of(const QByteArray& jpeg)
{
    JpegLayout layout;
    layout.scans = jpeg.count("\xFF\xDA");
    bool progressive = true;
    for (Segments segments(jpeg); segments.next();) {
        if (segments.isFrameHeader()) {
            layout.components = segments.content(5);
            progressive = segments.isProgressive();
        } else if (segments.marker() == startOfScan) {
            layout.holdsWholeImage = progressive || segments.content(0) < layout.components;
            break;
        }
    }
    return layout;
}

} // namespace lineara
