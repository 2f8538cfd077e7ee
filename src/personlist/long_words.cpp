#include "personlist/long_words.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace lineara {

namespace {

// Each line looks through all the rest of a word for a better place.
constexpr int longWord = 1'000;

bool holdsLongWord(const QString& text)
{
    if (text.size() < longWord)
        return false;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    for (qsizetype begin = 0, end = breaks.toNextBoundary(); end >= 0; end = breaks.toNextBoundary()) {
        if (end - begin >= longWord)
            return true;
        begin = end;
    }
    return false;
}

/// Whether a paragraph does that reaches into the part of the text between two places.
bool holdsLongWord(const QTextDocument& text, int begin, int end)
{
    const QTextBlock behind = text.findBlock(std::min(end, text.characterCount() - 1)).next();
    for (QTextBlock paragraph = text.findBlock(begin); paragraph != behind; paragraph = paragraph.next()) {
        if (paragraph.length() > longWord && holdsLongWord(paragraph.text()))
            return true;
    }
    return false;
}

} // namespace

void breakLongWords(QPlainTextEdit& field)
{
    const auto usual = field.wordWrapMode();
    // Comes before the change is laid out.
    QObject::connect(field.document(), &QTextDocument::contentsChange, &field, [&field, usual](int at, int, int added) {
        const QTextDocument& text = *field.document();
        // On the way from one text to another, for which the mode may have been set already.
        if (text.isEmpty())
            return;
        const bool wasLong = field.wordWrapMode() != usual;
        const bool isLong =
            wasLong ? holdsLongWord(text, 0, text.characterCount()) : holdsLongWord(text, at, at + added);
        field.setWordWrapMode(isLong ? QTextOption::WrapAnywhere : usual);
    });
}

void showText(QPlainTextEdit& field, const QString& text)
{
    if (holdsLongWord(text))
        field.setWordWrapMode(QTextOption::WrapAnywhere);
    field.setPlainText(text);
}

} // namespace lineara
