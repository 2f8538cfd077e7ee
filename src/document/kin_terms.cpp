#include "kin_terms.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace lineara::kinTerms {

namespace {

struct KinWords
{
    Q_DECLARE_TR_FUNCTIONS(KinWords)
};

struct Term
{
    const char* source = nullptr;
    const char* comment = nullptr;
};

/// A term for each sex.
struct Forms
{
    Term unknown;
    Term female;
    Term male;
};

constexpr std::array parents{
    Forms{{QT_TRANSLATE_NOOP("KinWords", "parent")},
          {QT_TRANSLATE_NOOP("KinWords", "mother")},
          {QT_TRANSLATE_NOOP("KinWords", "father")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "grandparent")},
          {QT_TRANSLATE_NOOP("KinWords", "grandmother")},
          {QT_TRANSLATE_NOOP("KinWords", "grandfather")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-grandparent")},
          {QT_TRANSLATE_NOOP("KinWords", "great-grandmother")},
          {QT_TRANSLATE_NOOP("KinWords", "great-grandfather")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-great-grandparent")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-grandmother")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-grandfather")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "%1 great-grandparent")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-grandmother")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-grandfather")}},
};
constexpr std::array children{
    Forms{{QT_TRANSLATE_NOOP("KinWords", "child")},
          {QT_TRANSLATE_NOOP("KinWords", "daughter")},
          {QT_TRANSLATE_NOOP("KinWords", "son")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "grandchild")},
          {QT_TRANSLATE_NOOP("KinWords", "granddaughter")},
          {QT_TRANSLATE_NOOP("KinWords", "grandson")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-grandchild")},
          {QT_TRANSLATE_NOOP("KinWords", "great-granddaughter")},
          {QT_TRANSLATE_NOOP("KinWords", "great-grandson")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-great-grandchild")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-granddaughter")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-grandson")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "%1 great-grandchild")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-granddaughter")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-grandson")}},
};
constexpr std::array aunts{
    Forms{{QT_TRANSLATE_NOOP("KinWords", "aunt or uncle")},
          {QT_TRANSLATE_NOOP("KinWords", "aunt")},
          {QT_TRANSLATE_NOOP("KinWords", "uncle")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-aunt or great-uncle")},
          {QT_TRANSLATE_NOOP("KinWords", "great-aunt")},
          {QT_TRANSLATE_NOOP("KinWords", "great-uncle")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-great-aunt or great-great-uncle")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-aunt")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-uncle")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "%1 great-aunt or great-uncle")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-aunt")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-uncle")}},
};
constexpr std::array nieces{
    Forms{{QT_TRANSLATE_NOOP("KinWords", "niece or nephew")},
          {QT_TRANSLATE_NOOP("KinWords", "niece")},
          {QT_TRANSLATE_NOOP("KinWords", "nephew")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-niece or great-nephew")},
          {QT_TRANSLATE_NOOP("KinWords", "great-niece")},
          {QT_TRANSLATE_NOOP("KinWords", "great-nephew")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "great-great-niece or great-great-nephew")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-niece")},
          {QT_TRANSLATE_NOOP("KinWords", "great-great-nephew")}},
    Forms{{QT_TRANSLATE_NOOP("KinWords", "%1 great-niece or great-nephew")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-niece")},
          {QT_TRANSLATE_NOOP("KinWords", "%1 great-nephew")}},
};
// English has one word for all cousins; most languages have two.
constexpr Forms cousins{{QT_TRANSLATE_NOOP("KinWords", "%1 cousin")},
                        QT_TRANSLATE_NOOP3("KinWords", "%1 cousin", "a woman"),
                        QT_TRANSLATE_NOOP3("KinWords", "%1 cousin", "a man")};
constexpr std::array olderCousins{
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "a woman of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "a man of an older generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "a woman of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "a man of an older generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "a woman of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "a man of an older generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "a woman of an older generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "a man of an older generation")},
};
constexpr std::array youngerCousins{
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "a woman of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin once removed", "a man of a younger generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "a woman of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin twice removed", "a man of a younger generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "a woman of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin three times removed", "a man of a younger generation")},
    Forms{QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "a woman of a younger generation"),
          QT_TRANSLATE_NOOP3("KinWords", "%1 cousin %2 times removed", "a man of a younger generation")},
};
constexpr Forms siblings{{QT_TRANSLATE_NOOP("KinWords", "sibling")},
                         {QT_TRANSLATE_NOOP("KinWords", "sister")},
                         {QT_TRANSLATE_NOOP("KinWords", "brother")}};
constexpr Forms halfSiblings{{QT_TRANSLATE_NOOP("KinWords", "half-sibling")},
                             {QT_TRANSLATE_NOOP("KinWords", "half-sister")},
                             {QT_TRANSLATE_NOOP("KinWords", "half-brother")}};
constexpr Forms partners{{QT_TRANSLATE_NOOP("KinWords", "partner")},
                         {QT_TRANSLATE_NOOP("KinWords", "wife")},
                         {QT_TRANSLATE_NOOP("KinWords", "husband")}};
constexpr Forms parentsInLaw{{QT_TRANSLATE_NOOP("KinWords", "parent-in-law")},
                             {QT_TRANSLATE_NOOP("KinWords", "mother-in-law")},
                             {QT_TRANSLATE_NOOP("KinWords", "father-in-law")}};
constexpr Forms childrenInLaw{{QT_TRANSLATE_NOOP("KinWords", "child-in-law")},
                              {QT_TRANSLATE_NOOP("KinWords", "daughter-in-law")},
                              {QT_TRANSLATE_NOOP("KinWords", "son-in-law")}};
constexpr Forms siblingsInLaw{{QT_TRANSLATE_NOOP("KinWords", "sibling-in-law")},
                              {QT_TRANSLATE_NOOP("KinWords", "sister-in-law")},
                              {QT_TRANSLATE_NOOP("KinWords", "brother-in-law")}};
constexpr Forms stepparents{{QT_TRANSLATE_NOOP("KinWords", "stepparent")},
                            {QT_TRANSLATE_NOOP("KinWords", "stepmother")},
                            {QT_TRANSLATE_NOOP("KinWords", "stepfather")}};
constexpr Forms stepchildren{{QT_TRANSLATE_NOOP("KinWords", "stepchild")},
                             {QT_TRANSLATE_NOOP("KinWords", "stepdaughter")},
                             {QT_TRANSLATE_NOOP("KinWords", "stepson")}};
constexpr Forms stepsiblings{{QT_TRANSLATE_NOOP("KinWords", "step-sibling")},
                             {QT_TRANSLATE_NOOP("KinWords", "stepsister")},
                             {QT_TRANSLATE_NOOP("KinWords", "stepbrother")}};
constexpr Forms ofPartners{{QT_TRANSLATE_NOOP("KinWords", "%1 of the partner")},
                           {QT_TRANSLATE_NOOP("KinWords", "%1 of the wife")},
                           {QT_TRANSLATE_NOOP("KinWords", "%1 of the husband")}};
constexpr Forms partnersOfA{{QT_TRANSLATE_NOOP("KinWords", "partner of a %1")},
                            {QT_TRANSLATE_NOOP("KinWords", "wife of a %1")},
                            {QT_TRANSLATE_NOOP("KinWords", "husband of a %1")}};
constexpr Forms partnersOfAn{{QT_TRANSLATE_NOOP("KinWords", "partner of an %1")},
                             {QT_TRANSLATE_NOOP("KinWords", "wife of an %1")},
                             {QT_TRANSLATE_NOOP("KinWords", "husband of an %1")}};

QString in(const Forms& forms, Sex sex)
{
    const Term& term = sex == Sex::Female ? forms.female : sex == Sex::Male ? forms.male : forms.unknown;
    return KinWords::tr(term.source, term.comment);
}

QString ordinal(std::uint32_t number)
{
    const bool isTeen = number % 100 / 10 == 1;
    if (number % 10 == 1 && !isTeen)
        return KinWords::tr("%1st", "an ordinal number").arg(number);
    if (number % 10 == 2 && !isTeen)
        return KinWords::tr("%1nd", "an ordinal number").arg(number);
    if (number % 10 == 3 && !isTeen)
        return KinWords::tr("%1rd", "an ordinal number").arg(number);
    return KinWords::tr("%1th", "an ordinal number").arg(number);
}

QString degreeWords(std::uint32_t number)
{
    switch (number) {
    case 1:
        return KinWords::tr("first", "degree of a cousin");
    case 2:
        return KinWords::tr("second", "degree of a cousin");
    case 3:
        return KinWords::tr("third", "degree of a cousin");
    default:
        return ordinal(number);
    }
}

/// Words for one, two, three ... generations; those beyond are counted in the last one.
template<std::size_t Count>
QString byGeneration(const std::array<Forms, Count>& words, std::uint32_t generations, Sex sex)
{
    if (generations < Count)
        return in(words[generations - 1], sex);
    // The words before it begin with "great" once less often.
    return in(words[Count - 1], sex).arg(ordinal(generations - static_cast<std::uint32_t>(Count) + 3));
}

/// "a" or "an" is told by what follows; in most languages both are translated alike.
bool beginsWithVowel(const QString& word)
{
    constexpr std::array beginnings{u"a", u"e", u"i", u"o", u"8", u"11", u"18"};
    return std::ranges::any_of(beginnings, [&](const char16_t* vowel) { return word.startsWith(QStringView(vowel)); });
}

} // namespace

