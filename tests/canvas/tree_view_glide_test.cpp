// How nodes get from one row to another.

#include "canvas/tree_view.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <QTest>

namespace lineara {
namespace {

/// A parent and its child in view, the parent about to go up to row 3.
class Glide : public testing::Test
{
protected:
    Glide()
    {
        parent.addChild(child);
        family.processAndShow();
        parent.setGeneration(3);
        family.pool.arrangeGenerations();
    }

    bool isAtRest() const { return family.yConstant(parent) == rowConstant(3); }

    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
};

TEST_F(Glide, TakesNodesThroughThePlacesBetweenRows)
{
    family.view->refreshHierarchy();
    EXPECT_EQ(family.yConstant(parent), rowConstant(2));
    bool sawBetween = false;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const double now = family.yConstant(parent);
        sawBetween = sawBetween || (now < rowConstant(2) && now > rowConstant(3));
        return isAtRest();
    }));
    EXPECT_TRUE(sawBetween);
}

TEST_F(Glide, LinksFollowEveryStep)
{
    family.view->refreshHierarchy();
    const LinkLayer& link = *family.view->branchLayer().layers()[0];
    ASSERT_TRUE(QTest::qWaitFor([&] {
        EXPECT_EQ(link.startPoint(), parent.leafView()->frame().centre());
        return isAtRest();
    }));
}

TEST_F(Glide, EndsAtOnceWhenSettled)
{
    family.view->refreshHierarchy();
    family.view->settle();
    EXPECT_TRUE(isAtRest());
    EXPECT_EQ(family.view->branchLayer().layers()[0]->startPoint(), parent.leafView()->frame().centre());
}

TEST_F(Glide, IsLeftOutForReducedMotion)
{
    family.view->setReducedMotion(true);
    family.view->refreshHierarchy();
    EXPECT_TRUE(isAtRest());
}

TEST_F(Glide, IsLeftOutForNodesThatNobodySees)
{
    Person& far = family.add(50'000, 1);
    family.view->addViewForPerson(far);
    far.setGeneration(2);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    EXPECT_EQ(family.yConstant(far), rowConstant(2));
    EXPECT_FALSE(isAtRest());
}

TEST_F(Glide, TurnsToANewGoalFromWhereItIs)
{
    family.view->refreshHierarchy();
    ASSERT_TRUE(QTest::qWaitFor([&] { return family.yConstant(parent) < rowConstant(2); }));
    const double turning = family.yConstant(parent);
    parent.setGeneration(2);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    EXPECT_EQ(family.yConstant(parent), turning);
    family.view->settle();
    EXPECT_EQ(family.yConstant(parent), rowConstant(2));
}

TEST_F(Glide, SurvivesTheRemovalOfAGlidingPerson)
{
    family.view->refreshHierarchy();
    family.context.remove(parent);
    family.context.journal().clear();
    family.nursery.forgetRemoved();
    family.view->settle();
    EXPECT_EQ(family.view->personLayer().nodes().size(), 1u);
}

TEST_F(Glide, AsksForAPassWhenItEnds)
{
    family.view->refreshHierarchy();
    EXPECT_NE(family.view->generations(), family.pool.generations());
    ASSERT_TRUE(QTest::qWaitFor([&] { return family.view->generations() == family.pool.generations(); }));
    EXPECT_TRUE(isAtRest());
}

} // namespace
} // namespace lineara
