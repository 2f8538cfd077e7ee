#include "pdf_canvas.h"

#include "glyph_line.h"
#include "paper_limits.h"
#include "pdf_path.h"

#include <QBuffer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

constexpr qsizetype portion = 64 * 1024; // compressed at a time
constexpr int jpegQuality = 88;

void appendMove(QByteArray& ops, QPointF place)
{
    ops += "1 0 0 1 ";
    appendPoint(ops, place);
    ops += "cm";
}

/// Filled first, then outlined: both at once would leave out what lies under a translucent outline.
QByteArray shapeOps(const VectorShape& shape)
{
    const QByteArray path = pathOps(shape.path);
    QByteArray ops;
    if (shape.look.fill.isValid())
        ops += path + (shape.path.fillRule() == Qt::WindingFill ? "f\n" : "f*\n");
    if (shape.look.stroke.isValid())
        ops += path + "S\n";
    return ops;
}

QByteArray colourOps(const QColor& colour, const char* name)
{
    QByteArray ops;
    for (const float part : {colour.redF(), colour.greenF(), colour.blueF()}) {
        appendNumber(ops, static_cast<double>(part), 3);
        ops += ' ';
    }
    return ops + name + '\n';
}

int capCode(Qt::PenCapStyle cap)
{
    return cap == Qt::RoundCap ? 1 : cap == Qt::SquareCap ? 2 : 0;
}

int joinCode(Qt::PenJoinStyle join)
{
    return join == Qt::RoundJoin ? 1 : join == Qt::BevelJoin ? 2 : 0;
}

QByteArray escaped(const QByteArray& bytes)
{
    QByteArray text;
    for (const char byte : bytes) {
        if (byte == '(' || byte == ')' || byte == '\\')
            text += '\\';
        if (byte == '\r')
            text += "\\r";
        else
            text += byte;
    }
    return text;
}

/// Glyphs of one size as strings, which go on as long as the glyphs follow one another on a line.
class GlyphStrings
{
public:
    /// `font` is what says which font was used last on the page, and follows.
    GlyphStrings(double size, QByteArray& font) : size_(size), font_(font) {}

    /// `width` in thousandths of the size.
    void add(const PdfFont::Place& glyph, QPointF at, double width)
    {
        constexpr double hair = 4; // thousandths of the size
        const double gap = (pen_.x() - at.x()) * 1000 / size_;
        if (glyph.resource != resource_ || std::abs(pen_.y() - at.y()) > 0.01) {
            begin(glyph.resource, at);
        } else if (std::abs(gap) > hair) {
            ops_ += ')';
            appendNumber(ops_, gap, 0);
            ops_ += '(';
            pen_.setX(at.x());
        }
        ops_ += escaped(glyph.code);
        pen_.rx() += width * size_ / 1000;
    }

    QByteArray end()
    {
        if (!resource_.isEmpty())
            ops_ += ")]TJ\n";
        resource_.clear();
        return ops_;
    }

private:
    void begin(const QByteArray& resource, QPointF at)
    {
        end();
        QByteArray use = '/' + resource + ' ';
        appendNumber(use, size_);
        use += " Tf\n";
        if (std::exchange(font_, use) != use)
            ops_ += use;
        ops_ += "1 0 0 -1 ";
        appendPoint(ops_, at);
        ops_ += "Tm[(";
        resource_ = resource;
        pen_ = at;
    }

    double size_;
    QByteArray& font_;
    QByteArray ops_;
    QByteArray resource_;
    QPointF pen_;
};

Fingerprint sumOf(const QImage& image)
{
    Fingerprint sum;
    sum.add((static_cast<std::uint64_t>(image.width()) << 32) | static_cast<std::uint64_t>(image.format()));
    for (int y = 0; y < image.height(); ++y)
        sum.add({reinterpret_cast<const char*>(image.constScanLine(y)), static_cast<std::size_t>(image.width()) * 4});
    return sum;
}

QByteArray imageEntries(const QImage& image, const char* colours)
{
    return "/Type/XObject/Subtype/Image/Width " + QByteArray::number(image.width()) + "/Height " +
           QByteArray::number(image.height()) + "/BitsPerComponent 8/ColorSpace/" + colours;
}

QByteArray rows(const QImage& image, int bytesPerPixel)
{
    QByteArray bytes;
    bytes.reserve(qsizetype{image.width()} * image.height() * bytesPerPixel);
    for (int y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(image.constScanLine(y)), qsizetype{image.width()} * bytesPerPixel);
    return bytes;
}

} // namespace

PdfCanvas::PdfCanvas() : pageTree_(file_.reserve()), resources_(file_.reserve()) {}

PdfCanvas::~PdfCanvas() = default;

