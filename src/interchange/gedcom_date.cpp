#include "gedcom_date.h"

#include "calendars.h"
#include "date_words.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace lineara {
namespace {

constexpr std::int32_t shortestClearYear = 100;
constexpr std::int32_t lastMonthBeforeOldNewYear = 3;
constexpr std::int32_t longestMonth = 31;

/// The day as a date does not name its year: one that every year can have.
bool canBeDay(std::int32_t day, std::int32_t month)
{
    constexpr std::int32_t anyLeapYear = 4;
    return day >= 1 && day <= daysInMonth(Calendar::Gregorian, anyLeapYear, month);
}

GedcomDate nothing(DateReading why)
{
    GedcomDate date;
    date.reading = why;
    return date;
}

/// Reads the words of a date from left to right.
class DateParser
{
public:
    explicit DateParser(std::string_view value) : words_(value) {}

    GedcomDate parse()
    {
        bool isPart = skipQualifiersAndCalendar();
        isRange_ = skip(isRangeOpener);
        isPart = skipQualifiersAndCalendar() || isPart;
        if (isUnknownCalendar_)
            return nothing(DateReading::OtherCalendar);

        GedcomDate date = readDate();
        const bool isConvincing = isConvincingDate(date);
        if (calendar_ != Calendar::Gregorian)
            convert(date);
        if (isRange_)
            date.day = date.month = std::nullopt;
        isPart = isPart || isRange_ || lostSomething_ || at_ < words_.size();
        date.reading = calendar_ != Calendar::Gregorian ? DateReading::Converted
                       : isPart                         ? DateReading::Part
                                                        : DateReading::Whole;
        if (isConvincing)
            return date;
        return nothing(calendar_ == Calendar::Gregorian ? DateReading::Nothing : DateReading::OtherCalendar);
    }

private:
    bool skip(bool (*isMeant)(std::string_view))
    {
        if (at_ == words_.size() || !isMeant(words_[at_]))
            return false;
        ++at_;
        return true;
    }

    bool skipWord(std::string_view word)
    {
        if (at_ == words_.size() || words_[at_] != word)
            return false;
        ++at_;
        return true;
    }

    bool skipCalendar()
    {
        const auto found = [this](Calendar calendar) {
            calendar_ = calendar;
            return true;
        };
        if (skipWord("GREGORIAN"))
            return found(Calendar::Gregorian);
        if (skipWord("JULIAN"))
            return found(Calendar::Julian);
        if (skipWord("HEBREW"))
            return found(Calendar::Hebrew);
        if (skipWord("FRENCH_R") || skipWord("FRENCH"))
            return found(Calendar::FrenchRepublican);
        const bool isUnknown = skipWord("ROMAN") || skipWord("UNKNOWN");
        isUnknownCalendar_ = isUnknownCalendar_ || isUnknown;
        return isUnknown;
    }

    /// True if there was a qualifier.
    bool skipQualifiersAndCalendar()
    {
        bool isQualified = false;
        for (bool goesOn = true; goesOn;) {
            const bool isWord = skip(isQualifier);
            isQualified = isQualified || isWord;
            goesOn = isWord || skipCalendar();
        }
        return isQualified;
    }

    std::optional<std::int32_t> takeNumber()
    {
        if (at_ == words_.size())
            return std::nullopt;
        const auto number = dateNumber(words_[at_]);
        if (number)
            ++at_;
        return number;
    }

    std::optional<std::int32_t> takeMonth()
    {
        if (at_ == words_.size())
            return std::nullopt;
        const auto month = monthNumber(calendar_, words_[at_]);
        if (month)
            ++at_;
        return month;
    }

    /// [day] [month] year, or month day year.
    GedcomDate readDate()
    {
        GedcomDate date;
        const auto first = takeNumber();
        date.month = takeMonth();
        if (first && !date.month) {
            --at_;
        } else {
            date.day = first;
            if (date.month && !date.day)
                date.day = takeDayBeforeYear();
        }
        date.year = readYear(date.month);
        if (calendar_ == Calendar::Gregorian && date.day && !canBeDay(*date.day, *date.month)) {
            date.day.reset();
            lostSomething_ = true;
        }
        return date;
    }

    /// The day of "MAY 12, 1900", standing before another number.
    std::optional<std::int32_t> takeDayBeforeYear()
    {
        if (at_ + 1 >= words_.size() || !dateNumber(words_[at_ + 1]))
            return std::nullopt;
        auto word = words_[at_];
        if (word.ends_with(','))
            word.remove_suffix(1);
        const auto day = dateNumber(word);
        if (!day || *day > longestMonth)
            return std::nullopt;
        ++at_;
        return day;
    }

