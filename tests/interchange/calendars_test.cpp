#include "calendars.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace lineara {
namespace {

/// Walks a calendar day by day, by its rules as people tell them, with years in one row (0 before 1).
class RomanTwin
{
public:
    RomanTwin(bool isJulian, int year, int month, int day) : isJulian_(isJulian), year_(year), month_(month), day_(day)
    {}

    void step()
    {
        if (++day_ <= monthLength())
            return;
        day_ = 1;
        if (++month_ <= 12)
            return;
        month_ = 1;
        ++year_;
    }

    CalendarDay day() const { return {year_ <= 0 ? year_ - 1 : year_, month_, day_}; }
    int monthLength() const
    {
        if (month_ == 2)
            return isLeap() ? 29 : 28;
        return month_ == 4 || month_ == 6 || month_ == 9 || month_ == 11 ? 30 : 31;
    }

private:
    bool isLeap() const
    {
        if (isJulian_ || year_ % 100 != 0)
            return year_ % 4 == 0;
        return year_ % 400 == 0;
    }

    bool isJulian_;
    int year_;
    int month_;
    int day_;
};

// 1 January of the year 1 was 3 January by the Julian calendar; both are walked back to the years before Christ and on
// beyond our own.
TEST(Calendars, GregorianAndJulianDaysAreThoseOfWalkingDayByDay)
{
    std::int64_t number = dayNumber(Calendar::Gregorian, {-801, 3, 1});
    RomanTwin gregorian(false, -800, 3, 1);
    // In 801 BC the calendars stood 8 days apart the other way.
    RomanTwin julian(true, -800, 3, 9);
    for (; gregorian.day().year < 2300; ++number) {
        ASSERT_EQ(gregorianDay(number), gregorian.day()) << number;
        ASSERT_EQ(dayNumber(Calendar::Gregorian, gregorian.day()), number);
        ASSERT_EQ(dayNumber(Calendar::Julian, julian.day()), number) << julian.day().year;
        gregorian.step();
        julian.step();
    }
}

TEST(Calendars, DaysThatHistoryKnowsTwice)
{
    const auto converted = [](Calendar calendar, CalendarDay day) { return gregorianDay(dayNumber(calendar, day)); };
    // The days on which countries changed over.
    EXPECT_EQ(converted(Calendar::Julian, {1582, 10, 4}), (CalendarDay{1582, 10, 14}));
    EXPECT_EQ(converted(Calendar::Julian, {1752, 9, 2}), (CalendarDay{1752, 9, 13}));
    EXPECT_EQ(converted(Calendar::Julian, {1918, 1, 31}), (CalendarDay{1918, 2, 13}));
    EXPECT_EQ(converted(Calendar::Julian, {1732, 2, 11}), (CalendarDay{1732, 2, 22}));
    EXPECT_EQ(converted(Calendar::Julian, {-44, 3, 15}), (CalendarDay{-44, 3, 13}));
    // The republic, 9 Thermidor, 18 Brumaire, the coronation, the last day.
    EXPECT_EQ(converted(Calendar::FrenchRepublican, {1, 1, 1}), (CalendarDay{1792, 9, 22}));
    EXPECT_EQ(converted(Calendar::FrenchRepublican, {2, 11, 9}), (CalendarDay{1794, 7, 27}));
    EXPECT_EQ(converted(Calendar::FrenchRepublican, {8, 2, 18}), (CalendarDay{1799, 11, 9}));
    EXPECT_EQ(converted(Calendar::FrenchRepublican, {13, 3, 11}), (CalendarDay{1804, 12, 2}));
    EXPECT_EQ(converted(Calendar::FrenchRepublican, {14, 4, 10}), (CalendarDay{1805, 12, 31}));
    // New years and feasts.
    EXPECT_EQ(converted(Calendar::Hebrew, {5784, 1, 1}), (CalendarDay{2023, 9, 16}));
    EXPECT_EQ(converted(Calendar::Hebrew, {5784, 6, 14}), (CalendarDay{2024, 2, 23}));
    EXPECT_EQ(converted(Calendar::Hebrew, {5784, 7, 14}), (CalendarDay{2024, 3, 24}));
    EXPECT_EQ(converted(Calendar::Hebrew, {5708, 9, 5}), (CalendarDay{1948, 5, 14}));
    EXPECT_EQ(converted(Calendar::Hebrew, {4895, 8, 14}), (CalendarDay{1135, 4, 6}));
    EXPECT_EQ(converted(Calendar::Hebrew, {5785, 1, 1}), (CalendarDay{2024, 10, 3}));
}

/// Length of each French year, as it was: the third, seventh and eleventh had a day more.
TEST(Calendars, FrenchYearsFollowOneAnother)
{
    std::int64_t number = dayNumber(Calendar::Gregorian, {1792, 9, 22});
    for (std::int32_t year = 1; year <= 14; ++year) {
        for (std::int32_t month = 1; month <= 13; ++month) {
            const int days = month < 13 ? 30 : year == 3 || year == 7 || year == 11 ? 6 : 5;
            ASSERT_EQ(daysInMonth(Calendar::FrenchRepublican, year, month), days) << year << " " << month;
            for (std::int32_t day = 1; day <= days; ++day)
                ASSERT_EQ(dayNumber(Calendar::FrenchRepublican, {year, month, day}), number++);
        }
    }
    EXPECT_EQ(daysInMonth(Calendar::FrenchRepublican, 1, 14), 0);
}

/// The Hebrew calendar as it is taught: leap years are seven named ones in nineteen; each new moon follows the last by
/// 29 days, 12 hours and 793 parts; the new year is put off by its four rules; the lengths of years decide the months.
class HebrewTwin
{
public:
    /// Weekday (0 is Sunday) and day number of each new year from 1 up to `last` + 1.
    explicit HebrewTwin(std::int32_t last)
    {
        constexpr std::int64_t partsInHour = 1080;
        constexpr std::int64_t partsInDay = 24 * partsInHour;
        constexpr std::int64_t month = 29 * partsInDay + 12 * partsInHour + 793;
        // The first new moon: the second day of the week, 5 hours, 204 parts; its day has the number -1373427.
        std::int64_t day = 0;
        std::int64_t parts = 5 * partsInHour + 204;
        for (std::int32_t year = 1; year <= last + 1; ++year) {
            starts_.push_back(-1373427 + putOff(day, parts, year));
            parts += month * (isLeap(year) ? 13 : 12);
            day += parts / partsInDay;
            parts %= partsInDay;
        }
    }

