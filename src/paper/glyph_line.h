#pragma once

#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QString>

#include <cstdint>
#include <vector>

namespace lineara {

/// A glyph of a text, and the letters that it stands for where that can be told.
struct PlacedGlyph
{
    std::uint32_t glyph = 0;
    QPointF place; ///< from the beginning of the baseline, in pixels of the font
    QString letters;
};

/// Neighbouring glyphs of one font.
struct GlyphRun
{
    QRawFont font;
    std::vector<PlacedGlyph> glyphs;
};

/// A line of text shaped as it is drawn on the screen, kerning and ligatures included.
std::vector<GlyphRun> glyphLine(const QString& text, const QFont& font);

} // namespace lineara
