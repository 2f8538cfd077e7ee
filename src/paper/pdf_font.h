#pragma once

#include <QByteArray>
#include <QRawFont>
#include <QString>

#include <cstdint>
#include <map>
#include <vector>

namespace lineara {

class PdfFile;

/// A font as a PDF file carries it: those glyphs that were used, and which letters they stand for. TrueType outlines
/// are embedded as they are; of any other font the shapes are drawn, glyph by glyph.
class PdfFont
{
public:
    /// Where a glyph is found: under which name of the page's resources, and by which bytes of a string.
    struct Place
    {
        QByteArray resource;
        QByteArray code;
    };

    /// `name` begins the names of its resources.
    PdfFont(const QRawFont& font, QByteArray name);

    /// Whether it is the font that this was made for, at whatever size.
    bool is(const QRawFont& font) const;

    Place use(std::uint32_t glyph, const QString& letters);
    /// In thousandths of the font's size.
    double width(std::uint32_t glyph) const;

    /// Writes the font; the entries for the page's resources come back.
    QByteArray write(PdfFile& file) const;

private:
    struct Used
    {
        std::size_t number = 0; ///< in the order of use
        QString letters;
        double width = 0;
    };

    int writeTrueType(PdfFile& file, const QByteArray& outlines) const;
    int writeDrawn(PdfFile& file, std::size_t first) const;
    /// Those of one drawn font, by their codes.
    std::map<std::size_t, std::uint32_t> glyphsFrom(std::size_t first) const;
    QByteArray baseName() const;
    QByteArray widths() const;

    QRawFont design_; ///< a thousand points large
    QByteArray identity_;
    QByteArray name_;
    bool isTrueType_;
    std::map<std::uint32_t, Used> used_;
};

} // namespace lineara