void PdfCanvas::put(const QByteArray& ops)
{
    pending_ += ops;
    if (pending_.size() < portion)
        return;
    content_->add({pending_.data(), static_cast<std::size_t>(pending_.size())});
    pending_.clear();
}

void PdfCanvas::beginPage(QSizeF paper)
{
    paper_ = paper;
    content_ = std::make_unique<Deflater>();
    pending_.clear();
}

void PdfCanvas::beginArea(QPointF origin, double scale, const std::optional<QRectF>& clip)
{
    QByteArray ops("q\n");
    if (clip) {
        appendPoint(ops, {clip->left(), paper_.height() - clip->bottom()});
        appendPoint(ops, {clip->width(), clip->height()});
        ops += "re W n\n";
    }
    appendNumber(ops, scale, 6);
    ops += " 0 0 ";
    appendNumber(ops, -scale, 6);
    ops += ' ';
    appendNumber(ops, origin.x(), 4);
    ops += ' ';
    appendNumber(ops, paper_.height() - origin.y(), 4);
    put(ops + " cm " + miterLimit + " M\n");
    look_.reset();
    textColour_.reset();
}

void PdfCanvas::endArea()
{
    endText();
    put("Q\n");
}

void PdfCanvas::endPage()
{
    content_->add({pending_.data(), static_cast<std::size_t>(pending_.size())});
    pending_.clear();
    const int content = file_.reserve();
    file_.putStream(content, "/Filter/FlateDecode", content_->finish());
    content_.reset();
    QByteArray size;
    appendPoint(size, {paper_.width(), paper_.height()});
    pages_.push_back(file_.add("<</Type/Page/Parent " + PdfFile::reference(pageTree_) + "/MediaBox[0 0 " + size +
                               "]/Resources " + PdfFile::reference(resources_) + "/Contents " +
                               PdfFile::reference(content) + "/Group<</S/Transparency/CS/DeviceRGB>>>>"));
}

void PdfCanvas::endText()
{
    if (!isInText_)
        return;
    put("ET\n");
    isInText_ = false;
}

QByteArray PdfCanvas::opacity(double fill, double stroke)
{
    QByteArray entry("<</ca ");
    appendNumber(entry, fill, 3);
    entry += "/CA ";
    appendNumber(entry, stroke, 3);
    entry += ">>";
    auto place = std::ranges::find(opacities_, entry);
    if (place == opacities_.end())
        place = opacities_.insert(place, entry);
    return "/G" + QByteArray::number(place - opacities_.begin()) + " gs\n";
}

QByteArray PdfCanvas::lookOps(const VectorLook& look)
{
    QByteArray ops = opacity(look.fill.isValid() ? static_cast<double>(look.fill.alphaF()) : 1,
                             look.stroke.isValid() ? static_cast<double>(look.stroke.alphaF()) : 1);
    if (look.fill.isValid())
        ops += colourOps(look.fill, "rg");
    if (!look.stroke.isValid())
        return ops;
    ops += colourOps(look.stroke, "RG");
    appendNumber(ops, look.width);
    return ops + " w " + QByteArray::number(capCode(look.cap)) + " J " + QByteArray::number(joinCode(look.join)) +
           " j\n";
}

void PdfCanvas::setLook(const VectorLook& look)
{
    if (look_ == look)
        return;
    put(lookOps(look));
    look_ = look;
    textColour_.reset();
}

void PdfCanvas::shape(const VectorShape& shape, QPointF at)
{
    endText();
    if (!shape.look.fill.isValid() && !shape.look.stroke.isValid())
        return;
    const auto known = shapes_.try_emplace(fingerprintOf(shape));
    if (!known.second) {
        pending_ += "q ";
        appendMove(pending_, at);
        put(formOf(known.first->second, shape) + " Do Q\n");
        return;
    }
    setLook(shape.look);
    pending_ += "q ";
    appendMove(pending_, at);
    put('\n' + shapeOps(shape) + "Q\n");
}

QByteArray PdfCanvas::formOf(Seen& seen, const VectorShape& shape)
{
    if (seen.form < 0) {
        // A mitre reaches beyond the line by up to its limit.
        const double reach = shape.look.width * 5 + 1;
        const QRectF bounds = shape.path.controlPointRect().adjusted(-reach, -reach, reach, reach);
        QByteArray box;
        appendPoint(box, bounds.topLeft());
        appendPoint(box, bounds.bottomRight());
        seen.form = static_cast<int>(forms_.size());
        forms_.push_back(
            file_.addPacked("/Type/XObject/Subtype/Form/BBox[" + box + "]/Resources " + PdfFile::reference(resources_),
                            lookOps(shape.look) + shapeOps(shape)));
    }
    return "/X" + QByteArray::number(seen.form);
}

