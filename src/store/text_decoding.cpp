#include "text_decoding.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace lineara::store {

namespace {

enum ByteKind : std::uint8_t
{
    Plain = 0,
    High = 1,
    Special = 2,
    End = 4
};

/// Special bytes need a closer look: control characters, '&', and the first byte of U+FFFE and U+FFFF.
constexpr std::array<std::uint8_t, 256> byteKinds()
{
    std::array<std::uint8_t, 256> kinds{};
    for (std::size_t byte = 0; byte < kinds.size(); ++byte)
        kinds[byte] = byte < 0x20 ? Special : byte < 0x80 ? Plain : High;
    kinds['\0'] = kinds['<'] = End;
    kinds['\t'] = kinds['\n'] = Plain;
    kinds['&'] = kinds[0xEF] = Special;
    return kinds;
}
constexpr auto kindOf = byteKinds();

constexpr bool isXmlCharacter(char32_t c)
{
    return c >= 0x20 ? (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF
                     : c == '\t' || c == '\n' || c == '\r';
}

/// The number of a character reference without "&#" and ";", or no value if it is none.
std::optional<char32_t> referencedNumber(QStringView digits)
{
    const bool isHexadecimal = digits.startsWith(u'x');
    const auto ascii = digits.sliced(isHexadecimal ? 1 : 0).toLatin1();
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(ascii.begin(), ascii.end(), number, isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc() && end == ascii.end();
    if (!isWhole || number == 0 || number > 0x10FFFF || (number >= 0xD800 && number <= 0xDFFF))
        return std::nullopt;
    return number;
}

/// The character meant by the reference without '&' and ';'.
std::optional<char32_t> referencedCharacter(QStringView name)
{
    if (name.startsWith(u'#'))
        return referencedNumber(name.sliced(1));
    if (name == u"amp")
        return U'&';
    if (name == u"lt")
        return U'<';
    if (name == u"gt")
        return U'>';
    if (name == u"quot")
        return U'"';
    if (name == u"apos")
        return U'\'';
    return std::nullopt;
}

/// Collects decoded characters and remembers the worst flaw.
class Decoder
{
public:
    void append(QStringView raw, bool resolveReferences)
    {
        for (qsizetype at = 0; at < raw.size(); ++at) {
            const QChar c = raw[at];
            if (c == u'\r')
                appendLineEnd(raw, at);
            else if (c == u'&' && resolveReferences)
                appendReference(raw, at);
            else
                result_.text += isXmlCharacter(c.unicode()) || c.isSurrogate() ? c : replaced();
        }
    }

    DecodedText result() && { return std::move(result_); }

private:
    void appendLineEnd(QStringView raw, qsizetype& at)
    {
        result_.text += u'\n';
        if (at + 1 < raw.size() && raw[at + 1] == u'\n')
            ++at;
    }

    void appendReference(QStringView raw, qsizetype& at)
    {
        // The longest reference is "&#x10FFFF;", leading zeros apart.
        constexpr qsizetype longest = 40;
        const auto end = raw.sliced(at + 1).first(std::min(longest, raw.size() - at - 1)).indexOf(u';');
        const auto character = end < 0 ? std::nullopt : referencedCharacter(raw.sliced(at + 1, end));
        if (!character) {
            result_.flaw = TextFlaw::BadReference;
            result_.text += raw[at];
            return;
        }
        result_.text += QChar::fromUcs4(isXmlCharacter(*character) ? *character : replaced().unicode());
        at += end + 1;
    }

    QChar replaced()
    {
        result_.flaw = std::max(result_.flaw, TextFlaw::Replaced);
        return QChar::ReplacementCharacter;
    }

    DecodedText result_;
};

/// A byte order mark at the beginning is text like any other.
QString fromUtf8(std::string_view bytes)
{
    QStringDecoder decode(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

} // namespace

std::optional<QString> decodeSimpleText(std::string_view text, std::size_t& end)
{
    unsigned kinds = Plain;
    for (end = 0; end < text.size() && kindOf[static_cast<unsigned char>(text[end])] != End; ++end)
        kinds |= kindOf[static_cast<unsigned char>(text[end])];
    const auto length = static_cast<qsizetype>(end);
    if ((kinds & Special) != 0)
        return std::nullopt;
    return kinds == Plain ? QString::fromLatin1(text.data(), length) : QString::fromUtf8(text.data(), length);
}

bool isSimpleText(std::string_view text)
{
    unsigned kinds = Plain;
    for (const char c : text)
        kinds |= kindOf[static_cast<unsigned char>(c)];
    return (kinds & Special) == 0;
}

DecodedText decodeText(const char* text)
{
    std::size_t end = 0;
    if (auto simple = decodeSimpleText(text, end))
        return {*std::move(simple), TextFlaw::None};
    Decoder decoder;
    decoder.append(fromUtf8(text), true);
    return std::move(decoder).result();
}

std::optional<DecodedText> decodeMixedContent(std::string_view content)
{
    Decoder decoder;
    while (!content.empty()) {
        const auto sectionEnd = [&content](std::string_view terminator) {
            return std::min(content.find(terminator), content.size() - terminator.size()) + terminator.size();
        };
        std::size_t end = 0;
        if (content.starts_with("<![CDATA[")) {
            end = sectionEnd("]]>");
            decoder.append(fromUtf8(content.substr(9, end - 12)), false);
        } else if (content.starts_with("<!--")) {
            end = sectionEnd("-->");
        } else if (content.starts_with("<?")) {
            end = sectionEnd("?>");
        } else if (content.starts_with('<')) {
            return std::nullopt;
        } else {
            end = std::min(content.find('<'), content.size());
            decoder.append(fromUtf8(content.substr(0, end)), true);
        }
        content.remove_prefix(end);
    }
    return std::move(decoder).result();
}

} // namespace lineara::store