QString parent(std::uint32_t generations, Sex sex)
{
    return byGeneration(parents, generations, sex);
}

QString child(std::uint32_t generations, Sex sex)
{
    return byGeneration(children, generations, sex);
}

QString sibling(Half isHalf, Sex sex)
{
    return in(isHalf == Half::Yes ? halfSiblings : siblings, sex);
}

QString aunt(std::uint32_t generations, Sex sex)
{
    return byGeneration(aunts, generations, sex);
}

QString niece(std::uint32_t generations, Sex sex)
{
    return byGeneration(nieces, generations, sex);
}

QString cousin(std::uint32_t degree, Sex sex)
{
    return in(cousins, sex).arg(degreeWords(degree));
}

QString removedCousin(std::uint32_t degree, std::uint32_t removed, bool isOlder, Sex sex)
{
    const auto& patterns = isOlder ? olderCousins : youngerCousins;
    // A first cousin's child is a first cousin still in English, and a niece or nephew of the second degree in others.
    const QString further = KinWords::tr("0", "what the degree of a cousin grows by where generations differ: 0, or 1");
    const QString degrees = degreeWords(degree + further.toUInt());
    const QString pattern = in(patterns[std::min<std::size_t>(removed, patterns.size()) - 1], sex);
    return removed < patterns.size() ? pattern.arg(degrees) : pattern.arg(degrees, QString::number(removed));
}

QString half(const QString& relative)
{
    return KinWords::tr("half %1").arg(relative);
}

QString partner(Sex sex)
{
    return in(partners, sex);
}

QString parentInLaw(Sex sex)
{
    return in(parentsInLaw, sex);
}

QString childInLaw(Sex sex)
{
    return in(childrenInLaw, sex);
}

QString siblingInLaw(Sex sex)
{
    return in(siblingsInLaw, sex);
}

QString stepparent(Sex sex)
{
    return in(stepparents, sex);
}

QString stepchild(Sex sex)
{
    return in(stepchildren, sex);
}

QString stepsibling(Sex sex)
{
    return in(stepsiblings, sex);
}

QString byMarriage(const QString& relative)
{
    return KinWords::tr("%1 by marriage").arg(relative);
}

QString ofPartner(const QString& relative, Sex partner)
{
    return in(ofPartners, partner).arg(relative);
}

QString partnerOf(const QString& relative, Sex partner)
{
    return in(beginsWithVowel(relative) ? partnersOfAn : partnersOfA, partner).arg(relative);
}

} // namespace lineara::kinTerms
