#include "model/text_hygiene.h"

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

bool needsNoSecondLook(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= u' ' && code < 0xD800) || (code >= 0xE000 && code < 0xFFFE);
}

bool isWritableControl(QChar character)
{
    return character == u'\t' || character == u'\n' || character == u'\r';
}

/// How many code units from `at` on stand for one writable character; 0 if there is none.
qsizetype writableLength(const QString& text, qsizetype at)
{
    const QChar first = text.at(at);
    if (needsNoSecondLook(first) || isWritableControl(first))
        return 1;
    const bool pair = first.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
    return pair ? 2 : 0;
}

} // namespace

QString writableText(QString text, bool* repaired)
{
    if (repaired)
        *repaired = false;
    if (std::all_of(text.cbegin(), text.cend(), needsNoSecondLook))
        return text;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype length = writableLength(text, at);
        if (length == 0) {
            text[at] = QChar::ReplacementCharacter;
            if (repaired)
                *repaired = true;
        }
        at += std::max<qsizetype>(length, 1);
    }
    return text;
}

std::optional<QString> writableText(std::optional<QString> text)
{
    if (text)
        text = writableText(*std::move(text));
    return text;
}

} // namespace lineara
