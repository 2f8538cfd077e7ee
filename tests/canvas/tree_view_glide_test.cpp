// How nodes get from one row to another.

#include "canvas/tree_view.h"
#include "elements/notifications.h"
#include "platform/notification_center.h"
#include "rows_at_rest.h"
#include "view_driver.h"

#include <gtest/gtest.h>

#include <random>

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

TEST_F(Glide, EndsInTheRowToTheLastBitWhereverItBegan)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> anywhere(-3000, 0);
    for (int round = 0; round < 200; ++round) {
        parent.leafView()->setYConstant(anywhere(random));
        family.view->refreshHierarchy();
        family.view->settle();
        ASSERT_TRUE(isAtRest());
    }
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

TEST_F(Glide, LeavesAPassDueWhenItsOnlyPersonIsRemoved)
{
    Person& crowd = family.add(200, 1);
    family.view->addViewForPerson(crowd);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    family.view->removeViewForPerson(parent);
    family.view->settle();
    EXPECT_EQ(family.view->generations(), family.pool.generations());
    EXPECT_TRUE(lineara::isAtRest(family.pool));
}

TEST_F(Glide, SpacesTheRowsOnlyWhenItEnds)
{
    parent.setX(*child.x() - 5);
    parent.setGeneration(1);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    QCoreApplication::processEvents();
    EXPECT_EQ(parent.x(), *child.x() - 5);
    family.view->settle();
    EXPECT_TRUE(lineara::isAtRest(family.pool));
}

TEST_F(Glide, ForReducedMotionEverythingIsDoneAfterOneRefresh)
{
    Person& crowd = family.add(*parent.x() + 5, 3);
    family.view->addViewForPerson(crowd);
    family.pool.arrangeGenerations();
    family.view->setReducedMotion(true);
    family.view->refreshHierarchy();
    EXPECT_TRUE(isAtRest());
    EXPECT_TRUE(lineara::isAtRest(family.pool));
    EXPECT_EQ(family.view->generations(), family.pool.generations());
}

TEST_F(Glide, DoesNotKeepADropFromBeingSpaced)
{
    family.view->refreshHierarchy();
    ASSERT_TRUE(QTest::qWaitFor([&] { return family.yConstant(parent) < rowConstant(2); }));
    Person& crowd = family.add(*child.x() + 5, 1);
    family.view->addViewForPerson(crowd);
    family.pool.arrangeGenerations();
    NotificationCenter::defaultCenter().post(PersonDragEndedNotification{&family.pool, crowd.recordId()});
    QCoreApplication::processEvents();
    EXPECT_TRUE(lineara::isAtRest(family.pool));
    EXPECT_FALSE(isAtRest());
    family.view->settle();
    EXPECT_TRUE(isAtRest());
}

TEST_F(Glide, TakesWhoLosesTheLastLinkToTheRowItWasBoundFor)
{
    family.view->refreshHierarchy();
    ASSERT_TRUE(QTest::qWaitFor([&] { return family.yConstant(parent) < rowConstant(2); }));
    parent.setGeneration(std::nullopt);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    family.view->settle();
    EXPECT_TRUE(isAtRest());
}

TEST_F(Glide, IsHastyInItsPicturesAndEndsWithAStillOne)
{
    family.view->zoomTo(1, {0, 0});
    const QImage before = pictureOf(*family.view);
    family.view->refreshHierarchy();
    const QImage hasty = pictureOf(*family.view);
    EXPECT_NE(hasty, before);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isAtRest(); }));
    QCoreApplication::processEvents();
    const QImage still = pictureOf(*family.view);
    family.view->settle();
    EXPECT_EQ(pictureOf(*family.view), still);
    parent.setGeneration(2);
    family.pool.arrangeGenerations();
    family.view->setReducedMotion(true);
    family.view->refreshHierarchy();
    EXPECT_NE(pictureOf(*family.view), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictureOf(*family.view) == before; }));
}

TEST_F(Glide, EndsInViewWhereAPersonIsRevealedMeanwhile)
{
    parent.setGeneration(9);
    family.pool.arrangeGenerations();
    family.view->refreshHierarchy();
    family.view->reveal(parent);
    family.view->settle();
    EXPECT_TRUE(isInView(*family.view, parent));
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
