#include "kin_words.h"

#include "kin_terms.h"

#include <QStringList>

#include <algorithm>

namespace lineara {

namespace {

using kinship::BloodLine;
using kinship::InLaw;
using kinship::Marriage;
using kinship::PersonIndex;
using kinship::Sex;

/// Of a way that is longer nobody would read more.
constexpr qsizetype greatestChain = 6;

bool isHalf(const BloodLine& line)
{
    return line.shared == kinship::Shared::OneParent;
}

QString halfOrFull(const BloodLine& line, const QString& words)
{
    return isHalf(line) ? kinTerms::half(words) : words;
}

QString cousinWords(const BloodLine& line, Sex sex)
{
    const auto [nearer, further] = std::minmax(line.up, line.down);
    const std::uint32_t degree = nearer - 1;
    return nearer == further ? kinTerms::cousin(degree, sex)
                             : kinTerms::removedCousin(degree, further - nearer, line.up > line.down, sex);
}

bool isNearAuntOrNiece(const BloodLine& line)
{
    return std::min(line.up, line.down) == 1 && line.steps() > 2;
}

QString partnersRelativeWords(const BloodLine& line, Sex sex, Sex partner)
{
    if (line.up == 1 && line.down == 0)
        return kinTerms::parentInLaw(sex);
    if (line.up == 0 && line.down == 1)
        return kinTerms::stepchild(sex);
    if (line.up == 1 && line.down == 1)
        return kinTerms::siblingInLaw(sex);
    return kinTerms::ofPartner(bloodWords(line, sex), partner);
}

QString relativesPartnerWords(const BloodLine& line, Sex sex, Sex relative)
{
    if (line.up == 1 && line.down == 0)
        return kinTerms::stepparent(sex);
    if (line.up == 0 && line.down == 1)
        return kinTerms::childInLaw(sex);
    if (line.up == 1 && line.down == 1)
        return kinTerms::siblingInLaw(sex);
    if (isNearAuntOrNiece(line))
        return kinTerms::byMarriage(bloodWords(line, sex));
    return kinTerms::partnerOf(bloodWords(line, relative), sex);
}

/// Cuts a path into partners and stretches that go up and then down, and names each by whom it leads to.
class Chain
{
public:
    Chain(const engine::FamilyGraph& family, std::span<const Sex> sexes) : family_(family), sexes_(sexes) {}

    QStringList wordsOf(const std::vector<PersonIndex>& path)
    {
        for (std::size_t at = 0; at + 1 < path.size(); ++at)
            step(path[at], path[at + 1]);
        endStretch(path.back());
        return words_;
    }

private:
    void step(PersonIndex from, PersonIndex to)
    {
        if (isAmong(family_.parents[from], to)) {
            if (stretch_.down > 0)
                endStretch(from);
            ++stretch_.up;
        } else if (isAmong(family_.children[from], to)) {
            ++stretch_.down;
        } else {
            endStretch(from);
            words_.push_back(partnerWords(kinship::sexOf(sexes_, to)));
        }
    }

    void endStretch(PersonIndex at)
    {
        if (stretch_.steps() > 0)
            words_.push_back(bloodWords(stretch_, kinship::sexOf(sexes_, at)));
        stretch_ = {};
    }

    static bool isAmong(std::span<const PersonIndex> persons, PersonIndex person)
    {
        return std::ranges::find(persons, person) != persons.end();
    }

    const engine::FamilyGraph& family_;
    std::span<const Sex> sexes_;
    BloodLine stretch_;
    QStringList words_;
};

} // namespace

QString partnerWords(Sex second)
{
    return kinTerms::partner(second);
}

QString bloodWords(const BloodLine& line, Sex second)
{
    if (line.down == 0)
        return kinTerms::parent(line.up, second);
    if (line.up == 0)
        return kinTerms::child(line.down, second);
    if (line.up == 1 && line.down == 1)
        return kinTerms::sibling(isHalf(line) ? kinTerms::Half::Yes : kinTerms::Half::No, second);
    if (line.down == 1)
        return halfOrFull(line, kinTerms::aunt(line.up - 1, second));
    if (line.up == 1)
        return halfOrFull(line, kinTerms::niece(line.down - 1, second));
    return halfOrFull(line, cousinWords(line, second));
}

QString inLawWords(const InLaw& inLaw, Sex second, Sex between)
{
    switch (inLaw.marriage) {
    case Marriage::BetweenParents:
        return kinTerms::stepsibling(second);
    case Marriage::OfFirst:
        return partnersRelativeWords(inLaw.line, second, between);
    case Marriage::OfSecond:
        return relativesPartnerWords(inLaw.line, second, between);
    }
    return {};
}

QString chainWords(const engine::FamilyGraph& family, std::span<const Sex> sexes, const std::vector<PersonIndex>& path)
{
    QStringList words = Chain(family, sexes).wordsOf(path);
    if (words.size() > greatestChain) {
        words.resize(greatestChain);
        words.push_back(QStringLiteral("…"));
    }
    return words.join(QStringLiteral(" › "));
}

} // namespace lineara
