#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>
#include <utility>

namespace lineara {

/// Whole-number attributes as the text that is edited, and back.
class NumberToStringTransformer
{
public:
    static constexpr bool allowsReverseTransformation() { return true; }

    /// Plain decimal text; absent stays absent.
    static std::optional<QString> transformedValue(std::optional<std::int32_t> number);

    /// The leading integer of the text: white space, an optional sign, then digits up to the first other character.
    /// Without digits 0; beyond 32 bits the nearest number that there is. Absent stays absent.
    static std::optional<std::int32_t> reverseTransformedValue(const std::optional<QString>& text);
};

/// Reads dates that are typed, and accepts an emptied field.
class DateFormatter
{
public:
    /// `format` in the notation of QDate, "yyyy-MM-dd" for example.
    explicit DateFormatter(QString format) : format_(std::move(format)) {}

    /// True if the text was understood. Absent and empty text is understood and leaves `value` as it was; text that is
    /// no date leaves it too and puts the reason into `error`, if given.
    bool getObjectValue(std::optional<QDate>& value, const std::optional<QString>& text, QString* error) const;

private:
    QString format_;
};

/// What the step from model version 12 to 14 computes: the parts of a date in the Gregorian calendar, reckoned back
/// before its introduction, and in the time zone that was local at the time. Absent stays absent, and an invalid date
/// is absent.
class PersonMigrationPolicy
{
public:
    /// Years before Christ are negative; there is no year 0.
    static std::optional<std::int32_t> dateToYear_12_14(const std::optional<QDateTime>& date);
    static std::optional<std::int32_t> dateToMonth_12_14(const std::optional<QDateTime>& date);
    static std::optional<std::int32_t> dateToDay_12_14(const std::optional<QDateTime>& date);
};

} // namespace lineara
