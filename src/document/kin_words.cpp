#include "kin_words.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <array>

namespace lineara {

namespace {

struct KinWords
{
    Q_DECLARE_TR_FUNCTIONS(KinWords)
};

using kinship::BloodLine;
using kinship::InLaw;
using kinship::Marriage;
using kinship::PersonIndex;

/// Of a way that is longer nobody would read more.
constexpr qsizetype greatestChain = 6;

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

QString degreeOf(std::uint32_t number)
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
QString byGeneration(const std::array<QString, Count>& words, std::uint32_t generations)
{
    if (generations < Count)
        return words[generations - 1];
    // The words before it begin with "great" once less often.
    return words[Count - 1].arg(ordinal(generations - static_cast<std::uint32_t>(Count) + 3));
}

QString ancestorWords(std::uint32_t generations)
{
    return byGeneration(std::array{KinWords::tr("parent"), KinWords::tr("grandparent"),
                                   KinWords::tr("great-grandparent"), KinWords::tr("great-great-grandparent"),
                                   KinWords::tr("%1 great-grandparent")},
                        generations);
}

QString descendantWords(std::uint32_t generations)
{
    return byGeneration(std::array{KinWords::tr("child"), KinWords::tr("grandchild"), KinWords::tr("great-grandchild"),
                                   KinWords::tr("great-great-grandchild"), KinWords::tr("%1 great-grandchild")},
                        generations);
}

/// One generation is the parent's.
QString auntWords(std::uint32_t generations)
{
    return byGeneration(std::array{KinWords::tr("aunt or uncle"), KinWords::tr("great-aunt or great-uncle"),
                                   KinWords::tr("great-great-aunt or great-great-uncle"),
                                   KinWords::tr("%1 great-aunt or great-uncle")},
                        generations);
}

/// One generation is the child's.
QString nieceWords(std::uint32_t generations)
{
    return byGeneration(std::array{KinWords::tr("niece or nephew"), KinWords::tr("great-niece or great-nephew"),
                                   KinWords::tr("great-great-niece or great-great-nephew"),
                                   KinWords::tr("%1 great-niece or great-nephew")},
                        generations);
}

/// A cousin whose generation is `removed` above or below one's own.
QString removedCousinPattern(std::uint32_t removed, bool isOlder)
{
    switch (removed) {
    case 1:
        return isOlder ? KinWords::tr("%1 cousin once removed", "of an older generation")
                       : KinWords::tr("%1 cousin once removed", "of a younger generation");
    case 2:
        return isOlder ? KinWords::tr("%1 cousin twice removed", "of an older generation")
                       : KinWords::tr("%1 cousin twice removed", "of a younger generation");
    case 3:
        return isOlder ? KinWords::tr("%1 cousin three times removed", "of an older generation")
                       : KinWords::tr("%1 cousin three times removed", "of a younger generation");
    default:
        return (isOlder ? KinWords::tr("%1 cousin %2 times removed", "of an older generation")
                        : KinWords::tr("%1 cousin %2 times removed", "of a younger generation"))
            .arg(QStringLiteral("%1"), QString::number(removed));
    }
}

QString cousinWords(std::uint32_t up, std::uint32_t down)
{
    const std::uint32_t degree = std::min(up, down) - 1;
    if (up == down)
        return KinWords::tr("%1 cousin").arg(degreeOf(degree));
    // A first cousin's child is a first cousin still in English, and a niece or nephew of the second degree in others.
    const QString further = KinWords::tr("0", "what the degree of a cousin grows by where generations differ: 0, or 1");
    return removedCousinPattern(std::max(up, down) - std::min(up, down), up > down)
        .arg(degreeOf(degree + further.toUInt()));
}

QString halfOrFull(const BloodLine& line, const QString& words)
{
    return line.shared == kinship::Shared::OneParent ? KinWords::tr("half %1").arg(words) : words;
}

QString siblingWords(const BloodLine& line)
{
    return line.shared == kinship::Shared::OneParent ? KinWords::tr("half-sibling") : KinWords::tr("sibling");
}

/// "a" or "an" is told by what follows; in most languages both are translated alike.
QString partnerOf(const QString& relative)
{
    constexpr std::array beginnings{u"a", u"e", u"i", u"o", u"8", u"11", u"18"};
    const bool beginsWithVowel =
        std::ranges::any_of(beginnings, [&](const char16_t* vowel) { return relative.startsWith(QStringView(vowel)); });
    return (beginsWithVowel ? KinWords::tr("partner of an %1") : KinWords::tr("partner of a %1")).arg(relative);
}

bool isNearAuntOrNiece(const BloodLine& line)
{
    return std::min(line.up, line.down) == 1 && line.steps() > 2;
}

QString partnersRelativeWords(const BloodLine& line)
{
    if (line.up == 1 && line.down == 0)
        return KinWords::tr("parent-in-law");
    if (line.up == 0 && line.down == 1)
        return KinWords::tr("stepchild");
    if (line.up == 1 && line.down == 1)
        return KinWords::tr("sibling-in-law");
    return KinWords::tr("%1 of the partner").arg(bloodWords(line));
}

QString relativesPartnerWords(const BloodLine& line)
{
    if (line.up == 1 && line.down == 0)
        return KinWords::tr("stepparent");
    if (line.up == 0 && line.down == 1)
        return KinWords::tr("child-in-law");
    if (line.up == 1 && line.down == 1)
        return KinWords::tr("sibling-in-law");
    if (isNearAuntOrNiece(line))
        return KinWords::tr("%1 by marriage").arg(bloodWords(line));
    return partnerOf(bloodWords(line));
}

/// Cuts a path into partners and stretches that go up and then down, and names each.
class Chain
{
public:
    explicit Chain(const engine::FamilyGraph& family) : family_(family) {}

