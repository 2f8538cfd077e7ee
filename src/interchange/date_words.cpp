#include "date_words.h"

#include <algorithm>

namespace lineara {
namespace {

char capital(char c)
{
    return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

template<std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& words, std::string_view word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// "@#DFRENCH R@" becomes " FRENCH_R ", where it begins at `from`; returns where to go on looking.
std::size_t replaceEscape(std::string& text, std::size_t from)
{
    constexpr std::string_view opening = "@#D";
    const auto end = text.find('@', from + opening.size());
    if (end == std::string::npos)
        return std::string::npos;
    std::fill_n(text.begin() + static_cast<std::ptrdiff_t>(from), opening.size(), ' ');
    text[end] = ' ';
    auto name = std::string_view(text).substr(from, end - from);
    const auto first = std::min(name.find_first_not_of(' '), name.size());
    const auto last = name.find_last_not_of(' ');
    for (auto at = from + first; last != std::string_view::npos && at < from + last; ++at)
        text[at] = text[at] == ' ' ? '_' : text[at];
    return end;
}

} // namespace

DateWords::DateWords(std::string_view value) : text_(value)
{
    std::transform(text_.begin(), text_.end(), text_.begin(), capital);
    for (auto at = text_.find("@#D"); at != std::string::npos; at = text_.find("@#D", at))
        at = replaceEscape(text_, at);
    constexpr std::string_view blanks = " \t\n";
    for (std::size_t end = 0; end < text_.size();) {
        const auto begin = text_.find_first_not_of(blanks, end);
        if (begin == std::string::npos)
            break;
        end = std::min(text_.find_first_of(blanks, begin), text_.size());
        addWord(begin, end);
    }
}

void DateWords::addWord(std::size_t begin, std::size_t end)
{
    const auto word = std::string_view(text_).substr(begin, end - begin);
    if (size_ < mostWords)
        words_[size_++] = word;
}

std::optional<std::int32_t> dateNumber(std::string_view word)
{
    constexpr std::size_t mostDigits = 4;
    if (word.empty() || word.size() > mostDigits)
        return std::nullopt;
    std::int32_t value = 0;
    for (const char c : word) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

std::optional<std::int32_t> monthNumber(Calendar calendar, std::string_view word)
{
    constexpr std::size_t shortest = 3;
    static constexpr std::array<std::string_view, 12> roman = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                               "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                               "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
    static constexpr std::array<std::string_view, 13> hebrew = {"TSH", "CSH", "KSL", "TVT", "SHV", "ADR", "ADS",
                                                                "NSN", "IYR", "SVN", "TMZ", "AAV", "ELL"};
    static constexpr std::array<std::string_view, 13> french = {"VEND", "BRUM", "FRIM", "NIVO", "PLUV", "VENT", "GERM",
                                                                "FLOR", "PRAI", "MESS", "THER", "FRUC", "COMP"};
    const auto numberIn = [](const auto& names, auto matches) -> std::optional<std::int32_t> {
        const auto found = std::find_if(names.begin(), names.end(), matches);
        if (found == names.end())
            return std::nullopt;
        return static_cast<std::int32_t>(found - names.begin()) + 1;
    };
    if (word.ends_with('.'))
        word.remove_suffix(1);
    if (word.size() < shortest)
        return std::nullopt;
    const auto isWord = [word](std::string_view name) { return name == word; };
    if (calendar == Calendar::Hebrew)
        return numberIn(hebrew, isWord);
    if (calendar == Calendar::FrenchRepublican)
        return numberIn(french, isWord);
    return numberIn(roman, [word](std::string_view name) { return name.starts_with(word); });
}

bool isQualifier(std::string_view word)
{
    static constexpr std::array<std::string_view, 19> words = {
        "ABT",  "ABT.", "ABOUT", "CA",   "CA.",    "C.", "CIRCA", "EST",  "EST.", "CAL",
        "CAL.", "INT",  "BEF",   "BEF.", "BEFORE", "BY", "AFT",   "AFT.", "AFTER"};
    return word == "TO" || isOneOf(words, word);
}

bool isRangeOpener(std::string_view word)
{
    static constexpr std::array<std::string_view, 4> words = {"BET", "BET.", "BETWEEN", "FROM"};
    return isOneOf(words, word);
}

bool isBeforeChrist(std::string_view word)
{
    static constexpr std::array<std::string_view, 5> words = {"BC", "B.C.", "BC.", "BCE", "B.C.E."};
    return isOneOf(words, word);
}

bool isAfterChrist(std::string_view word)
{
    static constexpr std::array<std::string_view, 5> words = {"AD", "A.D.", "AD.", "CE", "C.E."};
    return isOneOf(words, word);
}

} // namespace lineara
