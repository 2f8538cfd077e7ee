#include "kinship/date_range.h"

#include <algorithm>

namespace lineara::kinship {

namespace {

constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

/// Days before the first of a month (Hinnant's count by years that begin in March).
constexpr DayNumber daysBefore(std::int64_t months)
{
    const std::int64_t year = floorDivide(months - 2, monthsOfYear);
    const std::int64_t monthFromMarch = months - 2 - year * monthsOfYear;
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
}

static_assert(daysBefore(monthsOfYear * 2001) - daysBefore(monthsOfYear * 2000) == 366);
static_assert(daysBefore(monthsOfYear * 1901) - daysBefore(monthsOfYear * 1900) == 365);
static_assert(daysBefore(1) - daysBefore(0) == 31 && daysBefore(2) - daysBefore(1) == 29);

constexpr std::int64_t daysIn(std::int64_t month)
{
    return daysBefore(month + 1) - daysBefore(month);
}

} // namespace

std::optional<DateRange> DateRange::of(const PartialDate& date)
{
    if (!date.year || *date.year == 0)
        return std::nullopt;
    const std::int64_t year = *date.year < 0 ? std::int64_t{*date.year} + 1 : *date.year;
    const std::int64_t january = year * monthsOfYear;
    if (!date.month || *date.month < 1 || *date.month > monthsOfYear)
        return DateRange(january, 0, january + monthsOfYear - 1, 30);
    const std::int64_t month = january + *date.month - 1;
    const std::int64_t days = daysIn(month);
    if (!date.day || *date.day < 1 || *date.day > days)
        return DateRange(month, 0, month, days - 1);
    return DateRange(month, *date.day - 1, month, *date.day - 1);
}

DateRange::DateRange(std::int64_t month, std::int64_t day, std::int64_t lastMonth, std::int64_t lastDay)
    : earliest_{daysBefore(month) + day, month, day}, latest_{daysBefore(lastMonth) + lastDay, lastMonth, lastDay}
{}

DayNumber DateRange::later(const Day& day, std::int64_t months)
{
    const std::int64_t month = day.month + months;
    return daysBefore(month) + std::min(day.dayOfMonth, daysIn(month));
}

DayNumber DateRange::earliestAfter(std::int64_t months) const
{
    return later(earliest_, months);
}

DayNumber DateRange::latestAfter(std::int64_t months) const
{
    return later(latest_, months);
}

} // namespace lineara::kinship
