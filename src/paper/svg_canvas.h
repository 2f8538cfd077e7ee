#pragma once

#include "file_text.h"
#include "vector_device.h"

#include <unordered_map>

namespace lineara {

/// An SVG file. Texts stay texts: each says which fonts will do and how long it is, so that it fills its place in
/// whatever program and font. Shapes that come again are kept once.
class SvgCanvas : public VectorSink
{
public:
    SvgCanvas(QSizeF size, const QString& title);

    /// The whole file. Nothing can be drawn any more.
    QByteArray finish();

    void shape(const VectorShape& shape, QPointF at) override;
    void text(const QString& text, QPointF baseline, const QFont& font, double scale, const QColor& colour) override;
    void image(const QImage& image, const QRectF& place) override;

private:
    struct Seen
    {
        int id = -1; ///< once it has come twice
    };

    /// Elements that are painted alike stand in one group.
    void enterGroup(const QByteArray& attributes);
    void leaveGroup();

    QByteArray bytes_;
    QByteArray group_; // attributes of the open one; empty if none is
    std::unordered_map<Fingerprint, Seen, HashOfFingerprint> shapes_;
    int ids_ = 0;
};

} // namespace lineara
