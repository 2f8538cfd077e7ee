#include "engine/family_maker.h"
#include "kinship/relatives.h"
#include "literal_kinship.h"

#include <gmock/gmock.h>

#include <random>

namespace lineara::kinship {
namespace {

using engine::FamilyMaker;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

TEST(RelativesTest, TellsTheNearestFirstAndNotThePerson)
{
    const auto family = FamilyMaker(5).offspring({{0, 2}, {1, 3}, {2, 4}, {3, 4}}).graph();
    EXPECT_THAT(ancestorsOf(family, 4), ElementsAre(2, 3, 0, 1));
    EXPECT_THAT(descendantsOf(family, 0), ElementsAre(2, 4));
    EXPECT_THAT(ancestorsOf(family, 0), IsEmpty());
}

TEST(RelativesTest, TellsPartnersAndOtherParentsBehindThePersons)
{
    const auto family = FamilyMaker(7).offspring({{0, 2}, {1, 2}, {2, 3}, {4, 3}}).partners({{0, 5}, {5, 6}}).graph();
    EXPECT_THAT(withPartners(family, std::vector<PersonIndex>{0, 2, 3}), ElementsAre(0, 2, 3, 5, 1, 4));
}

TEST(RelativesTest, TellsWhomTheRulesTellInRandomFamilies)
{
    std::mt19937_64 random{5};
    for (int round = 0; round < 500; ++round) {
        const auto family = engine::randomFamily({.greatestPersons = 25, .offspringPerPerson = 1.5}, random);
        const auto person = static_cast<PersonIndex>(random() % family.persons());
        EXPECT_THAT(ancestorsOf(family, person), UnorderedElementsAreArray(literal::ancestorsOf(family, person)));
        EXPECT_THAT(descendantsOf(family, person), UnorderedElementsAreArray(literal::descendantsOf(family, person)));
        EXPECT_THAT(withPartners(family, descendantsOf(family, person)),
                    UnorderedElementsAreArray(literal::withPartners(family, literal::descendantsOf(family, person))));
    }
}

} // namespace
} // namespace lineara::kinship
