#include "engine/family_maker.h"
#include "literal_kinship.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>

namespace lineara::kinship {
namespace {

using engine::FamilyGraph;

#ifdef LINEARA_SANITIZED
constexpr int familiesCompared = 150;
#else
constexpr int familiesCompared = 3'000;
#endif

bool isAmong(std::span<const PersonIndex> persons, PersonIndex person)
{
    return std::ranges::find(persons, person) != persons.end();
}

/// Whether a stretch of a path goes up and then down along one blood line.
bool isLineOf(const FamilyGraph& family, std::span<const PersonIndex> path, const BloodLine& line)
{
    if (path.size() != line.steps() + 1 || !isAmong(line.ancestors, path[line.up]))
        return false;
    for (std::size_t at = 0; at + 1 < path.size(); ++at) {
        const auto& links = at < line.up ? family.parents : family.children;
        if (!isAmong(links[path[at]], path[at + 1]))
            return false;
    }
    return true;
}

bool isChain(const FamilyGraph& family, std::span<const PersonIndex> path)
{
    for (std::size_t at = 0; at + 1 < path.size(); ++at) {
        const PersonIndex to = path[at + 1];
        if (!isAmong(family.parents[path[at]], to) && !isAmong(family.children[path[at]], to) &&
            !isAmong(family.partners[path[at]], to))
            return false;
    }
    return true;
}

/// Both of an ancestor couple are parents of both children beneath it.
bool hasChildrenInCommon(const FamilyGraph& family, std::span<const PersonIndex> path, const BloodLine& line)
{
    return std::ranges::all_of(line.ancestors, [&](PersonIndex ancestor) {
        return isAmong(family.parents[path[line.up - 1]], ancestor) &&
               isAmong(family.parents[path[line.up + 1]], ancestor);
    });
}

class RandomPair
{
public:
    RandomPair(const FamilyGraph& family, PersonIndex first, PersonIndex second)
        : family_(family), first_(first), second_(second), told_(relationshipOf(family, first, second))
    {}

    Kinship kinship() const { return told_.kinship; }

    void check() const
    {
        checkBlood();
        checkPath();
        const bool arePartners = isAmong(family_.partners[first_], second_);
        if (first_ == second_) {
            EXPECT_EQ(told_.kinship, Kinship::Same);
        } else if (arePartners) {
            EXPECT_EQ(told_.kinship, Kinship::Partners);
            EXPECT_FALSE(told_.inLaw);
        } else {
            checkMarriage();
            checkKinship();
        }
    }

private:
    void checkBlood() const
    {
        if (first_ == second_)
            return;
        const auto lines = literal::bloodLines(family_, first_, second_);
        ASSERT_EQ(told_.blood.has_value(), !lines.empty());
        if (lines.empty())
            return;
        EXPECT_EQ(told_.otherLines, lines.size() - 1);
        expectLine(*told_.blood, lines.front());
        EXPECT_THAT(told_.blood->ancestors, testing::ElementsAreArray(lines.front().ancestors));
    }

    static void expectLine(const BloodLine& line, const literal::Line& expected)
    {
        EXPECT_EQ(line.up, expected.up);
        EXPECT_EQ(line.down, expected.down);
        if (!line.isDirect()) {
            EXPECT_EQ(line.shared, expected.shared);
        }
    }

    void checkPath() const
    {
        if (told_.kinship == Kinship::None) {
            EXPECT_TRUE(told_.path.empty());
            EXPECT_EQ(literal::linksBetween(family_, first_, second_), -1);
            return;
        }
        ASSERT_FALSE(told_.path.empty());
        EXPECT_EQ(told_.path.front(), first_);
        EXPECT_EQ(told_.path.back(), second_);
        EXPECT_TRUE(isChain(family_, told_.path));
        auto persons = told_.path;
        std::ranges::sort(persons);
        EXPECT_TRUE(std::ranges::adjacent_find(persons) == persons.end());
        if (told_.kinship == Kinship::Blood) {
            EXPECT_TRUE(isLineOf(family_, told_.path, *told_.blood));
            EXPECT_TRUE(told_.blood->isDirect() || hasChildrenInCommon(family_, told_.path, *told_.blood));
        }
        if (told_.kinship == Kinship::Connected) {
            EXPECT_EQ(static_cast<int>(told_.path.size()), literal::linksBetween(family_, first_, second_) + 1);
        }
    }

