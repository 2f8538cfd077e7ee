#include "link_walks.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <set>

namespace lineara::store {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Sets = std::vector<std::vector<PersonIndex>>;

Lists<PersonIndex> listsOf(const Sets& sets)
{
    Lists<PersonIndex> result;
    for (const auto& set : sets)
        result.append(set);
    return result;
}

Sets randomSets(std::size_t persons, std::size_t links, std::mt19937& random)
{
    Sets result(persons);
    for (std::size_t i = 0; i < links; ++i)
        result[random() % persons].push_back(static_cast<PersonIndex>(random() % persons));
    return result;
}

bool areInverseByDefinition(const Sets& a, const Sets& b)
{
    const auto pairs = [](const Sets& sets, bool swapped) {
        std::multiset<std::pair<std::size_t, std::size_t>> result;
        for (std::size_t i = 0; i < sets.size(); ++i) {
            for (const std::size_t other : sets[i])
                result.insert(swapped ? std::pair(other, i) : std::pair(i, other));
        }
        return result;
    };
    const auto forward = pairs(a, false);
    const bool repeats = std::adjacent_find(forward.begin(), forward.end()) != forward.end();
    return !repeats && forward == pairs(b, true);
}

/// Whether some person can be reached from itself, by trying everybody.
bool hasCycleByDefinition(const Sets& children)
{
    for (std::size_t start = 0; start < children.size(); ++start) {
        std::set<std::size_t> seen;
        std::vector<std::size_t> open(children[start].begin(), children[start].end());
        while (!open.empty()) {
            const auto person = open.back();
            open.pop_back();
            if (person == start)
                return true;
            if (seen.insert(person).second)
                open.insert(open.end(), children[person].begin(), children[person].end());
        }
    }
    return false;
}

FamilyLinks randomLinks(std::size_t persons, std::mt19937& random)
{
    return {listsOf(randomSets(persons, random() % 8, random)), listsOf(randomSets(persons, random() % 8, random)),
            listsOf(randomSets(persons, random() % 5, random))};
}

RawFamily personsOnly(std::size_t count)
{
    RawFamily family;
    for (std::size_t i = 0; i < count; ++i)
        family.persons.push_back({101 + i, {}, 0, 0});
    return family;
}

} // namespace

TEST(LinkWalks, InverseIsToldAsByDefinition)
{
    std::mt19937 random(7);
    int inverse = 0;
    for (int round = 0; round < 20'000; ++round) {
        const auto a = randomSets(3, random() % 4, random);
        const auto b = randomSets(3, random() % 4, random);
        const bool expected = areInverseByDefinition(a, b);
        inverse += expected ? 1 : 0;
        ASSERT_EQ(areInverse(listsOf(a), listsOf(b)), expected);
    }
    EXPECT_GT(inverse, 100);
}

TEST(LinkWalks, CyclesAreFoundAsByDefinition)
{
    std::mt19937 random(8);
    int cyclic = 0;
    for (int round = 0; round < 5'000; ++round) {
        const auto sets = randomSets(8, random() % 12, random);
        const auto children = listsOf(sets);
        const bool expected = hasCycleByDefinition(sets);
        cyclic += expected ? 1 : 0;
        ASSERT_EQ(isFreeOfCycles(children, transposed(children)), !expected);
        ASSERT_EQ(closingLinks(children).empty(), !expected);
    }
    EXPECT_GT(cyclic, 500);
    EXPECT_LT(cyclic, 4'500);
}

TEST(LinkWalks, ClosingLinkIsTheLastOfItsCycle)
{
    EXPECT_THAT(closingLinks(listsOf({{1}, {2}, {0}})), ElementsAre(std::pair(2U, 0U)));
    EXPECT_THAT(closingLinks(listsOf({{1, 2}, {2}, {}})), IsEmpty());
}

TEST(LinkWalks, LongLineIsWalkedWithoutRecursion)
{
    constexpr PersonIndex count = 300'000;
    Lists<PersonIndex> children;
    for (PersonIndex i = 0; i < count; ++i) {
        children.add((i + 1) % count);
        children.close();
    }
    EXPECT_THAT(closingLinks(children), ElementsAre(std::pair(count - 1, 0U)));
    EXPECT_FALSE(isFreeOfCycles(children, transposed(children)));
}

TEST(LinkRepair, WhateverWasWrongIsSoundAfterwards)
{
    std::mt19937 random(9);
    const auto family = personsOnly(5);
    for (int round = 0; round < 20'000; ++round) {
        const auto links = randomLinks(5, random);
        QStringList repairs;
        const auto result = mended(links, family, repairs);
        ASSERT_TRUE(areSound(result));
        ASSERT_EQ(repairs.isEmpty(), areSound(links));
    }
}

TEST(LinkRepair, SoundLinksStayAsTheyAre)
{
    const FamilyLinks links{listsOf({{}, {}, {1, 0}}), listsOf({{2}, {2}, {}}), listsOf({{1}, {0}, {}})};
    ASSERT_TRUE(areSound(links));
    QStringList repairs;
    const auto result = mended(links, personsOnly(3), repairs);
    EXPECT_THAT(repairs, IsEmpty());
    EXPECT_THAT(result.parents[2], ElementsAre(1, 0));
}

} // namespace lineara::store
