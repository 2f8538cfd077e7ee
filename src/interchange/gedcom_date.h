#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lineara {

/// How much of a date's text went into its numbers.
enum class DateReading : std::uint8_t
{
    Whole,         ///< the numbers say all that the text says
    Part,          ///< something was left out: a qualifier, the end of a range, a remark, a day that does not exist
    OtherCalendar, ///< nothing taken: the date is counted in another calendar
    Nothing,       ///< nothing taken: no date was recognised
};

/// A date as a person's record keeps it. Years before Christ are negative.
struct GedcomDate
{
    std::optional<std::int32_t> day;
    std::optional<std::int32_t> month;
    std::optional<std::int32_t> year;
    DateReading reading = DateReading::Nothing;
};

/// Reads the value of a DATE line. Ranges and periods keep the year they begin with; "ABT", "BEF" and the like keep
/// the date without the word; of a double year ("1699/00") the first counts. In a text that is no date by the rules
/// the first clearly written year is taken ("soon after 1304").
GedcomDate readGedcomDate(const QString& value);

} // namespace lineara
