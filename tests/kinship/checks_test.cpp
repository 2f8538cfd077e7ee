#include "engine/family_maker.h"
#include "kinship/checks.h"

#include <gmock/gmock.h>

namespace lineara::kinship {
namespace {

using engine::FamilyMaker;
using testing::ElementsAre;
using testing::IsEmpty;

/// A family whose persons' dates are given one by one.
class ChecksTest : public testing::Test
{
protected:
    std::vector<FoundPerson> found(const FamilyMaker& family)
    {
        graph_ = family.graph();
        dates_.resize(graph_.persons());
        if (!sexes_.empty())
            sexes_.resize(graph_.persons());
        return findings({graph_, dates_, sexes_}).value();
    }

    void born(PersonIndex person, const PartialDate& date) { of(person).birth = date; }
    void died(PersonIndex person, const PartialDate& date) { of(person).death = date; }
    void isFemale(PersonIndex person)
    {
        sexes_.resize(std::max<std::size_t>(sexes_.size(), person + 1));
        sexes_[person] = Sex::Female;
    }

private:
    LifeDates& of(PersonIndex person)
    {
        dates_.resize(std::max<std::size_t>(dates_.size(), person + 1));
        return dates_[person];
    }

    engine::FamilyGraph graph_;
    std::vector<LifeDates> dates_;
    std::vector<Sex> sexes_;
};

TEST_F(ChecksTest, ABirthAfterTheDeathIsFoundWhereItIsCertain)
{
    born(0, {1901});
    died(0, {1900, 12, 31});
    born(1, {1900});
    died(1, {1900, 1, 1});
    EXPECT_THAT(found(FamilyMaker(2)), ElementsAre(FoundPerson{0, Finding::BornAfterDeath}));
}

TEST_F(ChecksTest, NobodyLivesLongerThanAHundredAndTwentyYears)
{
    born(0, {1800, 5, 5});
    died(0, {1920, 5, 6});
    born(1, {1800, 5, 5});
    died(1, {1920, 5, 5});
    born(2, {1800});
    died(2, {1920});
    born(3, {-5});
    died(3, {117});
    born(4, {1700}); // nobody knows when
    EXPECT_THAT(found(FamilyMaker(5)), ElementsAre(FoundPerson{0, Finding::TooOld}, FoundPerson{3, Finding::TooOld}));
}

TEST_F(ChecksTest, ThereIsNoYearZero)
{
    born(0, {-4, 6, 1});
    died(0, {117, 6, 1}); // at 120
    born(1, {-4, 6, 1});
    died(1, {117, 6, 2});
    EXPECT_THAT(found(FamilyMaker(2)), ElementsAre(FoundPerson{1, Finding::TooOld}));
}

TEST_F(ChecksTest, ParentsAreOlderThanTheirChildrenByAtLeastTwelveYears)
{
    born(0, {1900});
    born(1, {1911, 12, 31}); // may be twelve years younger by a day
    born(2, {1911});
    born(3, {1890});
    const auto family = FamilyMaker(5).offspring({{0, 1}, {4, 2}, {0, 3}});
    born(4, {1900, 1, 1});
    EXPECT_THAT(found(family),
                ElementsAre(FoundPerson{1, Finding::ParentTooYoung, 0}, FoundPerson{2, Finding::ParentTooYoung, 4},
                            FoundPerson{3, Finding::BornBeforeParent, 0}));
}

TEST_F(ChecksTest, TwelveYearsToTheDayAreEnough)
{
    born(0, {1900, 3, 3});
    born(1, {1912, 3, 3});
    born(2, {1912, 3, 2});
    EXPECT_THAT(found(FamilyMaker(3).offspring({{0, 1}, {0, 2}})),
                ElementsAre(FoundPerson{2, Finding::ParentTooYoung, 0}));
}

TEST_F(ChecksTest, ParentsAreNotOlderThanEighty)
{
    born(0, {1800, 3, 3});
    born(1, {1880, 3, 3});
    born(2, {1880, 3, 4});
    born(3, {1880});
    EXPECT_THAT(found(FamilyMaker(4).offspring({{0, 1}, {0, 2}, {0, 3}})),
                ElementsAre(FoundPerson{2, Finding::ParentTooOld, 0}));
}

TEST_F(ChecksTest, AFatherMayHaveDiedTenMonthsBefore)
{
    died(0, {1900, 3, 3});
    born(1, {1901, 1, 3});
    born(2, {1901, 1, 4});
    EXPECT_THAT(found(FamilyMaker(3).offspring({{0, 1}, {0, 2}})),
                ElementsAre(FoundPerson{2, Finding::BornAfterParentsDeath, 0}));
}

TEST_F(ChecksTest, OfABirthAfterADeathOnlyWhatIsCertainIsTold)
{
    died(0, {1900});
    born(1, {1901});
    born(2, {1901, 10});
    born(3, {1901, 11});
    born(4, {1902});
    FamilyMaker family(5);
    for (PersonIndex child = 1; child < 5; ++child)
        family.offspring({{0, child}});
    EXPECT_THAT(found(family), ElementsAre(FoundPerson{3, Finding::BornAfterParentsDeath, 0},
                                           FoundPerson{4, Finding::BornAfterParentsDeath, 0}));
}

TEST_F(ChecksTest, AMotherIsAliveAtTheBirth)
{
    died(0, {1900, 3, 3});
    isFemale(0);
    born(1, {1900, 3, 3});
    born(2, {1900, 3, 4});
    EXPECT_THAT(found(FamilyMaker(3).offspring({{0, 1}, {0, 2}})),
                ElementsAre(FoundPerson{2, Finding::BornAfterParentsDeath, 0}));
}

TEST_F(ChecksTest, FullSiblingsAreTwinsOrNineMonthsApart)
{
    born(2, {1900, 1, 10});
    born(3, {1900, 1, 12}); // a twin
    born(4, {1900, 10, 9});
    born(5, {1901, 7, 9});
    FamilyMaker family(6);
    for (PersonIndex child = 2; child < 6; ++child)
        family.offspring({{0, child}, {1, child}});
    EXPECT_THAT(found(family), ElementsAre(FoundPerson{4, Finding::BornTooSoonAfterSibling, 3}));
}

TEST_F(ChecksTest, MonthsAreEnoughToCompareSiblingsAndYearsAreNot)
{
    born(2, {1900, 1});
    born(3, {1900, 4});
    born(4, {1902});
    born(5, {1902});
    FamilyMaker family(6);
    for (PersonIndex child = 2; child < 6; ++child)
        family.offspring({{0, child}, {1, child}});
    EXPECT_THAT(found(family), ElementsAre(FoundPerson{3, Finding::BornTooSoonAfterSibling, 2}));
}

TEST_F(ChecksTest, HalfSiblingsAreComparedOnlyIfTheyShareTheMother)
{
    born(3, {1900, 1, 10});
    born(4, {1900, 4, 10});
    const auto family = FamilyMaker(5).offspring({{0, 3}, {1, 3}, {0, 4}, {2, 4}});
    EXPECT_THAT(found(family), IsEmpty());
    isFemale(0);
    EXPECT_THAT(found(family), ElementsAre(FoundPerson{4, Finding::BornTooSoonAfterSibling, 3}));
}

TEST_F(ChecksTest, StopsWhenAsked)
{
    std::stop_source stop;
    stop.request_stop();
    const auto graph = FamilyMaker(3).graph();
    const std::vector<LifeDates> dates(3);
    EXPECT_FALSE(findings({graph, dates}, stop.get_token()));
}

} // namespace
} // namespace lineara::kinship