PdfFont& PdfCanvas::fontOf(const QRawFont& font)
{
    for (const auto& [known, kept] : knownFonts_) {
        if (known == font)
            return *kept;
    }
    auto same = std::ranges::find_if(fonts_, [&font](const auto& kept) { return kept->is(font); });
    if (same == fonts_.end()) {
        const QByteArray name = 'F' + QByteArray::number(static_cast<qulonglong>(fonts_.size()));
        same = fonts_.insert(same, std::make_unique<PdfFont>(font, name));
    }
    knownFonts_.emplace_back(font, same->get());
    return **same;
}

void PdfCanvas::text(const QString& text, QPointF baseline, const QFont& font, double scale, const QColor& colour)
{
    if (!isInText_) {
        put("BT\n");
        isInText_ = true;
        textFont_.clear();
    }
    if (textColour_ != colour) {
        put(opacity(static_cast<double>(colour.alphaF()), 1) + colourOps(colour, "rg"));
        textColour_ = colour;
        look_.reset();
    }
    for (const GlyphRun& run : glyphLine(text, font))
        glyphs(fontOf(run.font), run.font.pixelSize() * scale, baseline, scale, run);
}

void PdfCanvas::glyphs(PdfFont& font, double size, QPointF baseline, double scale, const GlyphRun& run)
{
    GlyphStrings strings(size, textFont_);
    for (const PlacedGlyph& placed : run.glyphs) {
        const PdfFont::Place place = font.use(placed.glyph, placed.letters);
        strings.add(place, baseline + placed.place * scale, font.width(placed.glyph));
    }
    put(strings.end());
}

int PdfCanvas::addImage(const QImage& image)
{
    if (!image.hasAlphaChannel()) {
        QBuffer jpeg;
        jpeg.open(QIODevice::WriteOnly);
        image.save(&jpeg, "JPG", jpegQuality);
        const int number = file_.reserve();
        file_.putStream(number, imageEntries(image, "DeviceRGB") + "/Filter/DCTDecode", jpeg.data());
        return number;
    }
    const QImage colours = image.convertToFormat(QImage::Format_RGB888);
    const int mask =
        file_.addPacked(imageEntries(image, "DeviceGray"), rows(image.convertToFormat(QImage::Format_Alpha8), 1));
    return file_.addPacked(imageEntries(image, "DeviceRGB") + "/SMask " + PdfFile::reference(mask), rows(colours, 3));
}

void PdfCanvas::image(const QImage& image, const QRectF& place)
{
    endText();
    const QImage pixels = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    const auto known = images_.try_emplace(sumOf(pixels), 0);
    if (known.second)
        known.first->second = addImage(pixels);
    QByteArray ops = "q " + opacity(1, 1);
    appendNumber(ops, place.width());
    ops += " 0 0 ";
    appendNumber(ops, -place.height());
    ops += ' ';
    appendPoint(ops, place.bottomLeft());
    put(ops + "cm/I" + QByteArray::number(known.first->second) + " Do Q\n");
}

QByteArray PdfCanvas::finish(const QString& title)
{
    QByteArray entries("<</ProcSet[/PDF/Text/ImageB/ImageC]/XObject<<");
    for (std::size_t form = 0; form < forms_.size(); ++form)
        entries += "/X" + QByteArray::number(static_cast<qulonglong>(form)) + ' ' + PdfFile::reference(forms_[form]);
    // By number, since the order of a hash is nobody's.
    std::vector<int> images;
    images.reserve(images_.size());
    for (const auto& [name, number] : images_)
        images.push_back(number);
    std::ranges::sort(images);
    for (const int number : images)
        entries += "/I" + QByteArray::number(number) + ' ' + PdfFile::reference(number);
    entries += ">>/ExtGState<<";
    for (std::size_t at = 0; at < opacities_.size(); ++at)
        entries += "/G" + QByteArray::number(static_cast<qulonglong>(at)) + opacities_[at];
    entries += ">>/Font<<";
    for (const auto& font : fonts_)
        entries += font->write(file_);
    file_.put(resources_, entries + ">>>>");
    QByteArray kids;
    for (const int page : pages_)
        kids += PdfFile::reference(page) + ' ';
    file_.put(pageTree_, "<</Type/Pages/Kids[" + kids + "]/Count " +
                             QByteArray::number(static_cast<qulonglong>(pages_.size())) + ">>");
    const int catalogue = file_.add("<</Type/Catalog/Pages " + PdfFile::reference(pageTree_) + ">>");
    const QByteArray named = title.isEmpty() ? QByteArray() : "/Title" + PdfFile::string(title);
    const int information = file_.add("<<" + named + "/Producer(Lineara)>>");
    return file_.finish(catalogue, information);
}

} // namespace lineara
