#include "components.h"
#include "family_sketch.h"

#include <gmock/gmock.h>

namespace lineara::layout {
namespace {

using namespace sketch;
using testing::ElementsAre;

TEST(ConnectedFamilies, KeepThePersonsOrderAndLeaveOutTheUnlinked)
{
    Sketch sketch;
    for (int person = 0; person < 7; ++person)
        sketch.person(1);
    sketch.marry(5, 1);
    sketch.bear(4, {2});
    sketch.bear(6, {5});
    const auto families = connectedFamilies(sketch.graph());
    ASSERT_EQ(families.lists(), 2U);
    EXPECT_THAT(families[0], ElementsAre(1, 5, 6));
    EXPECT_THAT(families[1], ElementsAre(2, 4));
}

TEST(ConnectedFamilies, NoneInAnEmptyFamily)
{
    EXPECT_EQ(connectedFamilies(Sketch().graph()).lists(), 0U);
}

} // namespace
} // namespace lineara::layout
