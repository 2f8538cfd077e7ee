#include "node_text.h"

#include "elements/shortened_text.h"

#include <algorithm>

namespace lineara {

namespace {

/// More than two lines of the narrowest letters hold.
constexpr qsizetype mostShownLetters = 200;

QFont nodeFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    // Letters keep their proportions at every zoom, and widths do not depend on it.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double widestLifeSpan(const AdvanceTable& font)
{
    double widestDigit = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widestDigit = std::max(widestDigit, font.advance(QStringView(&digit, 1)));
    return 8 * widestDigit + font.advance(u" - ");
}

NodeFonts makeNodeFonts()
{
    NodeFonts fonts{AdvanceTable(nodeFont(12)), AdvanceTable(nodeFont(10)), 0};
    fonts.usualEraWidth = widestLifeSpan(fonts.era);
    return fonts;
}

bool isPlainLine(const QString& text)
{
    bool afterBlank = true;
    for (const QChar letter : text) {
        const bool isAsciiMark = letter > u' ' && letter <= u'~';
        const bool isBlank = !isAsciiMark && letter.isSpace();
        if ((isBlank && (afterBlank || letter != u' ')) || letter < u' ')
            return false;
        afterBlank = isBlank;
    }
    return !afterBlank;
}

} // namespace

const NodeFonts& nodeFonts()
{
    static const NodeFonts fonts = makeNodeFonts();
    return fonts;
}

NameFit fitName(const AdvanceTable& font, QStringView name, double greatestWidth)
{
    const double whole = font.advance(name);
    if (whole <= greatestWidth)
        return {whole, std::nullopt, false};
    NameFit best{whole, std::nullopt, true};
    for (qsizetype at = name.indexOf(u' '); at >= 0; at = name.indexOf(u' ', at + 1)) {
        const double widest = std::max(font.advance(name.first(at)), font.advance(name.sliced(at + 1)));
        if (widest < best.width)
            best = {widest, at, false};
    }
    best.isElided = best.width > greatestWidth;
    best.width = std::min(best.width, greatestWidth);
    return best;
}

QString shownName(const std::optional<QString>& name)
{
    if (!name || (name->size() <= mostShownLetters && isPlainLine(*name)))
        return name.value_or(QString());
    QString text = *name;
    std::replace_if(
        text.begin(), text.end(), [](QChar letter) { return letter.unicode() < u' '; }, QChar(u' '));
    return shortened(text.simplified(), {mostShownLetters});
}

bool isUsualYear(std::optional<std::int32_t> year)
{
    return !year || (*year > -1000 && *year < 10000);
}

} // namespace lineara
