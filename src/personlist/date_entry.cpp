#include "date_entry.h"

#include "model/convert.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>

namespace lineara {

namespace {

struct DateEntry
{
    Q_DECLARE_TR_FUNCTIONS(DateEntry)
};

/// Only the digits that files hold; others would be read as 0 afterwards.
bool isWholeNumber(QStringView typed)
{
    if (typed.startsWith(u'-') || typed.startsWith(u'+'))
        typed = typed.mid(1);
    const bool hasDigitsOnly = std::ranges::all_of(typed, [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool fits = false;
    const int magnitude = typed.toInt(&fits);
    return hasDigitsOnly && fits && magnitude >= 0;
}

/// Until every country had left the Julian calendar, its leap years were leap years somewhere.
bool mayBeLeapYear(std::int32_t year)
{
    constexpr std::int32_t lastJulianLeapYear = 1920;
    return QDate::isLeapYear(year) || (year % 4 == 0 && year <= lastJulianLeapYear);
}

std::int32_t daysIn(std::int32_t month, std::optional<std::int32_t> year)
{
    constexpr std::int32_t february = 2;
    constexpr std::int32_t commonYear = 2023;
    if (month == february)
        return !year || mayBeLeapYear(*year) ? 29 : 28;
    return QDate(commonYear, month, 1).daysInMonth();
}

/// One number of a date, or what is wrong with it: `mistake` has a place for what was typed.
Outcome<std::optional<std::int32_t>> readNumber(const QString& typed, const char* mistake)
{
    const QString trimmed = typed.trimmed();
    if (trimmed.isEmpty())
        return std::optional<std::int32_t>();
    if (!isWholeNumber(trimmed))
        return Failure{DateEntry::tr(mistake).arg(trimmed)};
    return NumberToStringTransformer::reverseTransformedValue(trimmed);
}

/// What is wrong with the numbers as a date.
std::optional<QString> mistakeIn(const PartialDate& date)
{
    if (date.month && (*date.month < 1 || *date.month > 12))
        return DateEntry::tr("There is no month %1.").arg(*date.month);
    if (!date.day)
        return std::nullopt;
    if (*date.day < 1 || *date.day > 31)
        return DateEntry::tr("There is no day %1.").arg(*date.day);
    if (!date.month || *date.day <= daysIn(*date.month, date.year))
        return std::nullopt;
    const QString month = QLocale().standaloneMonthName(*date.month);
    if (date.year && *date.day == 29)
        return DateEntry::tr("%1 %2 had no day %3.").arg(month).arg(*date.year).arg(*date.day);
    return DateEntry::tr("%1 has no day %2.").arg(month).arg(*date.day);
}

} // namespace

DateTexts textsOf(const PartialDate& date)
{
    const auto shown = [](std::optional<std::int32_t> number) {
        return NumberToStringTransformer::transformedValue(number).value_or(QString());
    };
    return {shown(date.day), shown(date.month), shown(date.year)};
}

Outcome<PartialDate> readDate(const DateTexts& texts)
{
    const auto day = readNumber(texts.day, QT_TRANSLATE_NOOP("DateEntry", "“%1” is no day."));
    if (day.failed())
        return day.failure();
    const auto month = readNumber(texts.month, QT_TRANSLATE_NOOP("DateEntry", "“%1” is no month."));
    if (month.failed())
        return month.failure();
    const auto year = readNumber(texts.year, QT_TRANSLATE_NOOP("DateEntry", "“%1” is no year."));
    if (year.failed())
        return year.failure();
    const PartialDate date{day.value(), month.value(), year.value()};
    if (const auto mistake = mistakeIn(date))
        return Failure{*mistake};
    return date;
}

std::optional<QString> missingIn(const PartialDate& date)
{
    if (date.day && !date.month)
        return DateEntry::tr("The day needs its month.");
    if (date.month && !date.year)
        return DateEntry::tr("The month needs its year.");
    return std::nullopt;
}

} // namespace lineara
