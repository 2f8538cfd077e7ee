#include "kinship/date_range.h"

#include <gmock/gmock.h>

#include <chrono>
#include <limits>

namespace lineara::kinship {
namespace {

DateRange rangeOf(const PartialDate& date)
{
    return DateRange::of(date).value();
}

DayNumber length(const PartialDate& date)
{
    return rangeOf(date).latest() - rangeOf(date).earliest() + 1;
}

DayNumber dayOf(std::int32_t year, std::int32_t month, std::int32_t day)
{
    return rangeOf({year, month, day}).earliest();
}

TEST(DateRangeTest, WithoutAYearThereIsNone)
{
    EXPECT_FALSE(DateRange::of({}));
    EXPECT_FALSE(DateRange::of({std::nullopt, 5, 5}));
    EXPECT_FALSE(DateRange::of({0, 5, 5}));
}

TEST(DateRangeTest, HoldsEveryDayThatMayBeMeant)
{
    EXPECT_EQ(length({1900, 5, 17}), 1);
    EXPECT_EQ(length({1900, 2}), 28);
    EXPECT_EQ(length({1904, 2}), 29);
    EXPECT_EQ(length({1900}), 365);
    EXPECT_EQ(length({2000}), 366);
    EXPECT_EQ(length({1900, std::nullopt, 17}), 365);
}

TEST(DateRangeTest, DaysAndMonthsThatThereAreNotAreUnknown)
{
    EXPECT_EQ(length({1900, 2, 29}), 28);
    EXPECT_EQ(length({1900, 4, 31}), 30);
    EXPECT_EQ(length({1900, 13, 1}), 365);
    EXPECT_EQ(length({1900, 0, 1}), 365);
}

TEST(DateRangeTest, TheYearBeforeTheFirstIsTheFirstBeforeChrist)
{
    EXPECT_EQ(dayOf(1, 1, 1) - dayOf(-1, 12, 31), 1);
    EXPECT_EQ(length({-1}), 366);
    EXPECT_EQ(length({-2}), 365);
    EXPECT_TRUE(rangeOf({-44}).isCertainlyBefore(rangeOf({-43})));
}

TEST(DateRangeTest, CountsTheDaysOfTheGregorianCalendar)
{
    using namespace std::chrono;
    const DayNumber epoch = dayOf(1970, 1, 1);
    for (int day = -900'000; day < 200'000; day += 13) {
        const year_month_day date{sys_days{days{day}}};
        // The library's calendar has a year 0, which is the first before Christ.
        const int year = static_cast<int>(date.year());
        const auto month = static_cast<std::int32_t>(static_cast<unsigned>(date.month()));
        const auto dayOfMonth = static_cast<std::int32_t>(static_cast<unsigned>(date.day()));
        ASSERT_EQ(dayOf(year <= 0 ? year - 1 : year, month, dayOfMonth) - epoch, day);
    }
}

TEST(DateRangeTest, AMonthTooShortGivesTheFirstOfTheNext)
{
    EXPECT_EQ(rangeOf({2001, 1, 31}).earliestAfter(1), dayOf(2001, 3, 1));
    EXPECT_EQ(rangeOf({2000, 2, 29}).earliestAfter(monthsOfYear), dayOf(2001, 3, 1));
    EXPECT_EQ(rangeOf({2000, 2, 29}).earliestAfter(4 * monthsOfYear), dayOf(2004, 2, 29));
    EXPECT_EQ(rangeOf({1999, 11, 5}).earliestAfter(9), dayOf(2000, 8, 5));
}

TEST(DateRangeTest, LaterDaysOfAYearAreReckonedFromItsLast)
{
    EXPECT_EQ(rangeOf({1900}).earliestAfter(12 * monthsOfYear), dayOf(1912, 1, 1));
    EXPECT_EQ(rangeOf({1900}).latestAfter(12 * monthsOfYear), dayOf(1912, 12, 31));
    EXPECT_EQ(rangeOf({-3}).latestAfter(4 * monthsOfYear), dayOf(2, 12, 31));
}

TEST(DateRangeTest, KnowsEveryYearOfThirtyTwoBits)
{
    EXPECT_LT(rangeOf({std::numeric_limits<std::int32_t>::min()}).latestAfter(1'440), dayOf(1, 1, 1));
    EXPECT_GT(rangeOf({std::numeric_limits<std::int32_t>::max()}).earliest(), dayOf(1, 1, 1));
}

} // namespace
} // namespace lineara::kinship
