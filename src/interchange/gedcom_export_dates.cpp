#include "gedcom_export_dates.h"

#include "date_words.h"
#include "gedcom_export_text.h"

#include <QStringBuilder>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>

namespace lineara {
namespace {

struct Renaming
{
    const char* five;
    const char* seven;
};

constexpr std::array<Renaming, 6> calendarNames = {{{"@#DGREGORIAN@", "GREGORIAN"},
                                                    {"@#DJULIAN@", "JULIAN"},
                                                    {"@#DHEBREW@", "HEBREW"},
                                                    {"@#DFRENCH R@", "FRENCH_R"},
                                                    {"@#DROMAN@", "_ROMAN"},
                                                    {"@#DUNKNOWN@", "_UNKNOWN"}}};

/// Words that 7.0 does not know, and what it says for them; nothing for one that goes without saying.
constexpr std::array<Renaming, 18> otherWords = {{{"ABT.", "ABT"},
                                                  {"ABOUT", "ABT"},
                                                  {"CA", "ABT"},
                                                  {"CA.", "ABT"},
                                                  {"C.", "ABT"},
                                                  {"CIRCA", "ABT"},
                                                  {"EST.", "EST"},
                                                  {"CAL.", "CAL"},
                                                  {"BEF.", "BEF"},
                                                  {"BEFORE", "BEF"},
                                                  {"AFT.", "AFT"},
                                                  {"AFTER", "AFT"},
                                                  {"BET.", "BET"},
                                                  {"BETWEEN", "BET"},
                                                  {"AD", ""},
                                                  {"A.D.", ""},
                                                  {"AD.", ""},
                                                  {"CE", ""}}};

std::string plain(const QString& word)
{
    return word.toStdString();
}

std::optional<Calendar> calendarOf(const QString& word)
{
    if (word == u"GREGORIAN")
        return Calendar::Gregorian;
    if (word == u"JULIAN")
        return Calendar::Julian;
    if (word == u"HEBREW")
        return Calendar::Hebrew;
    return word == u"FRENCH_R" ? std::optional(Calendar::FrenchRepublican) : std::nullopt;
}

bool isSolar(Calendar calendar)
{
    return calendar == Calendar::Gregorian || calendar == Calendar::Julian;
}

/// Puts the words of 7.0 in the place of others.
class WordsInSeven
{
public:
    explicit WordsInSeven(const QString& text)
    {
        QString capitals = text.toUpper();
        if (capitals.contains(u'@')) {
            for (const Renaming& name : calendarNames)
                capitals.replace(QLatin1String(name.five), u' ' % QLatin1String(name.seven) % u' ');
        }
        for (const QString& word : capitals.simplified().split(u' '))
            add(word);
        replaceDoubleYear();
    }

    const QStringList& words() const { return words_; }
    /// Whether they say less than the text, or say it with other words than a reader of 5.5.1 would.
    bool isLess() const { return isLess_; }

private:
    void add(const QString& word)
    {
        static const QStringList separators = {QStringLiteral("AND"), QStringLiteral("TO")};
        if (separators.contains(word))
            replaceDoubleYear();
        if (const auto calendar = calendarOf(word))
            calendar_ = *calendar;
        const auto other =
            std::ranges::find_if(otherWords, [&](const auto& one) { return word == QLatin1String(one.five); });
        if (other != otherWords.end()) {
            isLess_ = true;
            if (*other->seven != '\0')
                words_ << QString::fromLatin1(other->seven);
            return;
        }
        words_ << (isBeforeChrist(plain(word)) ? QStringLiteral("BCE") : withShortMonth(word));
        if (word.contains(u'/'))
            doubleYear_ = words_.size() - 1;
        if (separators.contains(word)) {
            begin_ = words_.size();
            calendar_ = Calendar::Gregorian;
        }
    }

    QString withShortMonth(const QString& word)
    {
        constexpr qsizetype length = 3;
        const bool isLong = word.size() > length && isSolar(calendar_) && monthNumber(calendar_, plain(word));
        isLess_ = isLess_ || isLong;
        return isLong ? word.first(length) : word;
    }

    /// Of the two years of a date the one that counts when it is read.
    void replaceDoubleYear()
    {
        if (!doubleYear_)
            return;
        QStringList date;
        for (const QString& word : words_.mid(begin_)) {
            if (!calendarOf(word))
                date << word;
        }
        if (const auto year = readDate(date.join(u' ')).year; year && isSolar(calendar_)) {
            words_[*doubleYear_] = QString::number(std::abs(std::int64_t{*year}));
            isLess_ = true;
        }
        doubleYear_.reset();
    }

    QStringList words_;
    Calendar calendar_ = Calendar::Gregorian; ///< of the date that is being read
    qsizetype begin_ = 0;                     ///< of that date
    std::optional<qsizetype> doubleYear_;
    bool isLess_ = false;
};

/// Reads words by the grammar of 7.0.
class GrammarOfSeven
{
public:
    explicit GrammarOfSeven(QStringList words) : words_(std::move(words)) {}

