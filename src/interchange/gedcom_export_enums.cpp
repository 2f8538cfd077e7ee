#include "gedcom_export_enums.h"

#include <QStringBuilder>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdint>

namespace lineara {
namespace {

enum class Manner : std::uint8_t
{
    Lower,    ///< small letters in 5.5.1
    Same,     ///< the same words in both
    Free,     ///< any words in 5.5.1
    Bracketed ///< in 5.5.1 some words, or others in brackets
};

struct Enumeration
{
    std::string_view parent; ///< empty for lines below any
    std::string_view tag;
    Manner manner = Manner::Lower;
    const char* words = nullptr; ///< of 7.0
    const char* other = nullptr; ///< its word for what is told by a phrase; empty if it has none
};

constexpr const char* roles = "CHIL CLERGY FATH FRIEND GODP HUSB MOTH MULTIPLE NGHBR OFFICIATOR PARENT SPOU WIFE WITN";
constexpr std::array<Enumeration, 10> enumerations = {
    {{"FAMC", "PEDI", Manner::Lower, "ADOPTED BIRTH FOSTER SEALING", "OTHER"},
     {"FAMC", "STAT", Manner::Lower, "CHALLENGED DISPROVEN PROVEN", "_OTHER"},
     {"FAMC", "ADOP", Manner::Same, "HUSB WIFE BOTH", "_OTHER"},
     {"NAME", "TYPE", Manner::Lower, "AKA BIRTH IMMIGRANT MAIDEN MARRIED PROFESSIONAL", "OTHER"},
     {"", "RESN", Manner::Lower, "CONFIDENTIAL LOCKED PRIVACY", ""},
     {"", "MEDI", Manner::Lower,
      "AUDIO BOOK CARD ELECTRONIC FICHE FILM MAGAZINE MANUSCRIPT MAP NEWSPAPER PHOTO TOMBSTONE VIDEO", "OTHER"},
     {"INDI", "SEX", Manner::Same, "M F X U", ""},
     {"EVEN", "ROLE", Manner::Bracketed, roles, "OTHER"},
     {"ASSO", "ROLE", Manner::Free, roles, "OTHER"},
     {"ASSO", "RELA", Manner::Free, roles, "OTHER"}}};

const Enumeration* enumerationOf(std::string_view parent, std::string_view tag)
{
    const auto found = std::ranges::find_if(enumerations, [&](const Enumeration& one) {
        return one.tag == tag && (one.parent.empty() || one.parent == parent);
    });
    return found == enumerations.end() ? nullptr : &*found;
}

bool isAmong(const char* words, const QString& word)
{
    return QString::fromLatin1(words).split(u' ').contains(word);
}

bool isKnown(const Enumeration& enumeration, const QString& word)
{
    return isAmong(enumeration.words, word) || (!word.isEmpty() && word == QLatin1String(enumeration.other));
}

QString withoutBrackets(const QString& text)
{
    const bool hasBrackets = text.size() > 2 && text.startsWith(u'(') && text.endsWith(u')');
    return hasBrackets ? text.sliced(1, text.size() - 2).trimmed() : text;
}

/// All of several words between commas, where there may be several; no value if one of them is unknown.
std::optional<QString> allInSeven(const Enumeration& enumeration, const QString& text)
{
    QStringList words = text.toUpper().split(u',');
    if (words.size() > 1 && enumeration.tag != "RESN")
        return std::nullopt;
    for (QString& word : words) {
        word = word.trimmed();
        if (!isKnown(enumeration, word))
            return std::nullopt;
    }
    return words.join(QStringLiteral(", "));
}

std::optional<PhrasedValue> inSeven(const Enumeration& enumeration, const QString& text)
{
    const QString trimmed = text.trimmed();
    const QString words = enumeration.manner == Manner::Bracketed ? withoutBrackets(trimmed) : trimmed;
    if (const auto all = allInSeven(enumeration, words))
        return PhrasedValue{*all, {}};
    if (words.isEmpty() || *enumeration.other == '\0')
        return std::nullopt;
    // What is said of a birth in other words must not become something else than a birth.
    const bool isBirth = enumeration.tag == "PEDI" && isAmong("NATURAL BIOLOGICAL", words.toUpper());
    return PhrasedValue{isBirth ? QStringLiteral("BIRTH") : QString::fromLatin1(enumeration.other), words};
}

QString wordInFive(const Enumeration& enumeration, const QString& value)
{
    switch (enumeration.manner) {
    case Manner::Lower:
        return allInSeven(enumeration, value) ? value.toLower() : value;
    case Manner::Bracketed:
        return value.isEmpty() || isAmong("CHIL HUSB WIFE MOTH FATH SPOU", value) ? value
                                                                                  : QString(u'(' % value % u')');
    case Manner::Same:
    case Manner::Free:
        break;
    }
    return value;
}

} // namespace

bool isEnumeration(std::string_view parent, std::string_view tag)
{
    return enumerationOf(parent, tag) != nullptr;
}

std::optional<PhrasedValue> enumerationInSeven(std::string_view parent, std::string_view tag, const QString& text)
{
    const Enumeration* const enumeration = enumerationOf(parent, tag);
    return enumeration ? inSeven(*enumeration, text) : std::nullopt;
}

PhrasedValue enumerationInFive(std::string_view parent, std::string_view tag, const PhrasedValue& line)
{
    const Enumeration* const enumeration = enumerationOf(parent, tag);
    if (!enumeration)
        return line;
    const QString words = enumeration->manner == Manner::Bracketed ? QString(u'(' % line.phrase % u')') : line.phrase;
    if (!line.phrase.isEmpty() && inSeven(*enumeration, words) == line)
        return {words, {}};
    return {wordInFive(*enumeration, line.value), line.phrase};
}

} // namespace lineara
