#include "elements/shortened_text.h"

#include <QStringBuilder>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace lineara {

namespace {

constexpr Extent mostOfAName{80};
constexpr Extent mostInATip{2'000, 30}; // a screenful
constexpr int unbrokenLetters = 40;
constexpr QChar breakingPlace(u'\u200b');
constexpr QChar nextLine(u'\u0085');

/// The last place up to `end` where no letter is cut from its marks.
qsizetype betweenLetters(const QString& text, qsizetype end)
{
    constexpr qsizetype longestLetter = 64; // longer ones are a prank
    const qsizetype from = std::max<qsizetype>(0, end - longestLetter);
    const QString around = text.mid(from, 2 * longestLetter);
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, around);
    letters.setPosition(end - from);
    return letters.isAtBoundary() ? end : from + std::max<qsizetype>(letters.toPreviousBoundary(), 0);
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
    return text.first(betweenLetters(text, end)).trimmed() % u'…';
}

QString plainToolTip(const QString& text)
{
    if (text.isEmpty())
        return {};
    QString shown = shortened(text, mostInATip);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::replace_if(shown.begin(), shown.end(), isShownAsLineBreak, QChar(u'\n'));
    return u"<p>" % shown.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")) % u"</p>";
}

QString toldName(const QString& name)
{
    const QString shown = shortened(name, mostOfAName);
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, shown);
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, shown);
    QString told;
    qsizetype begin = 0;
    qsizetype lastBreak = 0;
    for (qsizetype end = letters.toNextBoundary(); end >= 0; end = letters.toNextBoundary()) {
        breaks.setPosition(begin);
        if (!breaks.isAtBoundary() && begin - lastBreak >= unbrokenLetters) {
            told += breakingPlace;
            lastBreak = begin;
        } else if (breaks.isAtBoundary()) {
            lastBreak = begin;
        }
        told += QStringView(shown).sliced(begin, end - begin);
        begin = end;
    }
    return told;
}

} // namespace lineara
