#include "vector_device.h"

#include <QPaintEngine>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

class VectorEngine : public QPaintEngine
{
public:
    explicit VectorEngine(VectorSink& sink)
        : QPaintEngine(PaintEngineFeatures(PrimitiveTransform | PainterPaths | AlphaBlend | Antialiasing |
                                           ConstantOpacity | PaintOutsidePaintEvent | PixmapTransform)),
          sink_(sink)
    {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override
    {
        transform_ = now.transform();
        scale_ = std::sqrt(std::abs(transform_.determinant()));
        const QPen pen = now.pen();
        const QBrush brush = now.brush();
        look_.stroke = pen.style() == Qt::NoPen ? QColor() : pen.color();
        look_.fill = brush.style() == Qt::NoBrush ? QColor() : brush.color();
        look_.width = pen.widthF() * scale_;
        look_.cap = pen.capStyle();
        look_.join = pen.joinStyle();
    }

    void drawPath(const QPainterPath& path) override
    {
        if (path.isEmpty())
            return;
        VectorShape shape{transform_.map(path), look_};
        const QPointF first = shape.path.elementAt(0);
        shape.path.translate(-first);
        sink_.shape(shape, first);
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path(points[0]);
        for (int at = 1; at < count; ++at)
            path.lineTo(points[at]);
        if (mode == PolylineMode) {
            const QColor fill = std::exchange(look_.fill, QColor());
            drawPath(path);
            look_.fill = fill;
            return;
        }
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        path.closeSubpath();
        drawPath(path);
    }

    void drawTextItem(const QPointF& baseline, const QTextItem& item) override
    {
        sink_.text(item.text(), transform_.map(baseline), item.font(), scale_, look_.stroke);
    }

    void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& source) override
    {
        drawImage(place, pixmap.toImage(), source, Qt::AutoColor);
    }

    void drawImage(const QRectF& place, const QImage& image, const QRectF& source,
                   Qt::ImageConversionFlags /*flags*/) override
    {
        const QImage seen = image.copy(source.toAlignedRect());
        const QSize wanted = (place.size() * VectorDevice::pixelsPerPoint).toSize().expandedTo({1, 1});
        const bool isLarger = seen.width() > wanted.width() && seen.height() > wanted.height();
        sink_.image(isLarger ? seen.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : seen,
                    transform_.mapRect(place));
    }

private:
    VectorSink& sink_;
    QTransform transform_;
    double scale_ = 1;
    VectorLook look_;
};

} // namespace

VectorSink::~VectorSink() = default;

Fingerprint fingerprintOf(const VectorShape& shape)
{
    const auto hundredths = [](double number) { return static_cast<std::uint64_t>(std::llround(number * 100)); };
    const VectorLook& look = shape.look;
    Fingerprint sum;
    sum.add((std::uint64_t{look.fill.isValid()} << 1) | std::uint64_t{look.stroke.isValid()});
    sum.add((std::uint64_t{look.fill.rgba()} << 32) | look.stroke.rgba());
    sum.add(hundredths(look.width));
    sum.add((static_cast<std::uint64_t>(look.cap) << 16) | static_cast<std::uint64_t>(look.join));
    sum.add(static_cast<std::uint64_t>(shape.path.fillRule()));
    for (int at = 0; at < shape.path.elementCount(); ++at) {
        const QPainterPath::Element& element = shape.path.elementAt(at);
        sum.add((hundredths(element.x) << 3) | static_cast<std::uint64_t>(element.type));
        sum.add(hundredths(element.y));
    }
    return sum;
}

VectorDevice::VectorDevice(VectorSink& sink, QSizeF size) : size_(size), engine_(std::make_unique<VectorEngine>(sink))
{}

VectorDevice::~VectorDevice() = default;

QPaintEngine* VectorDevice::paintEngine() const
{
    return engine_.get();
}

int VectorDevice::metric(PaintDeviceMetric metric) const
{
    constexpr int pointsPerInch = 72;
    constexpr double millimetresPerInch = 25.4;
    switch (metric) {
    case PdmWidth:
        return static_cast<int>(std::ceil(size_.width()));
    case PdmHeight:
        return static_cast<int>(std::ceil(size_.height()));
    case PdmWidthMM:
        return static_cast<int>(std::ceil(size_.width() * millimetresPerInch / pointsPerInch));
    case PdmHeightMM:
        return static_cast<int>(std::ceil(size_.height() * millimetresPerInch / pointsPerInch));
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return pointsPerInch;
    case PdmDepth:
        return 32;
    case PdmNumColors:
        return 1 << 24;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return 0;
}

} // namespace lineara
