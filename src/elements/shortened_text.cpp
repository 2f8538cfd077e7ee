#include "elements/shortened_text.h"

#include <QStringBuilder>

#include <algorithm>

namespace lineara {

namespace {

constexpr Extent mostOfAName{80};
constexpr Extent mostInATip{2'000, 30}; // a screenful
constexpr int unbrokenLetters = 40;
constexpr QChar breakingPlace(u'\u200b');
constexpr QChar nextLine(u'\u0085');

bool belongsToLetterBefore(QChar unit)
{
    return unit.isLowSurrogate() || unit.isMark();
}

} // namespace

bool isShownAsLineBreak(QChar letter)
{
    return (letter >= u'\n' && letter <= u'\r') || letter == nextLine || letter == QChar::LineSeparator ||
           letter == QChar::ParagraphSeparator;
}

QString shortened(const QString& text, Extent most)
{
    const auto endsLine = [&](qsizetype at) {
        const bool isHalf = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
        return isShownAsLineBreak(text[at]) && !isHalf;
    };
    const qsizetype limit = std::min(text.size(), most.characters);
    qsizetype end = 0;
    for (int lines = 0; end < limit; ++end) {
        if (endsLine(end) && ++lines == most.lines)
            break;
    }
    if (end == text.size())
        return text;
    if (end > 0 && text[end - 1].isHighSurrogate())
        --end;
    return text.first(end).trimmed() % u'…';
}

QString plainToolTip(const QString& text)
{
    QString shown = shortened(text, mostInATip);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::replace_if(shown.begin(), shown.end(), isShownAsLineBreak, QChar(u'\n'));
    return u"<p>" % shown.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")) % u"</p>";
}

QString toldName(const QString& name)
{
    QString told;
    int unbroken = 0;
    for (const QChar letter : shortened(name, mostOfAName)) {
        if (unbroken >= unbrokenLetters && !belongsToLetterBefore(letter)) {
            told += breakingPlace;
            unbroken = 0;
        }
        told += letter;
        unbroken = letter.isSpace() ? 0 : unbroken + 1;
    }
    return told;
}

} // namespace lineara
