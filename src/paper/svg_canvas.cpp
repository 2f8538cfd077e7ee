#include "svg_canvas.h"

#include "paper_limits.h"

#include <QBuffer>
#include <QFontInfo>
#include <QFontMetricsF>

#include <cmath>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace lineara {

namespace {

constexpr int jpegQualityOfSvg = 88;

/// Text that may stand in an attribute or between tags. What XML knows no way to write is left out.
QByteArray marked(const QString& text)
{
    QString known;
    for (const QChar letter : text) {
        if (letter >= u' ' && letter != QChar(0xfffe) && letter != QChar(0xffff))
            known += letter;
    }
    return known.toHtmlEscaped().toUtf8();
}

/// Numbers count from where the last one led, as it was written, so that nothing adds up.
class PathData
{
public:
    void move(QPointF point) { put('m', {point}); }
    void line(QPointF point) { put('l', {point}); }
    void curve(QPointF first, QPointF second, QPointF end) { put('c', {first, second, end}); }
    void close() { data += 'z'; }

    QByteArray data;

private:
    static double rounded(double number) { return static_cast<double>(std::llround(number * 100)) / 100; }

    void put(char command, std::initializer_list<QPointF> points)
    {
        data += command;
        QPointF written;
        for (const QPointF& point : points) {
            written = {rounded(point.x() - pen_.x()), rounded(point.y() - pen_.y())};
            appendNumber(data, written.x());
            if (written.y() >= 0)
                data += ' ';
            appendNumber(data, written.y());
            data += ' ';
        }
        data.chop(1);
        pen_ += written;
    }

    QPointF pen_;
};

void appendAttribute(QByteArray& attributes, const char* name, double number, int decimals = 2)
{
    attributes += ' ';
    attributes += name;
    attributes += "=\"";
    appendNumber(attributes, number, decimals);
    attributes += '"';
}

void appendColour(QByteArray& attributes, const char* name, const QColor& colour)
{
    attributes += ' ';
    attributes += name;
    attributes += "=\"" + (colour.isValid() ? colour.name().toLatin1() : QByteArray("none")) + '"';
    if (colour.isValid() && colour.alpha() < 255)
        appendAttribute(attributes, (QByteArray(name) + "-opacity").constData(), static_cast<double>(colour.alphaF()),
                        3);
}

QByteArray attributesOf(const VectorShape& shape)
{
    const VectorLook& look = shape.look;
    QByteArray attributes;
    appendColour(attributes, "fill", look.fill);
    if (shape.path.fillRule() == Qt::OddEvenFill && look.fill.isValid())
        attributes += " fill-rule=\"evenodd\"";
    if (!look.stroke.isValid())
        return attributes;
    appendColour(attributes, "stroke", look.stroke);
    appendAttribute(attributes, "stroke-width", look.width);
    if (look.cap != Qt::FlatCap)
        attributes += look.cap == Qt::RoundCap ? " stroke-linecap=\"round\"" : " stroke-linecap=\"square\"";
    if (look.join == Qt::RoundJoin || look.join == Qt::BevelJoin)
        attributes += look.join == Qt::RoundJoin ? " stroke-linejoin=\"round\"" : " stroke-linejoin=\"bevel\"";
    else
        attributes += QByteArray(" stroke-miterlimit=\"") + miterLimit + '"';
    return attributes;
}

} // namespace

SvgCanvas::SvgCanvas(QSizeF size, const QString& title)
    : bytes_(R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink")")
{
    appendAttribute(bytes_, "width", size.width());
    appendAttribute(bytes_, "height", size.height());
    bytes_ += " viewBox=\"0 0 ";
    appendNumber(bytes_, size.width());
    bytes_ += ' ';
    appendNumber(bytes_, size.height());
    bytes_ += "\">\n";
    if (!title.isEmpty())
        bytes_ += "<title>" + marked(title) + "</title>\n";
}

void SvgCanvas::enterGroup(const QByteArray& attributes)
{
    if (group_ == attributes)
        return;
    leaveGroup();
    bytes_ += "<g" + attributes + ">\n";
    group_ = attributes;
}

void SvgCanvas::leaveGroup()
{
    if (!std::exchange(group_, {}).isEmpty())
        bytes_ += "</g>\n";
}

void SvgCanvas::shape(const VectorShape& shape, QPointF at)
{
    enterGroup(attributesOf(shape));
    const auto [place, isNew] = shapes_.try_emplace(fingerprintOf(shape));
    Seen& seen = place->second;
    if (isNew || seen.id < 0) {
        PathData path;
        visitPath(shape.path, path);
        if (isNew) {
            // The first move leads to where the shape stands; all others count from there.
            bytes_ += "<path d=\"m";
            appendNumber(bytes_, at.x());
            bytes_ += ' ';
            appendNumber(bytes_, at.y());
            bytes_ += path.data.mid(4) + "\"/>\n";
            return;
        }
        seen.id = ids_++;
        bytes_ += "<defs><path id=\"s" + QByteArray::number(seen.id) + "\" d=\"" + path.data + "\"/></defs>\n";
    }
    bytes_ += "<use xlink:href=\"#s" + QByteArray::number(seen.id) + '"';
    appendAttribute(bytes_, "x", at.x());
    appendAttribute(bytes_, "y", at.y());
    bytes_ += "/>\n";
}

void SvgCanvas::text(const QString& text, QPointF baseline, const QFont& font, double scale, const QColor& colour)
{
    QByteArray attributes(" font-family=\"'" + marked(QFontInfo(font).family()) +
                          R"(','DejaVu Sans',Verdana,Geneva,sans-serif" xml:space="preserve")");
    appendAttribute(attributes, "font-size", font.pixelSize() * scale);
    appendColour(attributes, "fill", colour);
    enterGroup(attributes);
    bytes_ += "<text";
    appendAttribute(bytes_, "x", baseline.x());
    appendAttribute(bytes_, "y", baseline.y());
    appendAttribute(bytes_, "textLength", QFontMetricsF(font).horizontalAdvance(text) * scale);
    bytes_ += " lengthAdjust=\"spacingAndGlyphs\">" + marked(text) + "</text>\n";
}

void SvgCanvas::image(const QImage& image, const QRectF& place)
{
    leaveGroup();
    QBuffer packed;
    packed.open(QIODevice::WriteOnly);
    const bool isPhoto = !image.hasAlphaChannel();
    image.save(&packed, isPhoto ? "JPG" : "PNG", isPhoto ? jpegQualityOfSvg : -1);
    bytes_ += "<image preserveAspectRatio=\"none\"";
    appendAttribute(bytes_, "x", place.x());
    appendAttribute(bytes_, "y", place.y());
    appendAttribute(bytes_, "width", place.width());
    appendAttribute(bytes_, "height", place.height());
    bytes_ += QByteArray(" xlink:href=\"data:image/") + (isPhoto ? "jpeg" : "png") + ";base64," +
              packed.data().toBase64() + "\"/>\n";
}

QByteArray SvgCanvas::finish()
{
    leaveGroup();
    bytes_ += "</svg>\n";
    return std::move(bytes_);
}

} // namespace lineara
