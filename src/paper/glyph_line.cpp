#include "glyph_line.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace lineara {

namespace {

/// The letter that a glyph is the usual sign of, among those of the text.
QString letterOf(std::uint32_t glyph, const QRawFont& font, const QString& text)
{
    for (const QChar letter : text) {
        const QList<quint32> glyphs = font.glyphIndexesForString(QString(letter));
        if (glyphs.size() == 1 && glyphs.front() == glyph)
            return letter;
    }
    return {};
}

} // namespace

std::vector<GlyphRun> glyphLine(const QString& text, const QFont& font)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    std::vector<GlyphRun> runs;
    // A glyph for each letter, in the order of the letters: then each stands for its own.
    const QList<QGlyphRun> shaped = layout.glyphRuns();
    const bool isPlain =
        shaped.size() == 1 && shaped.front().glyphIndexes().size() == text.size() && !text.isRightToLeft();
    for (const QGlyphRun& run : shaped) {
        GlyphRun& placed = runs.emplace_back(GlyphRun{run.rawFont(), {}});
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        for (qsizetype at = 0; at < glyphs.size(); ++at) {
            const QString letters = isPlain ? QString(text[at]) : letterOf(glyphs[at], placed.font, text);
            placed.glyphs.push_back({glyphs[at], places[at] - QPointF(0, line.ascent()), letters});
        }
    }
    return runs;
}

} // namespace lineara
