// How many persons are given other places at once, and how they get there.

#include "canvas/tree_view.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <QTest>

#include <array>
#include <optional>

namespace lineara {
namespace {

/// A couple in view, which is about to change sides, and somebody far to the right.
class MovedPersons : public testing::Test
{
protected:
    MovedPersons()
    {
        left.addPartner(right);
        right.addPartner(far);
        family.processAndShow();
    }

    void move()
    {
        const std::array<Person*, 2> persons{&left, &right};
        const std::array<std::optional<std::int32_t>, 2> places{700, 253};
        family.view->movePersons(persons, places);
    }

    double place(const Person& person) const { return family.pixelOf(person).x(); }

    ShownFamily family;
    Person& left = family.add(253);
    Person& right = family.add(453);
    Person& far = family.add(40'000);
};

TEST_F(MovedPersons, GlideFromWhereTheyWereInTheView)
{
    const double leftBefore = place(left);
    const double rightBefore = place(right);
    move();
    EXPECT_EQ(left.x(), 700);
    EXPECT_EQ(right.x(), 253);
    EXPECT_NEAR(place(left), leftBefore, 1e-6);
    EXPECT_NEAR(place(right), rightBefore, 1e-6);
    ASSERT_TRUE(QTest::qWaitFor([this] { return family.xConstant(left) == 700 && family.xConstant(right) == 253; }));
}

TEST_F(MovedPersons, StandWhereTheyBelongOnceAllIsSettled)
{
    move();
    family.view->settle();
    EXPECT_EQ(family.xConstant(left), 700);
    EXPECT_EQ(family.xConstant(right), 253);
    EXPECT_EQ(left.x(), 700);
}

TEST_F(MovedPersons, JumpForReducedMotion)
{
    family.view->setReducedMotion(true);
    move();
    EXPECT_EQ(family.xConstant(left), 700);
}

TEST_F(MovedPersons, OutOfViewAreThereAtOnce)
{
    const std::array<Person*, 1> persons{&far};
    const std::array<std::optional<std::int32_t>, 1> places{50'000};
    family.view->movePersons(persons, places);
    EXPECT_EQ(family.xConstant(far), 50'000);
}

TEST_F(MovedPersons, ArePlacedByARowThatIsSpacedOnTheWayAsIfTheyHadArrived)
{
    move();
    // A longer name asks for a pass in the middle of the glide.
    right.setName(QStringLiteral("Anna-Katharina of the long name"));
    QCoreApplication::processEvents();
    family.view->settle();
    EXPECT_EQ(left.x(), 700);
    EXPECT_EQ(right.x(), 253);
    EXPECT_EQ(family.xConstant(left), 700);
}

TEST_F(MovedPersons, ThatGlideInFromTheLeftPushNobody)
{
    const std::array<Person*, 2> persons{&left, &right};
    const std::array<std::optional<std::int32_t>, 2> places{5'000, 5'200};
    family.view->movePersons(persons, places);
    // In between the glide stands left of the canvas, which is no reason to move anybody.
    QCoreApplication::processEvents();
    EXPECT_EQ(left.x(), 5'000);
    EXPECT_EQ(far.x(), 40'000);
}

TEST_F(MovedPersons, TakeTheViewAlong)
{
    const double before = place(left);
    const std::array<Person*, 3> persons{&left, &right, &far};
    const std::array<std::optional<std::int32_t>, 3> places{20'253, 20'453, 60'000};
    family.view->movePersons(persons, places);
    family.view->settle();
    EXPECT_NEAR(place(left), before, 1);
}

TEST_F(MovedPersons, StayInPlaceWhenANewGlideBegins)
{
    move();
    family.view->refreshHierarchy();
    EXPECT_EQ(family.xConstant(left), 700);
    EXPECT_EQ(family.xConstant(right), 253);
}

} // namespace
} // namespace lineara
