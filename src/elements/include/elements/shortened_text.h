#pragma once

#include <QString>

namespace lineara {

/// How much of a text has its place somewhere.
struct Extent
{
    qsizetype characters = 0; // UTF-16 units
    int lines = 1;
};

/// The text itself, or as much of its beginning as there is room for, followed by an ellipsis. Letters keep their
/// marks.
QString shortened(const QString& text, Extent most);

/// A name for a sentence that is broken into lines between words: shortened, and with places to break its long words.
QString toldName(const QString& name);

/// The text for a tooltip: a screenful of it, broken into lines between words, and with marks that would be taken for
/// formatting shown as they are. Empty for an empty text, of which no tooltip is shown.
QString plainToolTip(const QString& text);

/// Whether a new line begins behind the letter where a text is shown; '\r' before '\n' included.
bool isShownAsLineBreak(QChar letter);

} // namespace lineara
