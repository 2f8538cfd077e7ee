#include "model/convert.h"

#include "local_zone.h"

#include <QLocale>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace lineara {

using test::LocalZone;

namespace {

std::optional<std::int32_t> read(const QString& text)
{
    return NumberToStringTransformer::reverseTransformedValue(text);
}

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

QDateTime utc(int year, int month, int day, int hour = 12)
{
    return {QDate(year, month, day), QTime(hour, 0), Qt::UTC};
}

} // namespace

TEST(NumberToString, WorksBothWays)
{
    EXPECT_TRUE(NumberToStringTransformer::allowsReverseTransformation());
}

TEST(NumberToString, ShowsPlainDecimals)
{
    EXPECT_EQ(NumberToStringTransformer::transformedValue(1901), u"1901"_qs);
    EXPECT_EQ(NumberToStringTransformer::transformedValue(0), u"0"_qs);
    EXPECT_EQ(NumberToStringTransformer::transformedValue(-44), u"-44"_qs);
    EXPECT_EQ(NumberToStringTransformer::transformedValue(least), u"-2147483648"_qs);
}

TEST(NumberToString, KeepsAbsenceApartFromEmptyText)
{
    EXPECT_EQ(NumberToStringTransformer::transformedValue(std::nullopt), std::nullopt);
    EXPECT_EQ(NumberToStringTransformer::reverseTransformedValue(std::nullopt), std::nullopt);
    EXPECT_EQ(read(u""_qs), 0);
    EXPECT_EQ(read(QString()), 0);
}

TEST(NumberToString, ReadsTheLeadingInteger)
{
    EXPECT_EQ(read(u"1901"_qs), 1901);
    EXPECT_EQ(read(u"  42"_qs), 42);
    EXPECT_EQ(read(u"\t\n 42 "_qs), 42);
    EXPECT_EQ(read(u"-3"_qs), -3);
    EXPECT_EQ(read(u"+7"_qs), 7);
    EXPECT_EQ(read(u"19x"_qs), 19);
    EXPECT_EQ(read(u"1.9"_qs), 1);
    EXPECT_EQ(read(u"007"_qs), 7);
}

TEST(NumberToString, ReadsZeroWithoutLeadingDigits)
{
    EXPECT_EQ(read(u"abc"_qs), 0);
    EXPECT_EQ(read(u"-"_qs), 0);
    EXPECT_EQ(read(u"- 3"_qs), 0);
    EXPECT_EQ(read(u"+-3"_qs), 0);
    EXPECT_EQ(read(u"   "_qs), 0);
    EXPECT_EQ(read(u"x19"_qs), 0);
    EXPECT_EQ(read(u"١٩"_qs), 0);
}

TEST(NumberToString, StaysWithin32Bits)
{
    EXPECT_EQ(read(u"2147483647"_qs), greatest);
    EXPECT_EQ(read(u"2147483648"_qs), greatest);
    EXPECT_EQ(read(u"-2147483648"_qs), least);
    EXPECT_EQ(read(u"-2147483649"_qs), least);
    EXPECT_EQ(read(QString(5000, u'9')), greatest);
    EXPECT_EQ(read(u'-' + QString(5000, u'9')), least);
}

TEST(DateFormat, AcceptsAnEmptiedFieldWithoutAValue)
{
    const DateFormatter formatter(u"yyyy-MM-dd"_qs);
    std::optional<QDate> value;
    QString error;
    EXPECT_TRUE(formatter.getObjectValue(value, u""_qs, &error));
    EXPECT_TRUE(formatter.getObjectValue(value, std::nullopt, &error));
    EXPECT_EQ(value, std::nullopt);
    EXPECT_TRUE(error.isEmpty());
}

TEST(DateFormat, LeavesTheValueAloneWhenTheFieldIsEmptied)
{
    std::optional<QDate> value = QDate(1901, 2, 3);
    EXPECT_TRUE(DateFormatter(u"yyyy"_qs).getObjectValue(value, u""_qs, nullptr));
    EXPECT_EQ(value, QDate(1901, 2, 3));
}

TEST(DateFormat, ReadsByItsFormat)
{
    std::optional<QDate> value;
    EXPECT_TRUE(DateFormatter(u"yyyy-MM-dd"_qs).getObjectValue(value, u"1850-03-31"_qs, nullptr));
    EXPECT_EQ(value, QDate(1850, 3, 31));
    EXPECT_TRUE(DateFormatter(u"d.M.yyyy"_qs).getObjectValue(value, u"1.2.1901"_qs, nullptr));
    EXPECT_EQ(value, QDate(1901, 2, 1));
}

TEST(DateFormat, TellsWhatIsNoDate)
{
    const DateFormatter formatter(u"yyyy-MM-dd"_qs);
    std::optional<QDate> value;
    QString error;
    EXPECT_FALSE(formatter.getObjectValue(value, u"1850-02-30"_qs, &error));
    EXPECT_TRUE(error.contains(u"1850-02-30"_qs));
    EXPECT_FALSE(formatter.getObjectValue(value, u"soon"_qs, nullptr));
    EXPECT_EQ(value, std::nullopt);
}

TEST(YearOfDate, IsTheGregorianYear)
{
    EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(utc(1850, 6, 15)), 1850);
    EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(utc(2001, 6, 1)), 2001);
    EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(utc(-44, 3, 15)), -44);
    EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(std::nullopt), std::nullopt);
}

TEST(YearOfDate, IsReadByLocalTime)
{
    const QDateTime lateOnTheLastDay = utc(1999, 12, 31, 23);
    {
        const LocalZone east("UTC-3");
        EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(lateOnTheLastDay), 2000);
    }
    {
        const LocalZone west("UTC+3");
        EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(lateOnTheLastDay), 1999);
    }
}

TEST(PartsOfDate, BelongToOneLocalDay)
{
    const auto partsOf = [](const QDateTime& date) {
        return std::vector{PersonMigrationPolicy::dateToYear_12_14(date),
                           PersonMigrationPolicy::dateToMonth_12_14(date),
                           PersonMigrationPolicy::dateToDay_12_14(date)};
    };
    using Parts = std::vector<std::optional<std::int32_t>>;
    const QDateTime twoInTheMorning = utc(1851, 1, 1, 2);
    {
        const LocalZone zone("America/New_York");
        EXPECT_EQ(partsOf(twoInTheMorning), (Parts{1850, 12, 31}));
    }
    {
        const LocalZone zone("Asia/Tokyo");
        EXPECT_EQ(partsOf(twoInTheMorning), (Parts{1851, 1, 1}));
    }
}

TEST(PartsOfDate, AreAbsentWithoutAValidDate)
{
    for (const auto& date : {std::optional<QDateTime>(), std::optional(QDateTime())}) {
        EXPECT_EQ(PersonMigrationPolicy::dateToYear_12_14(date), std::nullopt);
        EXPECT_EQ(PersonMigrationPolicy::dateToMonth_12_14(date), std::nullopt);
        EXPECT_EQ(PersonMigrationPolicy::dateToDay_12_14(date), std::nullopt);
    }
}

} // namespace lineara
