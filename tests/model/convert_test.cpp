#include "model/convert.h"

#include <QLocale>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>

namespace lineara {

namespace {

std::optional<std::int32_t> read(const QString& text)
{
    return NumberToStringTransformer::reverseTransformedValue(text);
}

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

/// Sets the local time zone for a test.
class LocalZone
{
public:
    explicit LocalZone(const char* zone) : before_(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
        tzset();
    }
    ~LocalZone()
    {
        if (before_.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", before_);
        tzset();
    }
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

private:
    QByteArray before_;
};

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

} // namespace lineara
