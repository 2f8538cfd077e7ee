#pragma once

#include "file_text.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPaintDevice>
#include <QPainterPath>
#include <QPen>

#include <memory>

namespace lineara {

/// How a shape is painted; a colour that is not valid is not painted with.
struct VectorLook
{
    QColor fill;
    QColor stroke;
    double width = 1;
    Qt::PenCapStyle cap = Qt::SquareCap;
    Qt::PenJoinStyle join = Qt::BevelJoin;
    friend bool operator==(const VectorLook&, const VectorLook&) = default;
};

/// A shape whose first point has been put at (0, 0), so that equal shapes at different places are equal.
struct VectorShape
{
    QPainterPath path;
    VectorLook look;
};

/// The same for shapes that look the same, to a hundredth of a point.
Fingerprint fingerprintOf(const VectorShape& shape);

/// Takes what is painted on a VectorDevice, lowest first, in points from the device's top left corner, y downwards.
class VectorSink
{
public:
    VectorSink() = default;
    virtual ~VectorSink();
    VectorSink(const VectorSink&) = delete;
    VectorSink& operator=(const VectorSink&) = delete;

    virtual void shape(const VectorShape& shape, QPointF at) = 0;
    /// `font` is measured in pixels; its size times `scale` is the size in points. `baseline` is where the text begins.
    virtual void text(const QString& text, QPointF baseline, const QFont& font, double scale, const QColor& colour) = 0;
    virtual void image(const QImage& image, const QRectF& place) = 0;
};

/// Lets a painter draw into a file of shapes, texts and pictures. Understands what families are drawn with: plain
/// colours, solid lines, upright pictures. Clipping is left to the file.
class VectorDevice : public QPaintDevice
{
public:
    /// Pixels kept for each point of a picture; what is drawn larger than that is not seen at a usual distance.
    static constexpr double pixelsPerPoint = 3;

    VectorDevice(VectorSink& sink, QSizeF size);
    ~VectorDevice() override;

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSizeF size_;
    std::unique_ptr<QPaintEngine> engine_;
};

} // namespace lineara
