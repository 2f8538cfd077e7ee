#include "personlist/search_words.h"

#include "model/person.h"

#include <QLatin1String>

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

namespace lineara {

namespace {

/// Letters that people type as another one or as two, and that are no letter with an accent as far as Unicode goes.
constexpr std::pair<char16_t, const char*> typedOtherwise[] = {
    {u'ß', "ss"}, {u'æ', "ae"}, {u'œ', "oe"}, {u'ø', "o"}, {u'ł', "l"},
    {u'đ', "d"},  {u'ð', "d"},  {u'þ', "th"}, {u'ı', "i"},
};

QString foldLetter(QChar letter)
{
    QString letters = QString(letter).normalized(QString::NormalizationForm_KD);
    letters.removeIf([](QChar part) { return part.isMark(); });
    letters = letters.toCaseFolded();
    for (const auto& [special, typed] : typedOtherwise)
        letters.replace(special, QLatin1String(typed));
    return letters;
}

/// A search folds all texts of a family at every key, and most of their letters are of the plainest kind.
void appendFolded(std::u16string& folded, QStringView text)
{
    static std::unordered_map<char16_t, std::u16string> known;
    for (const QChar letter : text) {
        const char16_t code = letter.unicode();
        if (code < 128) {
            folded += code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + (u'a' - u'A')) : code;
            continue;
        }
        const auto [found, isNew] = known.try_emplace(code);
        if (isNew)
            found->second = foldLetter(letter).toStdU16String();
        folded += found->second;
    }
}

/// Begins with a character that no word holds, so that nothing is found across two parts of a person.
void appendYear(std::u16string& text, std::optional<std::int32_t> year)
{
    text += u'\n';
    if (year)
        text += QString::number(*year).toStdU16String();
}

} // namespace

QString folded(const QString& text)
{
    std::u16string letters;
    appendFolded(letters, text);
    return QString::fromStdU16String(letters);
}

SearchWords::SearchWords(const QString& typed) : words_(folded(typed.simplified()).split(u' ', Qt::SkipEmptyParts)) {}

bool SearchWords::find(const Person& person) const
{
    if (empty())
        return true;
    text_.clear();
    if (person.name())
        appendFolded(text_, *person.name());
    appendYear(text_, person.birthYear());
    appendYear(text_, person.deathYear());
    text_ += u'\n';
    if (person.additional())
        appendFolded(text_, *person.additional());
    return std::ranges::all_of(words_, [this](const QString& word) { return QStringView(text_).contains(word); });
}

} // namespace lineara
