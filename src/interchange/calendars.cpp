#include "calendars.h"

#include <array>

namespace lineara {
namespace {

constexpr std::int32_t monthsInYear = 12;
constexpr std::int32_t february = 2;

std::int64_t floorDivide(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

bool isMultiple(std::int64_t a, std::int64_t b)
{
    return a % b == 0;
}

/// Years in one row, with 0 before 1.
std::int64_t inOneRow(std::int32_t year)
{
    return year < 0 ? std::int64_t{year} + 1 : year;
}

std::int32_t withoutZero(std::int64_t year)
{
    return static_cast<std::int32_t>(year <= 0 ? year - 1 : year);
}

bool isLeapYear(Calendar calendar, std::int32_t year)
{
    const std::int64_t y = inOneRow(year);
    if (calendar == Calendar::Julian)
        return isMultiple(y, 4);
    return isMultiple(y, 4) && (!isMultiple(y, 100) || isMultiple(y, 400));
}

std::int32_t daysInRomanMonth(Calendar calendar, std::int32_t year, std::int32_t month)
{
    static constexpr std::array<std::int32_t, monthsInYear> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > monthsInYear)
        return 0;
    return days.at(static_cast<std::size_t>(month - 1)) + (month == february && isLeapYear(calendar, year) ? 1 : 0);
}

/// Days before the first of January.
std::int64_t daysBeforeRomanYear(Calendar calendar, std::int32_t year)
{
    const std::int64_t before = inOneRow(year) - 1;
    if (calendar == Calendar::Julian)
        return 365 * before + floorDivide(before, 4) - 2;
    return 365 * before + floorDivide(before, 4) - floorDivide(before, 100) + floorDivide(before, 400);
}

// The Hebrew year begins with the new moon of Tishri, put off by up to two days so that no feast falls on a forbidden
// day of the week. "Parts" are the 1080th part of an hour; the first new moon is counted from the epoch.
constexpr std::int64_t hebrewEpoch = -1373427;
constexpr std::int32_t cheshvan = 2;
constexpr std::int32_t kislev = 3;
constexpr std::int32_t secondAdar = 7;
constexpr std::int32_t hebrewMonths = 13;

std::int64_t newMoonDay(std::int64_t year)
{
    constexpr std::int64_t partsInDay = 24 * 1080;
    const std::int64_t months = floorDivide(235 * year - 234, 19);
    const std::int64_t parts = 12084 + 13753 * months;
    const std::int64_t day = 29 * months + floorDivide(parts, partsInDay);
    const std::int64_t inWeek = 3 * (day + 1) - 7 * floorDivide(3 * (day + 1), 7);
    return inWeek < 3 ? day + 1 : day;
}

std::int64_t hebrewNewYear(std::int64_t year)
{
    const std::int64_t before = newMoonDay(year - 1);
    const std::int64_t own = newMoonDay(year);
    const std::int64_t next = newMoonDay(year + 1);
    constexpr int tooLong = 356;
    constexpr int tooShort = 382;
    return hebrewEpoch + own + (next - own == tooLong ? 2 : own - before == tooShort ? 1 : 0);
}

std::int32_t daysInHebrewMonth(std::int32_t year, std::int32_t month)
{
    if (month < 1 || month > hebrewMonths)
        return 0;
    const std::int64_t length = hebrewNewYear(std::int64_t{year} + 1) - hebrewNewYear(year);
    const bool isLeap = length > 360;
    if (month == secondAdar)
        return isLeap ? 29 : 0;
    if (month == cheshvan)
        return length % 10 == 5 ? 30 : 29;
    if (month == kislev)
        return length % 10 == 3 ? 29 : 30;
    if (month == secondAdar - 1)
        return isLeap ? 30 : 29;
    const bool isLong = month < secondAdar ? month % 2 == 1 : month % 2 == 0;
    return isLong ? 30 : 29;
}

constexpr std::int64_t frenchEpoch = 654415;

std::int32_t daysInFrenchMonth(std::int32_t year, std::int32_t month)
{
    if (month < 1 || month > monthsInYear + 1)
        return 0;
    if (month <= monthsInYear)
        return 30;
    return year % 4 == 3 ? 6 : 5;
}

std::int64_t startOfYear(Calendar calendar, std::int32_t year)
{
    switch (calendar) {
    case Calendar::Hebrew:
        return hebrewNewYear(year);
    case Calendar::FrenchRepublican:
        return frenchEpoch + 365 * (std::int64_t{year} - 1) + year / 4;
    case Calendar::Gregorian:
    case Calendar::Julian:
        break;
    }
    return daysBeforeRomanYear(calendar, year) + 1;
}

} // namespace

std::int32_t daysInMonth(Calendar calendar, std::int32_t year, std::int32_t month)
{
    switch (calendar) {
    case Calendar::Hebrew:
        return daysInHebrewMonth(year, month);
    case Calendar::FrenchRepublican:
        return daysInFrenchMonth(year, month);
    case Calendar::Gregorian:
    case Calendar::Julian:
        break;
    }
    return daysInRomanMonth(calendar, year, month);
}

std::int64_t dayNumber(Calendar calendar, const CalendarDay& day)
{
    std::int64_t number = startOfYear(calendar, day.year) + day.day - 1;
    for (std::int32_t month = 1; month < day.month; ++month)
        number += daysInMonth(calendar, day.year, month);
    return number;
}

CalendarDay gregorianDay(std::int64_t number)
{
    constexpr std::int64_t daysIn400Years = 146097;
    // Never too late, and early by a year at most.
    std::int64_t year = floorDivide((number - 1) * 400, daysIn400Years);
    while (startOfYear(Calendar::Gregorian, withoutZero(year + 1)) <= number)
        ++year;
    CalendarDay day{.year = withoutZero(year), .month = 1, .day = 1};
    std::int64_t left = number - startOfYear(Calendar::Gregorian, day.year);
    for (; left >= daysInMonth(Calendar::Gregorian, day.year, day.month); ++day.month)
        left -= daysInMonth(Calendar::Gregorian, day.year, day.month);
    day.day = static_cast<std::int32_t>(left) + 1;
    return day;
}

std::int32_t gregorianYear(Calendar calendar, std::int32_t year)
{
    constexpr std::int64_t halfAYear = 182;
    return gregorianDay(startOfYear(calendar, year) + halfAYear).year;
}

} // namespace lineara
