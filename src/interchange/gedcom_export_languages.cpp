#include "gedcom_export_languages.h"

#include <QLatin1StringView>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace lineara {
namespace {

struct Language
{
    const char* name; ///< of 5.5.1, in its spelling
    const char* tag;
};

constexpr std::array languages = std::to_array<Language>({
    {"Afrikaans", "af"},  {"Albanian", "sq"},    {"Amharic", "am"},        {"Anglo-Saxon", "ang"},
    {"Arabic", "ar"},     {"Armenian", "hy"},    {"Assamese", "as"},       {"Belorusian", "be"},
    {"Bengali", "bn"},    {"Braj", "bra"},       {"Bulgarian", "bg"},      {"Burmese", "my"},
    {"Cantonese", "yue"}, {"Catalan", "ca"},     {"Catalan_Spn", "ca-ES"}, {"Church-Slavic", "cu"},
    {"Czech", "cs"},      {"Danish", "da"},      {"Dogri", "doi"},         {"Dutch", "nl"},
    {"English", "en"},    {"Esperanto", "eo"},   {"Estonian", "et"},       {"Faroese", "fo"},
    {"Finnish", "fi"},    {"French", "fr"},      {"Georgian", "ka"},       {"German", "de"},
    {"Greek", "el"},      {"Gujarati", "gu"},    {"Hawaiian", "haw"},      {"Hebrew", "he"},
    {"Hindi", "hi"},      {"Hungarian", "hu"},   {"Icelandic", "is"},      {"Indonesian", "id"},
    {"Italian", "it"},    {"Japanese", "ja"},    {"Kannada", "kn"},        {"Khmer", "km"},
    {"Konkani", "kok"},   {"Korean", "ko"},      {"Lahnda", "lah"},        {"Lao", "lo"},
    {"Latvian", "lv"},    {"Lithuanian", "lt"},  {"Macedonian", "mk"},     {"Maithili", "mai"},
    {"Malayalam", "ml"},  {"Mandrin", "cmn"},    {"Manipuri", "mni"},      {"Marathi", "mr"},
    {"Mewari", "mtr"},    {"Navaho", "nv"},      {"Nepali", "ne"},         {"Norwegian", "no"},
    {"Oriya", "or"},      {"Pahari", "him"},     {"Pali", "pi"},           {"Panjabi", "pa"},
    {"Persian", "fa"},    {"Polish", "pl"},      {"Portuguese", "pt"},     {"Prakrit", "pra"},
    {"Pusto", "ps"},      {"Rajasthani", "raj"}, {"Romanian", "ro"},       {"Russian", "ru"},
    {"Sanskrit", "sa"},   {"Serb", "sr"},        {"Serbo_Croa", "sh"},     {"Slovak", "sk"},
    {"Slovene", "sl"},    {"Spanish", "es"},     {"Swedish", "sv"},        {"Tagalog", "tl"},
    {"Tamil", "ta"},      {"Telugu", "te"},      {"Thai", "th"},           {"Tibetan", "bo"},
    {"Turkish", "tr"},    {"Ukrainian", "uk"},   {"Urdu", "ur"},           {"Vietnamese", "vi"},
    {"Wendic", "wen"},    {"Yiddish", "yi"},
});

/// A language, and then perhaps a script, a region and more. What is left of the grammar is seldom written.
bool isTag(const QString& word)
{
    static const QRegularExpression form(QStringLiteral("^[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*$"));
    return form.match(word).hasMatch();
}

} // namespace

std::optional<QString> languageInSeven(const QString& name)
{
    const QString word = name.trimmed();
    const auto known = std::ranges::find_if(languages, [&](const Language& language) {
        return word.compare(QLatin1StringView(language.name), Qt::CaseInsensitive) == 0;
    });
    if (known != languages.end())
        return QString::fromLatin1(known->tag);
    return isTag(word) ? std::optional(word) : std::nullopt;
}

QString languageInFive(const QString& tag)
{
    const auto known = std::ranges::find_if(
        languages, [&](const Language& language) { return tag == QLatin1StringView(language.tag); });
    return known == languages.end() ? tag : QString::fromLatin1(known->name);
}

} // namespace lineara