    std::int64_t start(std::int32_t year) const { return starts_[static_cast<std::size_t>(year - 1)]; }
    std::int64_t length(std::int32_t year) const { return start(year + 1) - start(year); }

    static bool isLeap(std::int32_t year)
    {
        const int inCycle = year % 19;
        return inCycle == 3 || inCycle == 6 || inCycle == 8 || inCycle == 11 || inCycle == 14 || inCycle == 17 ||
               inCycle == 0;
    }

    std::vector<int> months(std::int32_t year) const
    {
        const std::map<std::int64_t, std::pair<int, int>> kinds = {{353, {29, 29}}, {354, {29, 30}}, {355, {30, 30}},
                                                                   {383, {29, 29}}, {384, {29, 30}}, {385, {30, 30}}};
        const auto [cheshvan, kislev] = kinds.at(length(year));
        const bool leap = isLeap(year);
        return {30, cheshvan, kislev, 29, 30, leap ? 30 : 29, leap ? 29 : 0, 30, 29, 30, 29, 30, 29};
    }

private:
    /// Days are counted from the Monday of the first new moon.
    static std::int64_t putOff(std::int64_t day, std::int64_t parts, std::int32_t year)
    {
        constexpr std::int64_t partsInHour = 1080;
        const auto weekday = [](std::int64_t d) { return (d + 1) % 7; };
        constexpr int sunday = 0;
        constexpr int monday = 1;
        constexpr int tuesday = 2;
        constexpr int wednesday = 3;
        constexpr int friday = 5;
        const bool isOld = parts >= 18 * partsInHour;
        const bool isLateTuesday = weekday(day) == tuesday && parts >= 9 * partsInHour + 204 && !isLeap(year);
        const bool isLateMonday =
            weekday(day) == monday && parts >= 15 * partsInHour + 589 && year > 1 && isLeap(year - 1);
        if (isOld || isLateTuesday || isLateMonday)
            ++day;
        if (weekday(day) == sunday || weekday(day) == wednesday || weekday(day) == friday)
            ++day;
        return day;
    }

    std::vector<std::int64_t> starts_;
};

TEST(Calendars, HebrewDaysAreThoseOfTheFourRules)
{
    constexpr std::int32_t last = 6200;
    const HebrewTwin twin(last);
    for (std::int32_t year = 1; year <= last; ++year) {
        std::int64_t number = twin.start(year);
        const auto months = twin.months(year);
        for (std::int32_t month = 1; month <= 13; ++month) {
            const int days = months[static_cast<std::size_t>(month - 1)];
            ASSERT_EQ(daysInMonth(Calendar::Hebrew, year, month), days) << year << " " << month;
            if (days > 0) {
                ASSERT_EQ(dayNumber(Calendar::Hebrew, {year, month, 1}), number) << year << " " << month;
                ASSERT_EQ(dayNumber(Calendar::Hebrew, {year, month, days}), number + days - 1);
            }
            number += days;
        }
        ASSERT_EQ(number, twin.start(year + 1)) << year;
    }
}

TEST(Calendars, AYearIsTheOneThatItsMiddleLiesIn)
{
    EXPECT_EQ(gregorianYear(Calendar::Gregorian, 1900), 1900);
    EXPECT_EQ(gregorianYear(Calendar::Julian, 1066), 1066);
    EXPECT_EQ(gregorianYear(Calendar::Julian, -44), -44);
    EXPECT_EQ(gregorianYear(Calendar::Hebrew, 5784), 2024);
    EXPECT_EQ(gregorianYear(Calendar::Hebrew, 1), -3760);
    EXPECT_EQ(gregorianYear(Calendar::FrenchRepublican, 7), 1799);
}

} // namespace
} // namespace lineara