    std::optional<std::int32_t> readYear(std::optional<std::int32_t> month)
    {
        if (at_ == words_.size())
            return std::nullopt;
        const auto word = words_[at_];
        const auto slash = std::min(word.find('/'), word.size());
        const auto first = dateNumber(word.substr(0, slash));
        if (!first || *first == 0)
            return std::nullopt;
        const auto second = word.substr(std::min(slash + 1, word.size()));
        if (slash < word.size() && !dateNumber(second))
            return std::nullopt;
        lostSomething_ = lostSomething_ || slash < word.size();
        ++at_;
        const bool isBefore = readEra();
        const std::int32_t next = isBefore ? *first - 1 : *first + 1;
        const std::int32_t year = isDouble(second, next, month) ? next : *first;
        return isBefore ? -year : year;
    }

    /// Whether the year just read is one before Christ. A range that ends there begins there, too ("BET 50 AND 40 BC").
    bool readEra()
    {
        const bool isBefore = skip(isBeforeChrist);
        hasEra_ = isBefore || skip(isAfterChrist);
        bool endsBeforeChrist = false;
        for (auto at = at_; isRange_ && at < words_.size(); ++at)
            endsBeforeChrist = endsBeforeChrist || isBeforeChrist(words_[at]);
        return isBefore || (!hasEra_ && endsBeforeChrist);
    }

    /// Whether what stands behind the slash makes one year of it, counted from March and from January: the next year,
    /// whole or its last digits. Of two whole years without a month nobody knows.
    bool isDouble(std::string_view second, std::int32_t next, std::optional<std::int32_t> month) const
    {
        const auto number = dateNumber(second);
        const bool isInSeason = !month || *month <= lastMonthBeforeOldNewYear;
        if (!number || next == 0 || calendar_ > Calendar::Julian || !isInSeason)
            return false;
        constexpr std::size_t usualDigits = 2;
        if (second.size() == usualDigits)
            return *number == next % 100;
        return month && (*number == next || (second.size() == 1 && *number == next % 10));
    }

    void convert(GedcomDate& date) const
    {
        const std::int32_t days = date.year && date.month ? daysInMonth(calendar_, *date.year, *date.month) : 0;
        const bool isDay = date.day && *date.day >= 1 && *date.day <= days;
        if (days > 0) {
            const std::int32_t day = isDay ? *date.day : (days + 1) / 2;
            const auto gregorian = gregorianDay(dayNumber(calendar_, {*date.year, *date.month, day}));
            date.day = gregorian.day;
            date.month = gregorian.month;
            date.year = gregorian.year;
        } else if (date.year) {
            date.year = gregorianYear(calendar_, *date.year);
        }
        if (!isDay)
            date.day = date.month = std::nullopt;
    }

    /// A short number followed by something else is as likely no year at all ("1-3 July 1035", "10+").
    bool isConvincingDate(const GedcomDate& date) const
    {
        const bool isComplete = at_ == words_.size();
        const bool needsNoEra = calendar_ == Calendar::FrenchRepublican;
        if (!date.year)
            return isComplete && date.month.has_value() && calendar_ == Calendar::Gregorian;
        return isComplete || hasEra_ || isRange_ || needsNoEra || *date.year >= shortestClearYear;
    }

    DateWords words_;
    std::size_t at_ = 0;
    Calendar calendar_ = Calendar::Gregorian;
    bool isUnknownCalendar_ = false;
    bool isRange_ = false;
    bool lostSomething_ = false;
    bool hasEra_ = false;
};

/// The first number of three or four digits, else the first short one that is said to be a year. A minus before it may
/// mean a year before Christ as well as the end of a life, and the one must not become the other.
GedcomDate findYear(std::string_view utf8)
{
    static const QRegularExpression clearYear(QStringLiteral("(?<!\\S)[-\u2212\u2013]\\d{3,4}(?!\\d)(?! *B\\.?C)"
                                                             "|(?<!\\d)(\\d{3,4})(?!\\d)( *B\\.?C)?"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression shortYear(
        QStringLiteral("(?<!\\d)(\\d{1,2}) *(?:(B\\.?C(?:\\.?E)?)|A\\.?D|C\\.?E)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    const auto value = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    auto match = clearYear.match(value);
    if (!match.hasMatch())
        match = shortYear.match(value);
    const std::int32_t year = match.captured(1).toInt();
    if (year == 0)
        return {};
    const bool isBefore = !match.captured(2).isEmpty();
    return {.day = {}, .month = {}, .year = isBefore ? -year : year, .reading = DateReading::Part};
}

} // namespace

GedcomDate readGedcomDate(std::string_view value)
{
    const GedcomDate date = DateParser(value).parse();
    const auto first = value.find_first_not_of(" \t");
    const bool isPhrase = first != std::string_view::npos && value[first] == '(';
    return date.reading == DateReading::Nothing && !isPhrase ? findYear(value) : date;
}

} // namespace lineara
