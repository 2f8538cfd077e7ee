#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace lineara {

/// How much of a date's text went into its numbers.
enum class DateReading : std::uint8_t
{
    Whole,         ///< the numbers say all that the text says
    Part,          ///< something was left out: a qualifier, the end of a range, a remark, a day that does not exist
    Converted,     ///< the same, and the text counts in another calendar
    OtherCalendar, ///< nothing taken: the date is counted in a calendar that is not known
    Nothing,       ///< nothing taken: no date was recognised
};

/// A date as a person's record keeps it: Gregorian, years before Christ negative.
struct GedcomDate
{
    std::optional<std::int32_t> day;
    std::optional<std::int32_t> month;
    std::optional<std::int32_t> year;
    DateReading reading = DateReading::Nothing;
    friend bool operator==(const GedcomDate&, const GedcomDate&) = default;
};

/// Reads the value of a DATE line (UTF-8).
///
/// Ranges and periods keep the year they begin with; "ABT", "BEF" and the like keep the date without the word. A double
/// year ("11 FEB 1731/32") stands for one that began in March when others began in January: the latter counts. Julian,
/// Hebrew and French Republican days are converted; of a month or year of these only the year is taken, the one in
/// which the middle of that month or year lies. In a text that is no date by the rules the first clearly written year
/// is taken ("soon after 1304"); a year behind a lone minus ("-344") is none.
GedcomDate readGedcomDate(std::string_view value);

} // namespace lineara
