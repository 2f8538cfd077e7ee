// The gaps of rows while they are installed, and what is stored of a solution.

#include "canvas/row_spacing.h"
#include "shown_family.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

RowSpacing::Member stood(const Person& person)
{
    return {person.recordId(), true};
}

/// Three persons of one row on one spot, on a canvas that has spaced them long ago.
class Spacing : public testing::Test
{
protected:
    Spacing()
    {
        family.show();
        for (Person* const person : {&first, &second, &third})
            person->setX(100);
        width = first.leafView()->width();
    }

    SolvedPlace place(const Person& person, int steps) const
    {
        return {person.recordId(), 100.0 + steps * (width + 10)};
    }
    std::vector<SolvedPlace> layOut()
    {
        spacing.layOut(family.view->scene());
        return spacing.solved();
    }

    ShownFamily family;
    Person& first = family.add(0, 1);
    Person& second = family.add(200, 1);
    Person& third = family.add(400, 1);
    int width = 0;
    RowSpacing spacing;
};

TEST_F(Spacing, CountsAGapForEveryTwoOfARow)
{
    spacing.install(1, {stood(first), stood(second)});
    EXPECT_EQ(spacing.count(), 1u);
    spacing.install(2, std::vector<RowSpacing::Member>(4, stood(third)));
    EXPECT_EQ(spacing.count(), 1u + 6u);
    spacing.clear();
    EXPECT_EQ(spacing.count(), 0u);
}

TEST_F(Spacing, OfOnePersonNeedsALayoutButNoGap)
{
    spacing.install(1, {});
    EXPECT_FALSE(spacing.needsLayout());
    spacing.install(1, {stood(first)});
    EXPECT_TRUE(spacing.needsLayout());
    EXPECT_EQ(spacing.count(), 0u);
    EXPECT_THAT(layOut(), ElementsAre(place(first, 0)));
    EXPECT_FALSE(spacing.needsLayout());
}

TEST_F(Spacing, InstalledTwiceSolvesTheSame)
{
    spacing.install(1, {stood(first), stood(second), stood(third)});
    const auto once = layOut();
    spacing.install(1, {stood(first), stood(second), stood(third)});
    EXPECT_EQ(spacing.count(), 6u);
    EXPECT_EQ(layOut(), once);
    EXPECT_THAT(once, ElementsAre(place(first, -1), place(second, 0), place(third, 1)));
}

TEST_F(Spacing, HoldsTheNewestOrderOfARow)
{
    spacing.install(1, {stood(first), stood(second), stood(third)});
    spacing.install(1, {stood(third), stood(first), stood(second)});
    EXPECT_THAT(layOut(), ElementsAre(place(third, -1), place(first, 0), place(second, 1)));
}

TEST_F(Spacing, LeavesOutWhoHasLeftTheCanvasOrTheRow)
{
    Person& fourth = family.add(100, 1);
    family.view->addViewForPerson(fourth);
    spacing.install(1, {stood(first), stood(second), stood(third), stood(fourth)});
    family.view->removeViewForPerson(first);
    family.context.remove(second);
    third.setGeneration(2);
    EXPECT_THAT(layOut(), ElementsAre(place(fourth, 0)));
}

TEST_F(Spacing, LetsNewcomersGiveWay)
{
    spacing.install(1, {{first.recordId(), false}, stood(second)});
    EXPECT_THAT(layOut(), ElementsAre(place(first, -1), place(second, 0)));
    spacing.install(1, {stood(first), {second.recordId(), false}});
    EXPECT_THAT(layOut(), ElementsAre(place(first, 0), place(second, 1)));
}

TEST_F(Spacing, ForgetsWhatWasSolvedWhenCleared)
{
    spacing.install(1, {stood(first)});
    layOut();
    spacing.clear();
    EXPECT_THAT(spacing.solved(), IsEmpty());
}

TEST(WriteBack, TruncatesTowardsZero)
{
    ShownFamily family;
    Person& right = family.add(20, 1);
    Person& left = family.add(400, 1);
    family.show();
    writeBack(std::vector<SolvedPlace>{{right.recordId(), 37.9}, {left.recordId(), -12.5}}, family.context);
    EXPECT_EQ(right.x(), 37);
    EXPECT_EQ(left.x(), -12);
    family.view->settle();
    EXPECT_EQ(right.x(), 49);
    EXPECT_EQ(left.x(), 0);
}

TEST(WriteBack, LeavesNobodyBehindWhenEverybodyIsShiftedAfterwards)
{
    ShownFamily family;
    std::vector<SolvedPlace> solved;
    for (int person = 0; person < 50; ++person)
        solved.push_back({family.add(person * 160, 1).recordId(), person * 160 - (person == 0 ? 12.5 : 0.0)});
    TreeView& view = family.show();
    writeBack(solved, family.context);
    view.settle();
    for (std::size_t person = 0; person < solved.size(); ++person)
        EXPECT_EQ(family.pool.persons()[person]->x(), person == 0 ? 0 : static_cast<int>(person) * 160 + 12);
}

TEST(WriteBack, TouchesNobodyWhoStandsWhereToldOrHasNoNode)
{
    ShownFamily family;
    Person& person = family.add(20, 1);
    Person& gone = family.add(400, 1);
    const RecordId goneId = gone.recordId();
    family.show();
    family.context.remove(gone);
    ObjectContext other;
    Person& withoutNode = other.insertPerson({.x = 7});
    int changes = 0;
    const Subscription watch = family.context.observe([&](const Change&) { ++changes; });
    writeBack(std::vector<SolvedPlace>{{person.recordId(), 20}, {goneId, 50}}, family.context);
    writeBack(std::vector<SolvedPlace>{{withoutNode.recordId(), 50}}, other);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(withoutNode.x(), 7);
}

} // namespace
} // namespace lineara
