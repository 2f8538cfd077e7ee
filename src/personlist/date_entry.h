#pragma once

#include "platform/outcome.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace lineara {

/// A date of which only a part may be known.
struct PartialDate
{
    std::optional<std::int32_t> day;
    std::optional<std::int32_t> month;
    std::optional<std::int32_t> year;
    friend bool operator==(const PartialDate&, const PartialDate&) = default;
};

/// A date as it is typed, number by number.
struct DateTexts
{
    QString day;
    QString month;
    QString year;
    friend bool operator==(const DateTexts&, const DateTexts&) = default;
};

DateTexts textsOf(const PartialDate& date);

/// The date that was typed; an empty text is an absent number. The failure says what is no number, or no day of its
/// month. Any year is a year.
Outcome<PartialDate> readDate(const DateTexts& texts);

/// What has to be added: a day needs its month, and a month its year. Nothing is wrong with what is there.
std::optional<QString> missingIn(const PartialDate& date);

} // namespace lineara
