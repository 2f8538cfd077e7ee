#include "model/convert.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <limits>
#include <utility>

namespace lineara {

namespace {

constexpr std::int64_t beyondAnyNumber = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// The number that the leading digits stand for, or `beyondAnyNumber` if that is less.
std::int64_t leadingDigits(QStringView text)
{
    std::int64_t number = 0;
    for (const QChar character : text) {
        if (!isDigit(character))
            break;
        number = std::min(number * 10 + (character.unicode() - u'0'), beyondAnyNumber);
    }
    return number;
}

std::optional<QDate> localDay(const std::optional<QDateTime>& date)
{
    const QDate day = date ? date->toLocalTime().date() : QDate();
    return day.isValid() ? std::optional(day) : std::nullopt;
}

} // namespace

std::optional<QString> NumberToStringTransformer::transformedValue(std::optional<std::int32_t> number)
{
    if (!number)
        return std::nullopt;
    return QString::number(*number);
}

std::optional<std::int32_t> NumberToStringTransformer::reverseTransformedValue(const std::optional<QString>& text)
{
    if (!text)
        return std::nullopt;
    const auto* const start = std::find_if_not(text->cbegin(), text->cend(), [](QChar c) { return c.isSpace(); });
    QStringView rest(start, text->cend());
    const bool negative = rest.startsWith(u'-');
    if (negative || rest.startsWith(u'+'))
        rest = rest.mid(1);
    const std::int64_t number = leadingDigits(rest);
    const std::int64_t greatest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(negative ? -number : std::min(number, greatest));
}

bool DateFormatter::getObjectValue(std::optional<QDate>& value, const std::optional<QString>& text,
                                   QString* error) const
{
    if (!text || text->isEmpty())
        return true;
    const QDate date = QLocale().toDate(*text, format_);
    if (date.isValid())
        value = date;
    else if (error)
        *error = QCoreApplication::translate("DateFormatter", "“%1” is no date.").arg(*text);
    return date.isValid();
}

std::optional<std::int32_t> PersonMigrationPolicy::dateToYear_12_14(const std::optional<QDateTime>& date)
{
    const auto day = localDay(date);
    return day ? std::optional(day->year()) : std::nullopt;
}

std::optional<std::int32_t> PersonMigrationPolicy::dateToMonth_12_14(const std::optional<QDateTime>& date)
{
    const auto day = localDay(date);
    return day ? std::optional(day->month()) : std::nullopt;
}

std::optional<std::int32_t> PersonMigrationPolicy::dateToDay_12_14(const std::optional<QDateTime>& date)
{
    const auto day = localDay(date);
    return day ? std::optional(day->day()) : std::nullopt;
}

} // namespace lineara
