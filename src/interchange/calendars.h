#pragma once

#include <cstdint>
#include <optional>

namespace lineara {

enum class Calendar : std::uint8_t
{
    Gregorian,
    Julian,
    Hebrew,
    FrenchRepublican
};

/// A day counted in some calendar. Months count from 1 in the calendar's own order: of the Hebrew year Tishri is 1 and
/// Elul 13, whether or not the year has its second Adar (month 7); of the French one the days at the year's end are
/// month 13. Years before Christ are negative, and there is no year 0.
struct CalendarDay
{
    std::int32_t year = 1;
    std::int32_t month = 1;
    std::int32_t day = 1;
    friend bool operator==(const CalendarDay&, const CalendarDay&) = default;
};

/// Days in that month; 0 if the year has no such month. Exact for all years in which the calendar was kept, and beyond
/// them by the same rules; the French years go on after the 14th with every fourth one a leap year, as they began.
std::int32_t daysInMonth(Calendar calendar, std::int32_t year, std::int32_t month);

/// Number of a day that all calendars share; 1 is 1 January of the Gregorian year 1. The day must exist.
std::int64_t dayNumber(Calendar calendar, const CalendarDay& day);

/// The Gregorian day of that number.
CalendarDay gregorianDay(std::int64_t number);

/// The Gregorian year in which the middle of a year of the calendar lies.
std::int32_t gregorianYear(Calendar calendar, std::int32_t year);

} // namespace lineara
