#include "xml_writer.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <charconv>

namespace lineara::store {

namespace {

constexpr char32_t replacement = 0xFFFD;

/// ASCII characters that stand for themselves in character data.
constexpr auto isPlain = [] {
    std::array<bool, 128> plain{};
    for (std::size_t c = 0x20; c < plain.size(); ++c)
        plain[c] = c != '&' && c != '<' && c != '>';
    plain['\t'] = plain['\n'] = true;
    return plain;
}();

} // namespace

XmlWriter::XmlWriter(ByteSink sink) : sink_(std::move(sink)) {}

void XmlWriter::copy(std::string_view bytes)
{
    bytes.copy(buffer_.get() + used_, bytes.size());
    used_ += bytes.size();
}

void XmlWriter::rawAcrossBuffers(std::string_view bytes)
{
    flush();
    if (bytes.size() <= capacity)
        copy(bytes);
    else
        refused_ = refused_ || !sink_(bytes);
}

void XmlWriter::ensure(std::size_t bytes)
{
    if (capacity - used_ < bytes)
        flush();
}

void XmlWriter::flush()
{
    if (used_ > 0)
        refused_ = refused_ || !sink_({buffer_.get(), used_});
    used_ = 0;
}

void XmlWriter::number(std::int64_t value)
{
    constexpr std::size_t mostDigits = 20;
    ensure(mostDigits);
    const auto result = std::to_chars(buffer_.get() + used_, buffer_.get() + capacity, value);
    used_ = static_cast<std::size_t>(result.ptr - buffer_.get());
}

void XmlWriter::text(QStringView text)
{
    constexpr std::size_t mostBytesPerCharacter = 8;
    for (qsizetype at = 0; at < text.size(); ++at) {
        ensure(mostBytesPerCharacter);
        const char16_t unit = text[at].unicode();
        if (unit < isPlain.size() && isPlain[unit]) {
            buffer_[used_++] = static_cast<char>(unit);
        } else if (unit < isPlain.size()) {
            escape(unit);
        } else if (QChar::isHighSurrogate(unit) && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            appendUtf8(QChar::surrogateToUcs4(unit, text[++at].unicode()));
        } else {
            const bool isCharacter = !QChar::isSurrogate(unit) && unit < 0xFFFE;
            appendUtf8(isCharacter ? unit : replacement);
        }
    }
}

void XmlWriter::utf8(std::string_view text)
{
    while (!text.empty()) {
        const auto plain = std::min(text.find_first_of("&<>\r"), text.size());
        raw(text.substr(0, plain));
        if (plain == text.size())
            return;
        constexpr std::size_t mostBytesPerCharacter = 8;
        ensure(mostBytesPerCharacter);
        escape(static_cast<unsigned char>(text[plain]));
        text.remove_prefix(plain + 1);
    }
}

void XmlWriter::escape(char16_t unit)
{
    switch (unit) {
    case u'&':
        return copy("&amp;");
    case u'<':
        return copy("&lt;");
    case u'>':
        return copy("&gt;");
    case u'\r':
        return copy("&#13;");
    default:
        return appendUtf8(replacement);
    }
}

void XmlWriter::appendUtf8(char32_t character)
{
    const auto continuation = [character](int shift) {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x800) {
        buffer_[used_++] = static_cast<char>(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        buffer_[used_++] = static_cast<char>(0xE0 | (character >> 12));
        buffer_[used_++] = continuation(6);
    } else {
        buffer_[used_++] = static_cast<char>(0xF0 | (character >> 18));
        buffer_[used_++] = continuation(12);
        buffer_[used_++] = continuation(6);
    }
    buffer_[used_++] = continuation(0);
}

bool XmlWriter::finish()
{
    flush();
    return !refused_;
}

} // namespace lineara::store
