#include "family_sketch.h"
#include "partner_rows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

namespace lineara::layout {
namespace {

using namespace sketch;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::vector<PersonIndex> groupOf(const Sketch& sketch, PersonIndex person)
{
    return PartnerRows(sketch.graph(), sketch.generations()).groupOf(person);
}

std::size_t partnersApart(const Sketch& sketch, const std::vector<PersonIndex>& group)
{
    std::size_t apart = 0;
    for (std::size_t one = 0; one < group.size(); ++one)
        for (std::size_t other = one + 2; other < group.size(); ++other)
            apart += static_cast<std::size_t>(std::ranges::count(sketch.partners[group[one]], group[other]));
    return apart;
}

TEST(PartnerRows, PersonWithoutPartnersIsAlone)
{
    Sketch sketch;
    sketch.person(1);
    EXPECT_THAT(groupOf(sketch, 0), ElementsAre(0));
}

TEST(PartnerRows, PartnerInAnotherRowIsNoMember)
{
    Sketch sketch;
    sketch.person(1);
    sketch.marry(0, sketch.person(2));
    EXPECT_THAT(groupOf(sketch, 0), ElementsAre(0));
}

TEST(PartnerRows, PartnersWithChildrenStandNearest)
{
    Sketch sketch;
    for (int person = 0; person < 5; ++person)
        sketch.person(2);
    for (PersonIndex partner = 1; partner < 5; ++partner)
        sketch.marry(0, partner);
    sketch.bear(sketch.person(1), {0, 3});
    sketch.bear(sketch.person(1), {0, 4});
    const auto group = groupOf(sketch, 2);
    const auto person = std::ranges::find(group, 0U);
    ASSERT_TRUE(person > group.begin() && person + 1 < group.end());
    EXPECT_THAT((std::vector{person[-1], person[1]}), UnorderedElementsAre(3, 4));
}

TEST(PartnerRows, ChainOfPartnersIsLinedUp)
{
    Sketch sketch;
    for (int person = 0; person < 6; ++person)
        sketch.person(1);
    for (const auto& [one, other] : {std::pair{4U, 0U}, {2U, 5U}, {0U, 2U}, {1U, 4U}, {3U, 1U}})
        sketch.marry(one, other);
    EXPECT_THAT(groupOf(sketch, 5), testing::AnyOf(ElementsAre(5, 2, 0, 4, 1, 3), ElementsAre(3, 1, 4, 0, 2, 5)));
}

TEST(PartnerRows, CircleOfPartnersPartsOnePairOnly)
{
    Sketch sketch;
    for (int person = 0; person < 5; ++person)
        sketch.person(1);
    for (PersonIndex person = 0; person < 5; ++person)
        sketch.marry(person, (person + 1) % 5);
    EXPECT_EQ(partnersApart(sketch, groupOf(sketch, 0)), 1U);
}

// The fewest possible, found by trying every order.
TEST(PartnerRows, AsFewPartnersAsPossibleAreApartWhereMarriagesFormATree)
{
#ifdef LINEARA_SANITIZED
    constexpr int rounds = 20;
#else
    constexpr int rounds = 200;
#endif
    Random random(7);
    for (int round = 0; round < rounds; ++round) {
        Sketch sketch;
        std::vector<PersonIndex> every;
        for (PersonIndex person = 0; person < 7; ++person) {
            every.push_back(sketch.person(1));
            if (person > 0)
                sketch.marry(pick(random, 0, person - 1), person);
        }
        std::size_t fewest = every.size();
        do
            fewest = std::min(fewest, partnersApart(sketch, every));
        while (fewest > 0 && std::ranges::next_permutation(every).found);
        const auto group = groupOf(sketch, pick(random, 0, 6));
        ASSERT_THAT(group, UnorderedElementsAre(0, 1, 2, 3, 4, 5, 6));
        ASSERT_EQ(partnersApart(sketch, group), fewest) << "round " << round;
    }
}

} // namespace
} // namespace lineara::layout