    bool isFollowed()
    {
        bool isRight = false;
        if (skip(u"BET")) {
            isRight = skipDate() && skip(u"AND") && skipDate();
        } else if (skip(u"FROM")) {
            isRight = skipDate() && (!skip(u"TO") || skipDate());
        } else {
            static const QStringList qualifiers = QStringLiteral("TO AFT BEF ABT CAL EST").split(u' ');
            at_ += !words_.isEmpty() && qualifiers.contains(words_.front()) ? 1 : 0;
            isRight = skipDate();
        }
        return isRight && at_ == words_.size();
    }

    /// A date without a word that makes a range or less than a date of it.
    bool isPlainDate() { return skipDate() && at_ == words_.size(); }

private:
    bool skip(QStringView word)
    {
        const bool isThere = at_ < words_.size() && words_[at_] == word;
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    bool skipNumber()
    {
        const bool isThere = at_ < words_.size() && dateNumber(plain(words_[at_]));
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    bool isMonth(qsizetype at, Calendar calendar) const
    {
        return at < words_.size() && monthNumber(calendar, plain(words_[at]));
    }

    bool skipDate()
    {
        const auto named = at_ < words_.size() ? calendarOf(words_[at_]) : std::nullopt;
        at_ += named ? 1 : 0;
        const Calendar calendar = named.value_or(Calendar::Gregorian);
        if (isMonth(at_ + 1, calendar) && !skipNumber())
            return false;
        at_ += isMonth(at_, calendar) ? 1 : 0;
        const bool hasYear = skipNumber();
        if (isSolar(calendar))
            skip(u"BCE");
        return hasYear;
    }

    QStringList words_;
    qsizetype at_ = 0;
};

/// The text by the grammar of 7.0, if it can be said so.
std::optional<PhrasedValue> byGrammar(const QString& text)
{
    const WordsInSeven seven(text);
    if (!GrammarOfSeven(seven.words()).isFollowed())
        return std::nullopt;
    QString value = seven.words().join(u' ');
    if (!sameDay(readDate(value), readDate(text)))
        return std::nullopt;
    return PhrasedValue{value, seven.isLess() ? text : QString()};
}

bool isPlainDate(const QString& value)
{
    return GrammarOfSeven(value.split(u' ')).isPlainDate();
}

bool isBlank(QStringView text)
{
    return text.trimmed().isEmpty();
}

/// "(said to be old)" and "INT 1850 (said to be)": the words in brackets are the phrase.
std::optional<PhrasedValue> withWordsInBrackets(const QString& text)
{
    const auto open = text.indexOf(u'(');
    const bool isInterpreted = text.startsWith(QStringView(u"INT "), Qt::CaseInsensitive);
    if (open < 0 || !text.endsWith(u')') || (open > 0 && !isInterpreted))
        return std::nullopt;
    const QString phrase = text.sliced(open + 1, text.size() - open - 2);
    if (isBlank(phrase))
        return std::nullopt;
    if (!isInterpreted)
        return PhrasedValue{{}, phrase};
    constexpr qsizetype wordLength = 4;
    const auto date = byGrammar(text.first(open).sliced(wordLength).trimmed());
    const bool isSame =
        date && date->phrase.isEmpty() && isPlainDate(date->value) && sameDay(readDate(date->value), readDate(text));
    return isSame ? std::optional(PhrasedValue{date->value, phrase}) : std::nullopt;
}

QString inFive(const QString& value)
{
    QStringList words = value.split(u' ');
    for (QString& word : words) {
        const auto calendar =
            std::ranges::find_if(calendarNames, [&](const auto& one) { return word == QLatin1String(one.seven); });
        if (calendar != calendarNames.end())
            word = QString::fromLatin1(calendar->five);
        else if (word == u"BCE")
            word = QStringLiteral("B.C.");
    }
    return words.join(u' ');
}

bool isEmptyBrackets(QStringView text)
{
    return text.startsWith(u'(') && text.endsWith(u')') && isBlank(text.sliced(1, text.size() - 2));
}

} // namespace

PhrasedValue dateInSeven(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {trimmed, {}};
    if (const auto bracketed = withWordsInBrackets(trimmed))
        return *bracketed;
    if (const auto date = byGrammar(trimmed))
        return *date;
    const QString value = gedcomDate(readDate(trimmed), GedcomDialect::Seven);
    return {value, value == trimmed.toUpper() ? QString() : trimmed};
}

PhrasedValue dateInFive(const PhrasedValue& line)
{
    const QString value = inFive(line.value);
    if (line.phrase.isEmpty())
        return {value, {}};
    const QString bracketed = u'(' % line.phrase % u')';
    const QString whole = value.isEmpty() ? bracketed : QString(QStringView(u"INT ") % value % u' ' % bracketed);
    // The phrase alone would say the same of what is no date at all, but 5.5.1 wants brackets around that.
    const bool isWholeValue = line.phrase.startsWith(QStringView(u"INT ")) ||
                              line.phrase.startsWith(QStringView(u"@#")) || isEmptyBrackets(line.phrase);
    const bool prefersBrackets = value.isEmpty() && !isWholeValue;
    for (const QString& text : prefersBrackets ? QStringList{whole} : QStringList{line.phrase, whole}) {
        if (dateInSeven(text) == line && sameDay(readDate(text), readDate(line.value)))
            return {text, {}};
    }
    return {value, line.phrase};
}

} // namespace lineara
