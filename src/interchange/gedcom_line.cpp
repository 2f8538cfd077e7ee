#include "gedcom_line.h"

#include <algorithm>

namespace lineara {
namespace {

constexpr std::string_view blanks = " \t";
constexpr std::size_t longestLevel = 2;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isTagCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || isDigit(c) || c == '_';
}

void skipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

bool startsWithBlank(std::string_view text)
{
    return !text.empty() && blanks.find(text.front()) != std::string_view::npos;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view takeWhile(std::string_view& text, bool (*belongs)(char))
{
    const auto end = std::find_if_not(text.begin(), text.end(), belongs);
    const auto taken = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(taken.size());
    return taken;
}

std::optional<std::uint8_t> takeLevel(std::string_view& text)
{
    auto rest = text;
    const auto digits = takeWhile(rest, isDigit);
    if (digits.empty() || digits.size() > longestLevel || !startsWithBlank(rest))
        return std::nullopt;
    skipBlanks(rest);
    text = rest;
    int level = 0;
    for (const char digit : digits)
        level = level * 10 + (digit - '0');
    return static_cast<std::uint8_t>(level);
}

/// False if the text starts like a cross-reference that does not end.
bool takeXref(std::string_view& text, std::string_view& xref)
{
    if (text.empty() || text.front() != '@')
        return true;
    const auto end = text.find('@', 1);
    if (end == std::string_view::npos || end == 1 || !startsWithBlank(text.substr(end + 1)))
        return false;
    xref = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    skipBlanks(text);
    return true;
}

/// The target if a value is "@target@"; empty if it is text. "@#...@" opens an escape, "@@" stands for a plain @.
std::string_view pointerTarget(std::string_view value)
{
    const auto trimmed = withoutTrailingBlanks(value);
    if (trimmed.size() < 3 || trimmed.front() != '@' || trimmed.back() != '@' || trimmed[1] == '#')
        return {};
    const auto target = trimmed.substr(1, trimmed.size() - 2);
    return target.find('@') == std::string_view::npos ? target : std::string_view{};
}

void readValue(std::string_view text, GedcomLine& line)
{
    if (text.empty())
        return;
    text.remove_prefix(1);
    auto target = text;
    skipBlanks(target);
    target = pointerTarget(target);
    line.isPointer = !target.empty();
    line.value = line.isPointer ? target : text;
}

GedcomLine readLine(std::string_view text, std::uint32_t number)
{
    GedcomLine line;
    line.number = number;
    const auto unreadable = [&line, whole = text](LineDefect defect) {
        line.defect = defect;
        line.xref = {};
        line.tag = {};
        line.value = whole;
        return line;
    };
    skipBlanks(text);
    line.level = takeLevel(text);
    if (!line.level)
        return unreadable(LineDefect::NoLevel);
    if (!takeXref(text, line.xref))
        return unreadable(LineDefect::UnterminatedXref);
    line.tag = takeWhile(text, isTagCharacter);
    if (line.tag.empty() || (!text.empty() && !startsWithBlank(text)))
        return unreadable(LineDefect::NoTag);
    readValue(text, line);
    return line;
}

} // namespace

std::string_view GedcomLineReader::takePhysicalLine()
{
    const auto end = std::find_if(rest_.begin(), rest_.end(), [](char c) { return c == '\n' || c == '\r'; });
    const auto line = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(line.size());
    if (rest_.empty())
        return line;
    const bool isPair = rest_.size() > 1 && (rest_[1] == '\r' || rest_[1] == '\n') && rest_[1] != rest_[0];
    rest_.remove_prefix(isPair ? 2 : 1);
    return line;
}

std::optional<GedcomLine> GedcomLineReader::next()
{
    while (!rest_.empty()) {
        const auto text = takePhysicalLine();
        ++number_;
        if (text.find_first_not_of(blanks) != std::string_view::npos)
            return readLine(text, number_);
    }
    return std::nullopt;
}

} // namespace lineara