    void checkMarriage() const
    {
        const auto marriages = literal::marriages(family_, first_, second_);
        const auto stepsOf = [](const std::vector<literal::Line>& lines) {
            return lines.empty() ? unreachable : lines.front().up + lines.front().down + 1;
        };
        const std::uint32_t between = marriages.areStepSiblings ? 3 : unreachable;
        const std::uint32_t ofFirst = stepsOf(marriages.ofFirst);
        const std::uint32_t ofSecond = stepsOf(marriages.ofSecond);
        const std::uint32_t least = std::min({between, ofFirst, ofSecond});
        const bool isWanted = least != unreachable && !(told_.blood && told_.blood->steps() <= least);
        ASSERT_EQ(told_.inLaw.has_value(), isWanted);
        if (!isWanted)
            return;
        EXPECT_EQ(told_.inLaw->steps(), least);
        if (between == least) {
            EXPECT_EQ(told_.inLaw->marriage, Marriage::BetweenParents);
        } else if (ofFirst == least) {
            EXPECT_EQ(told_.inLaw->marriage, Marriage::OfFirst);
            expectLine(told_.inLaw->line, marriages.ofFirst.front());
        } else {
            EXPECT_EQ(told_.inLaw->marriage, Marriage::OfSecond);
            expectLine(told_.inLaw->line, marriages.ofSecond.front());
        }
    }

    void checkKinship() const
    {
        if (told_.blood) {
            EXPECT_EQ(told_.kinship, Kinship::Blood);
        } else if (told_.inLaw) {
            EXPECT_EQ(told_.kinship, Kinship::ByMarriage);
            checkPathOfMarriage(*told_.inLaw);
        } else {
            EXPECT_TRUE(told_.kinship == Kinship::Connected || told_.kinship == Kinship::None);
        }
    }

    void checkPathOfMarriage(const InLaw& inLaw) const
    {
        ASSERT_EQ(told_.path.size(), inLaw.steps() + 1);
        const std::span<const PersonIndex> path = told_.path;
        if (inLaw.marriage == Marriage::OfFirst) {
            EXPECT_TRUE(isAmong(family_.partners[first_], path[1]));
            EXPECT_TRUE(isLineOf(family_, path.subspan(1), inLaw.line));
        } else if (inLaw.marriage == Marriage::OfSecond) {
            EXPECT_TRUE(isAmong(family_.partners[second_], path[path.size() - 2]));
            EXPECT_TRUE(isLineOf(family_, path.first(path.size() - 1), inLaw.line));
        } else {
            EXPECT_TRUE(isAmong(family_.partners[path[1]], path[2]));
        }
    }

    static constexpr std::uint32_t unreachable = 1'000'000;

    const FamilyGraph& family_;
    PersonIndex first_;
    PersonIndex second_;
    Relation told_;
};

TEST(RelationshipRandomTest, SaysWhatTheRulesSayInFamiliesOfAnyShape)
{
    std::mt19937_64 random{20'26};
    std::map<Kinship, int> seen;
    for (int round = 0; round < familiesCompared; ++round) {
        engine::RandomFamily wish;
        wish.greatestPersons = 4 + static_cast<std::uint32_t>(random() % 24);
        wish.offspringPerPerson = 0.5 + 0.1 * static_cast<double>(random() % 14);
        wish.partnersPerPerson = 0.1 * static_cast<double>(random() % 7);
        const FamilyGraph family = engine::randomFamily(wish, random);
        for (int pair = 0; pair < 12; ++pair) {
            const auto first = static_cast<PersonIndex>(random() % family.persons());
            const auto second = static_cast<PersonIndex>(random() % family.persons());
            SCOPED_TRACE(testing::Message() << "family " << round << ", persons " << first << " and " << second);
            const RandomPair one(family, first, second);
            one.check();
            ++seen[one.kinship()];
            if (testing::Test::HasFailure())
                return;
        }
    }
    // None of the kinds is so rare that nothing was compared.
    for (const Kinship kinship :
         {Kinship::Same, Kinship::Partners, Kinship::Blood, Kinship::ByMarriage, Kinship::Connected, Kinship::None})
        EXPECT_GT(seen[kinship], familiesCompared / 20) << static_cast<int>(kinship);
}

TEST(RelationshipRandomTest, SaysWhatTheRulesSayWhereEverybodyIsRelatedManyTimes)
{
    std::mt19937_64 random{7};
    for (int round = 0; round < familiesCompared / 60; ++round) {
        const FamilyGraph family = engine::tangledFamily(60, 120, random).graph();
        for (int pair = 0; pair < 12; ++pair) {
            const auto first = static_cast<PersonIndex>(random() % family.persons());
            const auto second = static_cast<PersonIndex>(random() % family.persons());
            SCOPED_TRACE(testing::Message() << "family " << round << ", persons " << first << " and " << second);
            RandomPair(family, first, second).check();
            if (testing::Test::HasFailure())
                return;
        }
    }
}

} // namespace
} // namespace lineara::kinship
