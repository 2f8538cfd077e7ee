#include "personlist/search_words.h"

#include "model/person.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace lineara {

namespace {

/// Everything of a person that is searched, apart from each other so that no word is found across two of them.
QString searchedText(const Person& person)
{
    const auto year = [](std::optional<std::int32_t> number) { return number ? QString::number(*number) : QString(); };
    constexpr QChar apart = u'\n';
    return folded(person.name().value_or(QString()) + apart + year(person.birthYear()) + apart +
                  year(person.deathYear()) + apart + person.additional().value_or(QString()));
}

} // namespace

QString folded(const QString& text)
{
    QString letters = text.normalized(QString::NormalizationForm_KD);
    letters.removeIf([](QChar letter) { return letter.isMark(); });
    return letters.toCaseFolded();
}

SearchWords::SearchWords(const QString& typed)
    : words_(folded(typed).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
{}

bool SearchWords::find(const Person& person) const
{
    if (empty())
        return true;
    const QString text = searchedText(person);
    return std::ranges::all_of(words_, [&](const QString& word) { return text.contains(word); });
}

} // namespace lineara
