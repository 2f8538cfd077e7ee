#include "gedcom_date.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace lineara {
namespace {

constexpr std::int32_t shortestClearYear = 100;

/// Number of a month from its English name or an abbreviation of at least three letters, in capitals.
std::optional<std::int32_t> monthNumber(QStringView word)
{
    static constexpr std::array<QStringView, 12> months = {u"JANUARY",   u"FEBRUARY", u"MARCH",    u"APRIL",
                                                           u"MAY",       u"JUNE",     u"JULY",     u"AUGUST",
                                                           u"SEPTEMBER", u"OCTOBER",  u"NOVEMBER", u"DECEMBER"};
    if (word.endsWith(u'.'))
        word.chop(1);
    if (word.size() < 3)
        return std::nullopt;
    const auto found = std::find_if(months.begin(), months.end(), [&](QStringView m) { return m.startsWith(word); });
    if (found == months.end())
        return std::nullopt;
    return static_cast<std::int32_t>(found - months.begin()) + 1;
}

std::int32_t daysIn(std::int32_t month)
{
    static constexpr std::array<std::int32_t, 12> days = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days.at(static_cast<std::size_t>(month - 1));
}

/// One to four digits.
std::optional<std::int32_t> number(QStringView word)
{
    const bool isNumber = !word.isEmpty() && word.size() <= 4 &&
                          std::all_of(word.begin(), word.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return isNumber ? std::optional(word.toInt()) : std::nullopt;
}

/// Reads the words of a date from left to right.
class DateParser
{
public:
    explicit DateParser(const QString& value) : words_(split(value)) {}

    GedcomDate parse()
    {
        bool isPart = false;
        while (skip(qualifiers()))
            isPart = true;
        const bool isRange = skip(rangeOpeners());
        while (skip(qualifiers()))
            isPart = true;
        skip({QStringLiteral("GREGORIAN")});
        if (skip(otherCalendars()))
            return {.day = {}, .month = {}, .year = {}, .reading = DateReading::OtherCalendar};

        GedcomDate date = readDate();
        if (isRange)
            keepFirstYear(date);
        isPart = isPart || isRange || lostSomething_ || at_ < words_.size();
        date.reading = isPart ? DateReading::Part : DateReading::Whole;
        return isConvincing(date, isRange) ? date : GedcomDate{};
    }

private:
    static const QStringList& qualifiers()
    {
        static const QStringList words =
            QStringLiteral("ABT ABT. ABOUT CA CA. C. CIRCA EST EST. CAL CAL. INT BEF BEF. BEFORE BY AFT AFT. AFTER TO")
                .split(u' ');
        return words;
    }
    static const QStringList& rangeOpeners()
    {
        static const QStringList words = QStringLiteral("BET BET. BETWEEN FROM").split(u' ');
        return words;
    }
    static const QStringList& beforeChrist()
    {
        static const QStringList words = QStringLiteral("BC B.C. BC. BCE B.C.E.").split(u' ');
        return words;
    }
    static const QStringList& otherCalendars()
    {
        static const QStringList words = QStringLiteral("JULIAN HEBREW FRENCH_R FRENCH ROMAN UNKNOWN").split(u' ');
        return words;
    }

    /// Calendar escapes of the older versions ("@#DJULIAN@") become the words of the newer one ("JULIAN").
    static QStringList split(const QString& value)
    {
        static const QRegularExpression escape(QStringLiteral("@#D([^@]*)@"));
        return value.toUpper().replace(escape, QStringLiteral(" \\1 ")).simplified().split(u' ', Qt::SkipEmptyParts);
    }

    bool skip(const QStringList& words)
    {
        if (at_ == words_.size() || !words.contains(words_[at_]))
            return false;
        ++at_;
        return true;
    }

    template<class T>
    std::optional<T> take(std::optional<T> (*read)(QStringView))
    {
        const auto value = at_ < words_.size() ? read(words_[at_]) : std::nullopt;
        if (value)
            ++at_;
        return value;
    }

    /// [day] [month] year, or month day year.
    GedcomDate readDate()
    {
        GedcomDate date;
        const auto first = take(number);
        date.month = take(monthNumber);
        if (first && !date.month) {
            --at_;
        } else {
            date.day = first;
            if (date.month && !date.day)
                date.day = takeDayBeforeYear();
        }
        date.year = readYear();
        if (date.day && (*date.day < 1 || *date.day > daysIn(*date.month))) {
            date.day.reset();
            lostSomething_ = true;
        }
        return date;
    }

    /// The day of "MAY 12, 1900", standing before another number.
    std::optional<std::int32_t> takeDayBeforeYear()
    {
        if (at_ + 1 >= words_.size() || !number(words_[at_ + 1]))
            return std::nullopt;
        QStringView word = words_[at_];
        if (word.endsWith(u','))
            word.chop(1);
        const auto day = number(word);
        if (!day || *day > 31)
            return std::nullopt;
        ++at_;
        return day;
    }

    std::optional<std::int32_t> readYear()
    {
        if (at_ == words_.size())
            return std::nullopt;
        const QStringList halves = words_[at_].split(u'/');
        const auto year = number(halves.front());
        if (!year || *year == 0 || halves.size() > 2 || (halves.size() == 2 && !number(halves.back())))
            return std::nullopt;
        ++at_;
        lostSomething_ = lostSomething_ || halves.size() == 2;
        const bool isBeforeChrist = skip(beforeChrist());
        static const QStringList afterChrist = QStringLiteral("AD A.D. AD. CE C.E.").split(u' ');
        hasEra_ = isBeforeChrist || skip(afterChrist);
        return isBeforeChrist ? -*year : *year;
    }

    /// A range that ends before Christ begins there, too ("BET 50 AND 40 BC").
    void keepFirstYear(GedcomDate& date) const
    {
        date.day = date.month = std::nullopt;
        const bool endsBeforeChrist = std::any_of(words_.begin() + at_, words_.end(),
                                                  [](const QString& word) { return beforeChrist().contains(word); });
        if (date.year && !hasEra_ && endsBeforeChrist)
            date.year = -*date.year;
    }

    /// A short number followed by something else is as likely no year at all ("1-3 July 1035", "10+").
    bool isConvincing(const GedcomDate& date, bool isRange) const
    {
        const bool isComplete = at_ == words_.size();
        if (!date.year)
            return isComplete && date.month.has_value();
        return isComplete || hasEra_ || isRange || *date.year >= shortestClearYear;
    }

    QStringList words_;
    qsizetype at_ = 0;
    bool lostSomething_ = false;
    bool hasEra_ = false;
};

/// The first number of three or four digits, else the first short one that is said to be a year.
GedcomDate findYear(const QString& value)
{
    static const QRegularExpression clearYear(QStringLiteral("(?<!\\d)(\\d{3,4})(?!\\d)( *B\\.?C)?"),
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression shortYear(QStringLiteral("(?<!\\d)(\\d{1,2}) *(?:(B\\.?C)|A\\.?D)\\b"),
                                              QRegularExpression::CaseInsensitiveOption);
    auto match = clearYear.match(value);
    if (!match.hasMatch())
        match = shortYear.match(value);
    const std::int32_t year = match.captured(1).toInt();
    if (year == 0)
        return {};
    const bool isBeforeChrist = !match.captured(2).isEmpty();
    return {.day = {}, .month = {}, .year = isBeforeChrist ? -year : year, .reading = DateReading::Part};
}

} // namespace

GedcomDate readGedcomDate(const QString& value)
{
    const GedcomDate date = DateParser(value).parse();
    const bool isPhrase = value.trimmed().startsWith(u'(');
    return date.reading == DateReading::Nothing && !isPhrase ? findYear(value) : date;
}

} // namespace lineara
