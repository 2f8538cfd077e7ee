#include "gedcom_export_ages.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace lineara {
namespace {

struct AgeWord
{
    const char* word;
    const char* inSeven;
};

/// Words of 5.5.1 that stand for an age of their own.
constexpr std::array<AgeWord, 3> ageWords = {{{"CHILD", "< 8y"}, {"INFANT", "< 1y"}, {"STILLBORN", "0y"}}};

/// What stands for years, months, weeks and days; the letter of 7.0 is the first.
constexpr std::array<const char*, 4> unitWords = {"y yr yrs yr. yrs. year years", "m mo mos mo. mos. mon month months",
                                                  "w wk wks wk. wks. week weeks", "d day days"};

/// Which of the units the word is.
std::optional<std::size_t> unitOf(const QString& word)
{
    const auto found = std::ranges::find_if(unitWords, [&](const char* words) {
        return QString::fromLatin1(words).split(u' ').contains(word, Qt::CaseInsensitive);
    });
    return found == unitWords.end() ? std::nullopt : std::optional<std::size_t>(found - unitWords.begin());
}

/// Numbers with their units, each unit at most once and the longest first, as 7.0 wants them.
std::optional<QString> durationInSeven(const QString& text)
{
    static const QRegularExpression part(QStringLiteral("\\G[ ,]*([0-9]+) *([A-Za-z]+\\.?)"));
    static const QRegularExpression number(QStringLiteral("^[0-9]+$"));
    if (number.match(text).hasMatch())
        return text + u'y';
    QStringList parts;
    std::optional<std::size_t> last;
    qsizetype end = 0;
    for (auto matches = part.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const auto unit = unitOf(match.captured(2));
        if (!unit || (last && *unit <= *last))
            return std::nullopt;
        parts << match.captured(1) + QChar::fromLatin1(*unitWords[*unit]);
        last = unit;
        end = match.capturedEnd();
    }
    return last && end == text.size() ? std::optional(parts.join(u' ')) : std::nullopt;
}

/// The age by the grammar of 7.0; no value for words that are none.
std::optional<QString> byGrammarOfSeven(const QString& text)
{
    const QString capitals = text.toUpper();
    const auto word =
        std::ranges::find_if(ageWords, [&](const AgeWord& one) { return capitals == QLatin1String(one.word); });
    if (word != ageWords.end())
        return QString::fromLatin1(word->inSeven);
    const bool isBound = text.startsWith(u'<') || text.startsWith(u'>');
    const auto duration = durationInSeven(isBound ? text.sliced(1).trimmed() : text);
    return duration && isBound ? std::optional(text.first(1) + u' ' + *duration) : duration;
}

} // namespace

PhrasedValue ageInSeven(const QString& text)
{
    const QString age = byGrammarOfSeven(text.trimmed()).value_or(QString());
    return {age, age == text ? QString() : text};
}

PhrasedValue ageInFive(const PhrasedValue& line)
{
    return !line.phrase.isEmpty() && ageInSeven(line.phrase) == line ? PhrasedValue{line.phrase, {}} : line;
}

} // namespace lineara
