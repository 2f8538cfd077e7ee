#include "family_sketch.h"

#include "layout/tidy.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;
using testing::ElementsAre;

/// So many that not all branches can be tried even twice.
#ifdef LINEARA_SANITIZED
constexpr std::uint32_t personsInRow = 300;
#else
constexpr std::uint32_t personsInRow = 3'000;
#endif

TEST(Tidy, EmptyFamilyHasNoPlaces)
{
    EXPECT_TRUE(order(Sketch()).empty());
}

TEST(Tidy, OnePersonStandsAtTheMargin)
{
    Sketch sketch;
    sketch.person(engine::noGeneration);
    EXPECT_THAT(order(sketch), ElementsAre(margin));
}

TEST(Tidy, TwoPartnersStandSideBySide)
{
    Sketch sketch;
    const PersonIndex one = sketch.person(1);
    sketch.marry(one, sketch.person(1));
    EXPECT_THAT(order(sketch), ElementsAre(margin, margin + pitch));
}

TEST(Tidy, ThreeGenerationsOfFivePersonsStandCentredBelowEachOther)
{
    Sketch sketch;
    const PersonIndex grandfather = sketch.person(3);
    const PersonIndex grandmother = sketch.person(3);
    const PersonIndex mother = sketch.person(2);
    const PersonIndex father = sketch.person(2);
    const PersonIndex child = sketch.person(1);
    sketch.marry(grandfather, grandmother);
    sketch.bear(mother, {grandfather, grandmother});
    sketch.marry(mother, father);
    sketch.bear(child, {mother, father});
    // The mother stands below the middle of her parents, the child below the middle of its own.
    EXPECT_THAT(order(sketch),
                ElementsAre(margin, margin + pitch, margin + pitch / 2, margin + pitch / 2 + pitch, margin + pitch));
}

TEST(Tidy, ParentsStandAboveTheMiddleOfTheirChildren)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    sketch.marry(father, mother);
    for (int child = 0; child < 5; ++child)
        sketch.bear(sketch.person(1), {father, mother});
    const auto x = order(sketch);
    EXPECT_EQ((x[father] + x[mother]) / 2, x[4]);
    EXPECT_EQ(x[2], margin);
    EXPECT_EQ(x[6], margin + 4 * pitch);
}

TEST(Tidy, ChildrenOfOneParentKeepTheOrderOfTheirLinks)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(2);
    for (int child = 0; child < 3; ++child)
        sketch.bear(sketch.person(1), {parent});
    EXPECT_THAT(order(sketch), ElementsAre(margin + pitch, margin, margin + pitch, margin + 2 * pitch));
}

TEST(Tidy, PersonStandsBetweenTwoPartners)
{
    Sketch sketch;
    const PersonIndex first = sketch.person(1);
    const PersonIndex second = sketch.person(1);
    const PersonIndex person = sketch.person(1);
    sketch.marry(person, first);
    sketch.marry(person, second);
    const auto x = order(sketch);
    EXPECT_EQ(x[person], margin + pitch);
    EXPECT_EQ(std::abs(x[first] - x[second]), 2 * pitch);
}

TEST(Tidy, CoupleTurnsSoThatEachStandsOnTheSideOfItsOwnParents)
{
    Sketch sketch;
    const PersonIndex leftParent = sketch.person(2);
    const PersonIndex rightParent = sketch.person(2);
    const PersonIndex rightChild = sketch.person(1);
    const PersonIndex leftChild = sketch.person(1);
    sketch.bear(leftChild, {leftParent});
    sketch.bear(rightChild, {rightParent});
    sketch.marry(rightChild, leftChild);
    const auto x = order(sketch);
    EXPECT_EQ(x[leftParent] < x[rightParent], x[leftChild] < x[rightChild]);
}

TEST(Tidy, CousinsWhoMarryStandBetweenTheirFamilies)
{
    Sketch sketch;
    const PersonIndex root = sketch.person(3);
    const PersonIndex aunt = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    sketch.bear(aunt, {root});
    sketch.bear(mother, {root});
    const PersonIndex cousin = sketch.person(1);
    sketch.bear(cousin, {aunt});
    sketch.bear(sketch.person(1), {aunt});
    const PersonIndex child = sketch.person(1);
    sketch.bear(sketch.person(1), {mother});
    sketch.bear(child, {mother});
    sketch.marry(cousin, child);
    const auto x = order(sketch);
    EXPECT_EQ(std::abs(x[cousin] - x[child]), pitch);
    EXPECT_GT(std::max(x[4], x[6]), std::max(x[cousin], x[child]));
    EXPECT_LT(std::min(x[4], x[6]), std::min(x[cousin], x[child]));
}

