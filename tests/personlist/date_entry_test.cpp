// What may be typed as a date.

#include "date_entry.h"

#include <gtest/gtest.h>

using namespace lineara;

namespace {

DateTexts typed(const char* day, const char* month, const char* year)
{
    return {QString::fromUtf8(day), QString::fromUtf8(month), QString::fromUtf8(year)};
}

/// What is wrong with the date, or the empty text.
std::string mistake(const DateTexts& texts)
{
    const auto date = readDate(texts);
    return date.failed() ? date.failure().message.toStdString() : std::string();
}

PartialDate dateOf(const DateTexts& texts)
{
    const auto date = readDate(texts);
    EXPECT_FALSE(date.failed());
    return date.failed() ? PartialDate() : date.value();
}

} // namespace

TEST(DateEntry, EmptyNumbersAreAbsent)
{
    EXPECT_EQ(dateOf(typed("", " ", "")), PartialDate());
    EXPECT_EQ(dateOf(typed("", "", "1901")), (PartialDate{{}, {}, 1901}));
    EXPECT_EQ(dateOf(typed("", "5", "1901")), (PartialDate{{}, 5, 1901}));
    EXPECT_EQ(dateOf(typed(" 3 ", "05", "1901")), (PartialDate{3, 5, 1901}));
}

TEST(DateEntry, AnyYearIsAsTyped)
{
    EXPECT_EQ(dateOf(typed("", "", "7")).year, 7);
    EXPECT_EQ(dateOf(typed("", "", "987")).year, 987);
    EXPECT_EQ(dateOf(typed("", "", "12345")).year, 12345);
    EXPECT_EQ(dateOf(typed("", "", "-44")).year, -44);
    EXPECT_EQ(dateOf(typed("", "", "0")).year, 0);
}

TEST(DateEntry, WhatIsNoNumberIsNamed)
{
    EXPECT_EQ(mistake(typed("", "", "19x")), "“19x” is no year.");
    EXPECT_EQ(mistake(typed("", "May", "1901")), "“May” is no month.");
    EXPECT_EQ(mistake(typed("3.", "5", "1901")), "“3.” is no day.");
    EXPECT_EQ(mistake(typed("", "", "+")), "“+” is no year.");
    EXPECT_EQ(mistake(typed("", "", "--5")), "“--5” is no year.");
    EXPECT_EQ(mistake(typed("", "", "99999999999")), "“99999999999” is no year.");
    EXPECT_EQ(mistake(typed("", "", "١٩٠١")), "“١٩٠١” is no year.");
}

TEST(DateEntry, DaysHaveToBeInTheirMonth)
{
    EXPECT_EQ(mistake(typed("31", "2", "1901")), "February has no day 31.");
    EXPECT_EQ(mistake(typed("31", "4", "")), "April has no day 31.");
    EXPECT_EQ(mistake(typed("0", "4", "1901")), "There is no day 0.");
    EXPECT_EQ(mistake(typed("32", "", "")), "There is no day 32.");
    EXPECT_EQ(mistake(typed("1", "13", "1901")), "There is no month 13.");
    EXPECT_EQ(mistake(typed("31", "12", "1901")), "");
}

TEST(DateEntry, LeapDaysAreThoseOfEitherCalendar)
{
    EXPECT_EQ(mistake(typed("29", "2", "2023")), "February 2023 had no day 29.");
    EXPECT_EQ(mistake(typed("29", "2", "2100")), "February 2100 had no day 29.");
    EXPECT_EQ(mistake(typed("29", "2", "2024")), "");
    EXPECT_EQ(mistake(typed("29", "2", "1700")), "");
    EXPECT_EQ(mistake(typed("29", "2", "1701")), "February 1701 had no day 29.");
    EXPECT_EQ(mistake(typed("29", "2", "")), "");
}

TEST(DateEntry, ADayNeedsItsMonthAndAMonthItsYear)
{
    EXPECT_EQ(missingIn({3, {}, 1901}), QStringLiteral("The day needs its month."));
    EXPECT_EQ(missingIn({3, 5, {}}), QStringLiteral("The month needs its year."));
    EXPECT_EQ(missingIn({3, 5, 1901}), std::nullopt);
    EXPECT_EQ(missingIn({{}, 5, 1901}), std::nullopt);
    EXPECT_EQ(missingIn({{}, {}, 1901}), std::nullopt);
    EXPECT_EQ(missingIn({}), std::nullopt);
}

TEST(DateEntry, IsShownAsItIsTyped)
{
    EXPECT_EQ(textsOf({{}, 5, 987}), typed("", "5", "987"));
    EXPECT_EQ(textsOf({31, 12, -44}), typed("31", "12", "-44"));
}
