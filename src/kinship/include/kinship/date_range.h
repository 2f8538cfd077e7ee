#pragma once

#include <cstdint>
#include <optional>

namespace lineara::kinship {

/// A date of which parts may be unknown. Years before Christ are negative, and there is no year 0.
struct PartialDate
{
    std::optional<std::int32_t> year = std::nullopt;
    std::optional<std::int32_t> month = std::nullopt; ///< 1 to 12
    std::optional<std::int32_t> day = std::nullopt;   ///< 1 to 31
    friend bool operator==(const PartialDate&, const PartialDate&) = default;
};

/// Days in a count without gaps, of the Gregorian calendar continued into the past.
using DayNumber = std::int64_t;

/// All the days that a partial date may mean.
class DateRange
{
public:
    /// No value without a year. A month or day that there is not is taken for unknown: the 29th of February of a year
    /// that was none of the Gregorian calendar's leap years is some day of that February.
    static std::optional<DateRange> of(const PartialDate& date);

    DayNumber earliest() const { return earliest_.number; }
    DayNumber latest() const { return latest_.number; }

    /// The day so many months after the earliest, or the latest, that may be meant. A month too short for it gives the
    /// first day of the next one.
    DayNumber earliestAfter(std::int64_t months) const;
    DayNumber latestAfter(std::int64_t months) const;

    bool isCertainlyBefore(const DateRange& other) const { return latest() < other.earliest(); }

private:
    /// With its place in the calendar, so that later days are soon found.
    struct Day
    {
        DayNumber number = 0;
        std::int64_t month = 0;      ///< of the era
        std::int64_t dayOfMonth = 0; ///< from 0
    };

    DateRange(std::int64_t month, std::int64_t day, std::int64_t lastMonth, std::int64_t lastDay);
    static DayNumber later(const Day& day, std::int64_t months);

    Day earliest_;
    Day latest_;
};

inline constexpr std::int64_t monthsOfYear = 12;

} // namespace lineara::kinship