    QStringList wordsOf(const std::vector<PersonIndex>& path)
    {
        for (std::size_t at = 0; at + 1 < path.size(); ++at)
            step(path[at], path[at + 1]);
        endStretch();
        return words_;
    }

private:
    void step(PersonIndex from, PersonIndex to)
    {
        if (isAmong(family_.parents[from], to)) {
            if (stretch_.down > 0)
                endStretch();
            ++stretch_.up;
        } else if (isAmong(family_.children[from], to)) {
            ++stretch_.down;
        } else {
            endStretch();
            words_.push_back(KinWords::tr("partner"));
        }
    }

    void endStretch()
    {
        if (stretch_.steps() > 0)
            words_.push_back(bloodWords(stretch_));
        stretch_ = {};
    }

    static bool isAmong(std::span<const PersonIndex> persons, PersonIndex person)
    {
        return std::ranges::find(persons, person) != persons.end();
    }

    const engine::FamilyGraph& family_;
    BloodLine stretch_;
    QStringList words_;
};

} // namespace

QString bloodWords(const BloodLine& line)
{
    if (line.down == 0)
        return ancestorWords(line.up);
    if (line.up == 0)
        return descendantWords(line.down);
    if (line.up == 1 && line.down == 1)
        return siblingWords(line);
    if (line.down == 1)
        return halfOrFull(line, auntWords(line.up - 1));
    if (line.up == 1)
        return halfOrFull(line, nieceWords(line.down - 1));
    return halfOrFull(line, cousinWords(line.up, line.down));
}

QString inLawWords(const InLaw& inLaw)
{
    if (inLaw.marriage == Marriage::BetweenParents)
        return KinWords::tr("step-sibling");
    return inLaw.marriage == Marriage::OfFirst ? partnersRelativeWords(inLaw.line) : relativesPartnerWords(inLaw.line);
}

QString chainWords(const engine::FamilyGraph& family, const std::vector<PersonIndex>& path)
{
    QStringList words = Chain(family).wordsOf(path);
    if (words.size() > greatestChain) {
        words.resize(greatestChain);
        words.push_back(QStringLiteral("…"));
    }
    return words.join(QStringLiteral(" › "));
}

} // namespace lineara
