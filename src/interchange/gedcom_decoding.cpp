#include "gedcom_decoding.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <cstring>

namespace lineara {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isPlain(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80u) == 0;
}

void append(QByteArray& utf8, std::string_view bytes)
{
    utf8.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QChar characterOf(CodePage page, char byte)
{
    const char16_t character = unicodeOf(page, byte);
    return character == 0 && byte != '\0' ? QChar(QChar::ReplacementCharacter) : QChar(character);
}

/// The marks at the beginning of the text with the letter after them; takes both from the text.
QString takeMarked(std::string_view& text)
{
    const auto letterAt = std::min(
        static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isAnselMark) - text.begin()), text.size());
    const bool hasLetter = letterAt < text.size() && text[letterAt] != '\n' && text[letterAt] != '\r';
    QString character;
    if (hasLetter)
        character += characterOf(CodePage::Ansel, text[letterAt]);
    for (const char mark : text.substr(0, letterAt))
        character += characterOf(CodePage::Ansel, mark);
    text.remove_prefix(letterAt + (hasLetter ? 1 : 0));
    return character.normalized(QString::NormalizationForm_C);
}

/// Bytes of the character that the text begins with if it can't be kept, else 0.
std::size_t unwritableSize(std::string_view text)
{
    if (text.front() != '\xEF')
        return 1;
    constexpr std::string_view beginning = "\xEF\xBF";
    const bool isNoncharacter =
        text.size() > 2 && text.starts_with(beginning) && (text[2] == '\xBE' || text[2] == '\xBF');
    return isNoncharacter ? 3 : 0;
}

bool mayBeUnwritable(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return (code < ' ' && code != '\t' && code != '\n') || code == 0xEF;
}

/// Where the first character stands that can't be kept.
std::size_t findUnwritable(std::string_view text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (mayBeUnwritable(text[at]) && unwritableSize(text.substr(at)) > 0)
            return at;
    }
    return text.size();
}

/// Looks at all bytes of a piece whatever it finds there, which the compiler can do many at a time.
bool isSurelyWritable(std::string_view text)
{
    constexpr std::size_t pieceSize = 4096;
    while (!text.empty()) {
        unsigned found = 0;
        const auto piece = text.substr(0, pieceSize);
        for (const char byte : piece)
            found |= mayBeUnwritable(byte) ? 1u : 0u;
        if (found != 0)
            return false;
        text.remove_prefix(piece.size());
    }
    return true;
}

} // namespace

QByteArray utf8FromPage(CodePage page, std::string_view text, const Progress& progress)
{
    QByteArray utf8;
    const auto size = static_cast<qsizetype>(text.size());
    utf8.reserve(size + size / 16);
    const std::size_t whole = text.size();
    for (std::size_t run = 0; !text.empty() && progress.goesOn(run, whole - text.size(), whole); ++run) {
        const auto plain = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
        append(utf8, text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty())
            break;
        if (page == CodePage::Ansel && isAnselMark(text.front())) {
            utf8 += takeMarked(text).toUtf8();
        } else {
            utf8 += QString(characterOf(page, text.front())).toUtf8();
            text.remove_prefix(1);
        }
    }
    return utf8;
}

QByteArray utf8FromUtf16(std::string_view text, bool isBigEndian, const Progress& progress)
{
    // Piece by piece: a whole second copy in between would be the largest thing in memory.
    constexpr std::size_t pieceSize = std::size_t{4} * 1024 * 1024;
    QStringDecoder decoder(isBigEndian ? QStringConverter::Utf16BE : QStringConverter::Utf16LE);
    QByteArray utf8;
    utf8.reserve(static_cast<qsizetype>(text.size() / 2));
    const auto whole = static_cast<double>(text.size());
    while (!text.empty() && progress.goesOn(1 - static_cast<double>(text.size()) / whole)) {
        const auto piece = text.substr(0, pieceSize);
        const QString decoded = decoder(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
        utf8 += decoded.toUtf8();
        text.remove_prefix(piece.size());
    }
    return utf8;
}

QByteArray withPlainLineEnds(QByteArray utf8)
{
    if (utf8.isEmpty() || !std::memchr(utf8.constData(), '\r', static_cast<std::size_t>(utf8.size())))
        return utf8;
    char* const begin = utf8.data();
    const char* const end = begin + utf8.size();
    char* out = begin;
    for (const char* in = begin; in != end; ++in) {
        const char read = *in;
        const bool isEnd = read == '\r' || read == '\n';
        *out++ = isEnd ? '\n' : read;
        const bool isPair = isEnd && in + 1 != end && (in[1] == '\r' || in[1] == '\n') && in[1] != read;
        in += isPair ? 1 : 0;
    }
    utf8.truncate(out - begin);
    return utf8;
}

QByteArray withoutUnwritable(QByteArray utf8, std::vector<std::uint32_t>& lines)
{
    const std::string_view text(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    if (isSurelyWritable(text))
        return utf8;
    QByteArray mended;
    std::uint32_t line = 1;
    std::string_view rest = text;
    while (!rest.empty()) {
        const auto sound = rest.substr(0, findUnwritable(rest));
        if (sound.size() == text.size())
            return utf8;
        append(mended, sound);
        line += static_cast<std::uint32_t>(std::count(sound.begin(), sound.end(), '\n'));
        rest.remove_prefix(sound.size());
        if (rest.empty())
            break;
        append(mended, replacement);
        rest.remove_prefix(unwritableSize(rest));
        if (lines.empty() || lines.back() != line)
            lines.push_back(line);
    }
    return mended;
}

} // namespace lineara
