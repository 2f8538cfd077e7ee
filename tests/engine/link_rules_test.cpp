#include "engine/descent.h"
#include "engine/link_rules.h"

#include "hang_guard.h"
#include "literal_rules.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace lineara::engine {

namespace {

using testing::Each;
using testing::ElementsAre;
using enum LinkVerdict;

/// A family that links one wish after the other.
class StepByStep
{
public:
    explicit StepByStep(std::uint32_t persons) : children_(persons), parents_(persons) {}

    LinkVerdict link(const OffspringWish& wish)
    {
        if (wish.parent == wish.child)
            return SamePerson;
        if (parents_[wish.child].size() >= 2)
            return TwoParents;
        if (isDescendedFromLiterally(children_, wish.parent, wish.child))
            return Cycle;
        if (std::ranges::find(children_[wish.parent], wish.child) == children_[wish.parent].end()) {
            children_[wish.parent].push_back(wish.child);
            parents_[wish.child].push_back(wish.parent);
        }
        return Allowed;
    }

    bool descends(PersonIndex a, PersonIndex b) const
    {
        return isDescendedFrom(
            a, b, [this](PersonIndex person) { return std::span(children_[person]); },
            [this](PersonIndex person) { return std::span(parents_[person]); });
    }

    bool descendsLiterally(PersonIndex a, PersonIndex b) const { return isDescendedFromLiterally(children_, a, b); }

private:
    std::vector<std::vector<PersonIndex>> children_;
    std::vector<std::vector<PersonIndex>> parents_;
};

std::vector<OffspringWish> randomWishes(std::uint32_t persons, std::mt19937& random)
{
    std::uniform_int_distribution<PersonIndex> anyone(0, persons - 1);
    std::vector<OffspringWish> wishes(anyone(random) * 2 + 1);
    for (OffspringWish& wish : wishes) {
        wish = {anyone(random), anyone(random)};
        // Mostly from older to younger, so that whole families come about before a cycle closes.
        if (wish.parent > wish.child && random() % 4 != 0)
            std::swap(wish.parent, wish.child);
    }
    return wishes;
}

std::vector<OffspringWish> lineOf(std::uint32_t persons)
{
    std::vector<OffspringWish> wishes;
    for (PersonIndex parent = 0; parent + 1 < persons; ++parent)
        wishes.push_back({parent, parent + 1});
    return wishes;
}

} // namespace

TEST(JudgeOffspring, RefusesTheSamePersonATwoParentChildAndACycle)
{
    const std::vector<OffspringWish> wishes{{0, 0}, {0, 1}, {1, 2}, {2, 0}, {3, 1}, {4, 1}, {0, 1}, {1, 0}};
    EXPECT_THAT(judgeOffspring(5, wishes),
                ElementsAre(SamePerson, Allowed, Allowed, Cycle, Allowed, TwoParents, TwoParents, Cycle));
}

TEST(JudgeOffspring, CountsARepeatedLinkOnce)
{
    EXPECT_THAT(judgeOffspring(3, std::vector<OffspringWish>{{0, 1}, {0, 1}, {2, 1}, {0, 1}}),
                ElementsAre(Allowed, Allowed, Allowed, TwoParents));
    EXPECT_THAT(judgeOffspring(0, {}), testing::IsEmpty());
}

TEST(JudgeOffspring, JudgesAsOneLinkAfterTheOther)
{
#ifdef LINEARA_SANITIZED
    constexpr int families = 2'000;
#else
    constexpr int families = 30'000;
#endif
    std::mt19937 random(5);
    int cycles = 0;
    for (int round = 0; round < families; ++round) {
        const auto persons = static_cast<std::uint32_t>(1 + random() % 14);
        const auto wishes = randomWishes(persons, random);
        StepByStep family(persons);
        std::vector<LinkVerdict> expected;
        for (const OffspringWish& wish : wishes)
            expected.push_back(family.link(wish));
        ASSERT_EQ(judgeOffspring(persons, wishes), expected) << "family " << round;
        cycles += static_cast<int>(std::ranges::count(expected, Cycle));
        for (PersonIndex a = 0; a < persons; ++a) {
            const auto b = static_cast<PersonIndex>(random() % persons);
            ASSERT_EQ(family.descends(a, b), family.descendsLiterally(a, b)) << "family " << round;
        }
    }
    EXPECT_GT(cycles, families / 10);
}

TEST(JudgeOffspring, IsQuickOnALineInAnyOrder)
{
    constexpr std::uint32_t persons = 200'000;
    std::vector<OffspringWish> wishes = lineOf(persons);
    const HangGuard guard;
    EXPECT_THAT(judgeOffspring(persons, wishes), Each(Allowed));
    std::ranges::reverse(wishes);
    EXPECT_THAT(judgeOffspring(persons, wishes), Each(Allowed));
    std::ranges::shuffle(wishes, std::mt19937(1));
    EXPECT_THAT(judgeOffspring(persons, wishes), Each(Allowed));
}

TEST(JudgeOffspring, IsQuickOnALineThatIsClosedToACycle)
{
    constexpr std::uint32_t persons = 200'000;
    std::vector<OffspringWish> wishes = lineOf(persons);
    for (PersonIndex parent = 0; parent + 2 < persons; ++parent)
        wishes.push_back({parent, parent + 2});
    wishes.insert(wishes.begin(), {persons - 1, 0});
    const HangGuard guard;
    const auto first = judgeOffspring(persons, wishes);
    EXPECT_EQ(std::ranges::count(first, Cycle), 2) << "the links into the last person";
    std::ranges::rotate(wishes, wishes.begin() + 1);
    const auto last = judgeOffspring(persons, wishes);
    EXPECT_EQ(std::ranges::count(last, Cycle), 1);
    EXPECT_EQ(last.back(), Cycle);
}

TEST(IsDescendedFrom, IsQuickOnALatticeOfSixtyGenerations)
{
    std::vector<OffspringWish> wishes;
    for (PersonIndex row = 0; row + 1 < 60; ++row) {
        for (const PersonIndex parent : {2 * row, 2 * row + 1}) {
            wishes.push_back({parent, 2 * row + 2});
            wishes.push_back({parent, 2 * row + 3});
        }
    }
    std::vector<std::vector<PersonIndex>> children(121);
    std::vector<std::vector<PersonIndex>> parents(121);
    for (const auto& [parent, child] : wishes) {
        children[parent].push_back(child);
        parents[child].push_back(parent);
    }
    children[120].push_back(0);
    const auto childrenOf = [&](PersonIndex person) -> const auto&
    {
        return children[person];
    };
    const auto parentsOf = [&](PersonIndex person) -> const auto&
    {
        return parents[person];
    };
    const HangGuard guard;
    EXPECT_TRUE(isDescendedFrom<PersonIndex>(118, 0, childrenOf, parentsOf));
    EXPECT_FALSE(isDescendedFrom<PersonIndex>(0, 118, childrenOf, parentsOf));
    EXPECT_FALSE(isDescendedFrom<PersonIndex>(118, 120, childrenOf, parentsOf)) << "nobody is found, all are met";
    EXPECT_THAT(judgeOffspring(120, wishes), Each(Allowed));
}

} // namespace lineara::engine
