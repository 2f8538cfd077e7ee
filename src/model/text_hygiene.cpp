#include "model/text_hygiene.h"

#include <QStringDecoder>
#include <QUtf8StringView>

#include <algorithm>
#include <cstdint>
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

/// Whether the bytes hold control characters other than the three writable ones, and others beyond ASCII. Without a
/// branch in its loop, because whole genealogies pass through it.
struct ByteKinds
{
    explicit ByteKinds(const QByteArray& text)
    {
        unsigned controls = 0;
        unsigned high = 0;
        for (const char c : text) {
            const auto byte = static_cast<std::uint8_t>(c);
            const bool isWritable = (byte >= 0x20) | (byte == '\t') | (byte == '\n') | (byte == '\r');
            controls |= isWritable ? 0U : 1U;
            high |= byte & 0x80U;
        }
        hasControls = controls != 0;
        hasHigh = high != 0;
    }

    bool hasControls = false;
    bool hasHigh = false;
};

bool isWritableBeyondAscii(const QByteArray& text)
{
    return QUtf8StringView(text).isValidUtf8() && !text.contains("\xEF\xBF\xBE") && !text.contains("\xEF\xBF\xBF");
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

QByteArray writableUtf8(QByteArray text)
{
    const ByteKinds kinds(text);
    if (!kinds.hasControls && (!kinds.hasHigh || isWritableBeyondAscii(text)))
        return text;
    QStringDecoder decode(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return writableText(QString(decode(text))).toUtf8();
}

} // namespace lineara
