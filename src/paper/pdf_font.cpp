#include "pdf_font.h"

#include "file_text.h"
#include "pdf_file.h"
#include "pdf_path.h"
#include "truetype_subset.h"

#include <QFont>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>

namespace lineara {

namespace {

constexpr double designSize = 1'000;
constexpr std::size_t codesOfDrawn = 256;

/// The table that differs in every font file, since it holds a sum over it.
QByteArray identityOf(const QRawFont& font)
{
    return font.fontTable("head") + font.familyName().toUtf8() + font.styleName().toUtf8();
}

QByteArray hexOf(std::uint32_t number, int digits)
{
    return QByteArray::number(number, 16).rightJustified(digits, '0');
}

QByteArray hexOf(const QString& text)
{
    QByteArray hex;
    for (const QChar letter : text)
        hex += hexOf(letter.unicode(), 4);
    return hex;
}

/// What a program needs in order to find and copy text. `digits` is the length of a code.
int writeLetters(PdfFile& file, const std::vector<std::pair<std::uint32_t, QString>>& letters, int digits)
{
    constexpr std::size_t mostInBlock = 100;
    QByteArray map("/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n"
                   "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                   "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n1 begincodespacerange\n<");
    map += QByteArray(digits, '0') + "><" + QByteArray(digits, 'F') + ">\nendcodespacerange\n";
    for (std::size_t begin = 0; begin < letters.size(); begin += mostInBlock) {
        const std::size_t end = std::min(letters.size(), begin + mostInBlock);
        map += QByteArray::number(static_cast<qsizetype>(end - begin)) + " beginbfchar\n";
        for (std::size_t at = begin; at < end; ++at)
            map += '<' + hexOf(letters[at].first, digits) + "><" + hexOf(letters[at].second) + ">\n";
        map += "endbfchar\n";
    }
    return file.addPacked({}, map + "endcmap CMapName currentdict/CMap defineresource pop end end");
}

QByteArray box(const QRectF& upright)
{
    QByteArray text;
    for (const double number : {upright.left(), upright.top(), upright.right(), upright.bottom()}) {
        appendNumber(text, number, 0);
        text += ' ';
    }
    return text;
}

/// What draws a glyph; `shape` has y growing upwards. Parts of a glyph may overlap (the horn of “ơ” and the rest of
/// it), and are filled all the same, whatever rule the shape comes with.
QByteArray procedureOf(const QPainterPath& shape, double width)
{
    QByteArray ops;
    appendNumber(ops, width, 0);
    ops += " 0 " + box(shape.controlPointRect()) + "d1\n" + pathOps(shape, 1);
    return shape.isEmpty() ? ops : ops + "f\n";
}

} // namespace

PdfFont::PdfFont(const QRawFont& font, QByteArray name)
    : design_(font), identity_(identityOf(font)), name_(std::move(name)),
      isTrueType_(trueTypeSubset(font, {}).has_value())
{
    design_.setPixelSize(designSize);
}

bool PdfFont::is(const QRawFont& font) const
{
    return identityOf(font) == identity_;
}

PdfFont::Place PdfFont::use(std::uint32_t glyph, const QString& letters)
{
    const auto [place, isNew] = used_.try_emplace(glyph);
    Used& used = place->second;
    if (isNew) {
        used.number = used_.size() - 1;
        const QList<QPointF> advances = design_.advancesForGlyphIndexes({glyph});
        used.width = advances.isEmpty() ? 0 : advances.front().x();
    }
    if (used.letters.isEmpty())
        used.letters = letters;
    if (isTrueType_)
        return {name_, QByteArray().append(static_cast<char>(glyph >> 8)).append(static_cast<char>(glyph & 0xff))};
    return {name_ + '_' + QByteArray::number(static_cast<qulonglong>(used.number / codesOfDrawn)),
            QByteArray(1, static_cast<char>(used.number % codesOfDrawn))};
}

double PdfFont::width(std::uint32_t glyph) const
{
    return used_.at(glyph).width;
}

QByteArray PdfFont::write(PdfFile& file) const
{
    if (isTrueType_) {
        std::set<std::uint32_t> glyphs;
        for (const auto& [glyph, used] : used_)
            glyphs.insert(glyph);
        const auto outlines = trueTypeSubset(design_, glyphs);
        return '/' + name_ + ' ' + PdfFile::reference(writeTrueType(file, outlines.value_or(QByteArray())));
    }
    QByteArray entries;
    for (std::size_t first = 0; first < used_.size(); first += codesOfDrawn) {
        entries += '/' + name_ + '_' + QByteArray::number(static_cast<qulonglong>(first / codesOfDrawn)) + ' ' +
                   PdfFile::reference(writeDrawn(file, first));
    }
    return entries;
}

/// A name for the glyphs that are there, of the form that tells programs that they are not all.
QByteArray PdfFont::baseName() const
{
    QByteArray glyphs;
    for (const auto& [glyph, used] : used_)
        glyphs += hexOf(glyph, 4);
    Fingerprint fingerprint;
    fingerprint.add({glyphs.data(), static_cast<std::size_t>(glyphs.size())});
    std::uint64_t sum = fingerprint.first;
    QByteArray name;
    for (int letter = 0; letter < 6; ++letter, sum /= 26)
        name += static_cast<char>('A' + sum % 26);
    name += '+';
    const QByteArray family = (design_.familyName() + design_.styleName()).toLatin1();
    std::ranges::copy_if(family, std::back_inserter(name), [](char letter) {
        return (letter >= '0' && letter <= '9') ||
               (letter >= 'A' && letter <= 'z' && letter != '[' && letter != ']' && letter != '\\');
    });
    return name;
}

QByteArray PdfFont::widths() const
{
    QByteArray text;
    for (const auto& [glyph, used] : used_) {
        text += QByteArray::number(glyph) + '[';
        appendNumber(text, used.width, 0);
        text += ']';
    }
    return text;
}

int PdfFont::writeTrueType(PdfFile& file, const QByteArray& outlines) const
{
    std::vector<std::pair<std::uint32_t, QString>> letters;
    for (const auto& [glyph, used] : used_) {
        if (!used.letters.isEmpty())
            letters.emplace_back(glyph, used.letters);
    }
    const int program = file.addPacked("/Length1 " + QByteArray::number(outlines.size()), outlines);
    const QByteArray name = baseName();
    const auto metric = [](double number) { return QByteArray::number(std::lround(number)); };
    const int descriptor = file.add(
        "<</Type/FontDescriptor/FontName/" + name + "/Flags 4/FontBBox[-1000 -500 2000 1500]" +
        "/ItalicAngle 0/Ascent " + metric(design_.ascent()) + "/Descent " + metric(-design_.descent()) + "/CapHeight " +
        metric(design_.capHeight()) + "/StemV 80/FontFile2 " + PdfFile::reference(program) + ">>");
    const int glyphs =
        file.add("<</Type/Font/Subtype/CIDFontType2/BaseFont/" + name +
                 "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/CIDToGIDMap/Identity"
                 "/FontDescriptor " +
                 PdfFile::reference(descriptor) + "/DW 0/W[" + widths() + "]>>");
    const int text = writeLetters(file, letters, 4);
    return file.add("<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding/Identity-H/DescendantFonts[" +
                    PdfFile::reference(glyphs) + "]/ToUnicode " + PdfFile::reference(text) + ">>");
}

std::map<std::size_t, std::uint32_t> PdfFont::glyphsFrom(std::size_t first) const
{
    std::map<std::size_t, std::uint32_t> byCode;
    for (const auto& [glyph, used] : used_) {
        if (used.number >= first && used.number < first + codesOfDrawn)
            byCode.emplace(used.number - first, glyph);
    }
    return byCode;
}

int PdfFont::writeDrawn(PdfFile& file, std::size_t first) const
{
    const auto byCode = glyphsFrom(first);
    const QTransform upright = QTransform::fromScale(1, -1);
    QByteArray procedures;
    QByteArray names;
    QByteArray widths;
    QRectF all;
    std::vector<std::pair<std::uint32_t, QString>> letters;
    for (const auto& [code, glyph] : byCode) {
        const Used& used = used_.at(glyph);
        const QPainterPath shape = upright.map(design_.pathForGlyph(glyph));
        all |= shape.controlPointRect();
        const QByteArray name = "/g" + QByteArray::number(static_cast<qulonglong>(code));
        procedures += name + ' ' + PdfFile::reference(file.addPacked({}, procedureOf(shape, used.width)));
        names += name;
        appendNumber(widths, used.width, 0);
        widths += ' ';
        if (!used.letters.isEmpty())
            letters.emplace_back(static_cast<std::uint32_t>(code), used.letters);
    }
    const int text = writeLetters(file, letters, 2);
    const auto last = QByteArray::number(static_cast<qulonglong>(byCode.size() - 1));
    return file.add("<</Type/Font/Subtype/Type3/Name/" + baseName() + "/FontBBox[" + box(all) +
                    "]/FontMatrix[.001 0 0 .001 0 0]/Resources<<>>/FirstChar 0/LastChar " + last + "/Widths[" + widths +
                    "]/Encoding<</Type/Encoding/Differences[0" + names + "]>>/CharProcs<<" + procedures +
                    ">>/ToUnicode " + PdfFile::reference(text) + ">>");
}

} // namespace lineara