TEST(Tidy, UnlinkedPersonsStandInTheirRowFromLeftToRight)
{
    Sketch sketch;
    const PersonIndex one = sketch.person(2);
    sketch.marry(one, sketch.person(2));
    sketch.person(engine::noGeneration);
    sketch.person(engine::noGeneration);
    EXPECT_THAT(order(sketch), ElementsAre(margin, margin + pitch, margin, margin + pitch));
}

TEST(Tidy, UnlinkedPersonsStandBehindRelativesWhoWereKeptInTheLowestRow)
{
    Sketch sketch;
    const PersonIndex one = sketch.person(-3);
    sketch.person(engine::noGeneration);
    sketch.marry(one, sketch.person(0));
    EXPECT_THAT(order(sketch), ElementsAre(margin, margin + 2 * pitch, margin + pitch));
}

TEST(Tidy, LargestFamilyStandsFirst)
{
    Sketch sketch;
    const PersonIndex one = sketch.person(1);
    sketch.marry(one, sketch.person(1));
    const PersonIndex parent = sketch.person(2);
    for (int child = 0; child < 3; ++child)
        sketch.bear(sketch.person(1), {parent});
    const auto x = order(sketch);
    EXPECT_EQ(x[3], margin);
    EXPECT_EQ(x[one], margin + 3 * pitch + pitch / 2);
}

TEST(Tidy, OneSidedAndSelfLinksDoNoHarm)
{
    FamilyGraph family;
    family.members = 3;
    family.numbers = {101, 102, 103};
    for (engine::Adjacency* links : {&family.parents, &family.children, &family.partners})
        for (PersonIndex person = 0; person < 3; ++person) {
            if (links == &family.partners)
                links->add(person == 0 ? 1 : person);
            links->endPerson();
        }
    EXPECT_THAT(tidied(family, {1, 1, 1}, 0), testing::UnorderedElementsAre(0, pitch, 2 * pitch + 0));
}

/// What is told until it is said not to go on, at the call with the given number.
std::vector<double> toldUntil(const TidyTask& task, std::size_t stop)
{
    std::vector<double> told;
    const auto places = tidy(task, [&](double share) {
        told.push_back(share);
        return told.size() <= stop;
    });
    EXPECT_EQ(places.has_value(), told.size() <= stop);
    return told;
}

/// Steps may be wide where there is nothing to do, but what there is to do has many.
void expectManyStepsAndStops(const TidyTask& task)
{
    constexpr double widestStep = 0.4;
    constexpr std::size_t fewestSteps = 50;
    constexpr std::size_t stops = 8;
    const std::vector<double> told = toldUntil(task, std::numeric_limits<std::size_t>::max());
    ASSERT_GT(told.size(), fewestSteps);
    EXPECT_LE(told.front(), widestStep);
    EXPECT_LE(told.back(), 1);
    for (std::size_t at = 1; at < told.size(); ++at) {
        ASSERT_LE(told[at - 1], told[at]);
        ASSERT_LE(told[at] - told[at - 1], widestStep);
    }
    for (std::size_t stop = 0; stop < stops; ++stop) {
        const std::size_t at = told.size() * stop / stops;
        EXPECT_EQ(toldUntil(task, at).size(), at + 1);
    }
}

TEST(Tidy, TellsHowFarALargeFamilyIsAndStopsAtAnyMoment)
{
    Random random(33);
    const Sketch family = largeFamily(random, 5, personsInRow);
    const FamilyGraph graph = family.graph();
    expectManyStepsAndStops({graph, family.generations()});
}

TEST(Tidy, TellsHowFarItIsWhereAnOrderIsThereAlready)
{
    Random random(34);
    const Sketch family = largeFamily(random, 8, 60);
    const FamilyGraph graph = family.graph();
    std::vector<std::int32_t> present = order(family);
    std::swap(present[10], present[40]);
    TidyTask task{graph, family.generations()};
    task.present = present;
    expectManyStepsAndStops(task);
}

TEST(Tidy, StopsWhenNotToGoOn)
{
    Random random(33);
    const Sketch family = largeFamily(random, 10, 40);
    const FamilyGraph graph = family.graph();
    EXPECT_FALSE(tidy({graph, family.generations()}, [](double) { return false; }).has_value());
}

TEST(Tidy, StopsWhenNotToGoOnAmongStrangers)
{
    Sketch strangers;
    for (int person = 0; person < 10; ++person)
        strangers.person(0);
    const FamilyGraph graph = strangers.graph();
    EXPECT_FALSE(tidy({graph, strangers.generations()}, [](double) { return false; }).has_value());
}

} // namespace
} // namespace lineara::layout
