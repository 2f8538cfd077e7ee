#pragma once

#include "calendars.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lineara {

/// The words of a date in capitals. Calendar escapes of the older versions ("@#DJULIAN@") are the words of the newer
/// one ("JULIAN").
class DateWords
{
public:
    explicit DateWords(std::string_view value);
    DateWords(const DateWords&) = delete;
    DateWords& operator=(const DateWords&) = delete;

    std::size_t size() const { return size_; }
    std::string_view operator[](std::size_t at) const { return words_[at]; }

private:
    void addWord(std::size_t begin, std::size_t end);

    // A date by the rules has far fewer; what goes beyond is no date.
    static constexpr std::size_t mostWords = 24;
    std::string text_;
    std::array<std::string_view, mostWords> words_;
    std::size_t size_ = 0;
};

/// One to four digits.
std::optional<std::int32_t> dateNumber(std::string_view word);

/// Number of a month from its name: English ones and abbreviations of at least three letters, or the standard's words
/// for the months of other calendars.
std::optional<std::int32_t> monthNumber(Calendar calendar, std::string_view word);

bool isQualifier(std::string_view word);
bool isRangeOpener(std::string_view word);
bool isBeforeChrist(std::string_view word);
bool isAfterChrist(std::string_view word);

} // namespace lineara
