#include "utf8_mending.h"

#include "charset_guess.h"

#include <QString>

#include <algorithm>

namespace lineara {
namespace {

constexpr std::size_t nowhere = std::string_view::npos;

bool isAsciiByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80u) == 0;
}

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

std::size_t lengthFrom(char firstByte)
{
    const auto first = static_cast<unsigned char>(firstByte);
    return first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 0;
}

void appendTo(QByteArray& bytes, std::string_view more)
{
    bytes.append(more.data(), static_cast<qsizetype>(more.size()));
}

/// Where the value of a CONC line begins that follows on the line end at the beginning of the text.
std::size_t findContinuedValue(std::string_view text)
{
    constexpr std::string_view tag = " CONC ";
    const auto line = text.find_first_not_of("\r\n");
    const auto level = text.find_first_not_of(" \t", line);
    const auto afterLevel = text.find_first_not_of("0123456789", level);
    const bool isContinued =
        line != 0 && afterLevel != nowhere && afterLevel != level && text.substr(afterLevel).starts_with(tag);
    return isContinued ? afterLevel + tag.size() : nowhere;
}

/// Where a character is cut, counted from its first byte, and where it goes on.
struct Cut
{
    std::size_t end = 0;
    std::size_t value = 0;
    std::size_t lacking = 0;
};

/// The cut through the character that begins here and is not whole.
std::optional<Cut> cutIn(std::string_view text)
{
    const std::size_t length = lengthFrom(text.front());
    // Else a run of loose pieces would be gone over from each of them.
    if (length == 0)
        return std::nullopt;
    const auto end =
        static_cast<std::size_t>(std::find_if_not(text.begin() + 1, text.end(), continuesCharacter) - text.begin());
    const auto value = findContinuedValue(text.substr(end));
    if (value == nowhere)
        return std::nullopt;
    const auto missing = text.substr(end + value, length - end);
    if (missing.size() < length - end || !std::all_of(missing.begin(), missing.end(), continuesCharacter))
        return std::nullopt;
    return Cut{.end = end, .value = end + value, .lacking = missing.size()};
}

/// Not the rest of a character of which more is there.
bool standsAlone(std::string_view text, std::size_t at)
{
    if (continuesCharacter(text[at]))
        return at == 0 || isAsciiByte(text[at - 1]);
    return at + 1 == text.size() || !continuesCharacter(text[at + 1]);
}

} // namespace

std::size_t utf8Length(std::string_view text)
{
    const std::size_t length = lengthFrom(text.front());
    if (length == 0 || text.size() < length)
        return 0;
    const auto rest = text.substr(1, length - 1);
    return std::all_of(rest.begin(), rest.end(), continuesCharacter) ? length : 0;
}

std::optional<QByteArray> withWholeCharacters(std::string_view text)
{
    QByteArray whole;
    std::size_t copied = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto length = isAsciiByte(text[at]) ? 1 : utf8Length(text.substr(at));
        const auto cut = length > 0 ? std::nullopt : cutIn(text.substr(at));
        if (!cut) {
            at += std::max<std::size_t>(length, 1);
            continue;
        }
        appendTo(whole, text.substr(copied, at + cut->end - copied));
        appendTo(whole, text.substr(at + cut->value, cut->lacking));
        appendTo(whole, text.substr(at + cut->end, cut->value - cut->end));
        at += cut->value + cut->lacking;
        copied = at;
    }
    if (copied == 0)
        return std::nullopt;
    appendTo(whole, text.substr(copied));
    return whole;
}

QByteArray mendedUtf8(std::string_view text, std::vector<std::uint32_t>& lines)
{
    QByteArray read;
    std::size_t copied = 0;
    std::uint32_t line = 1;
    for (std::size_t at = 0; at < text.size();) {
        const auto length = isAsciiByte(text[at]) ? 1 : utf8Length(text.substr(at));
        if (length == 0 && standsAlone(text, at) && isInWord(CodePage::Windows1252, text, at)) {
            appendTo(read, text.substr(copied, at - copied));
            read += QString(QChar(unicodeOf(CodePage::Windows1252, text[at]))).toUtf8();
            copied = at + 1;
            if (lines.empty() || lines.back() != line)
                lines.push_back(line);
        }
        line += text[at] == '\n' ? 1u : 0u;
        at += std::max<std::size_t>(length, 1);
    }
    appendTo(read, text.substr(copied));
    return QString::fromUtf8(read).toUtf8();
}

} // namespace lineara
