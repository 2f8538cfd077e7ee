#include "platform/outcome.h"

#include <gtest/gtest.h>

#include <memory>

using namespace lineara;

TEST(Outcome, HoldsAValueThatCanBeMovedOut)
{
    Outcome<std::unique_ptr<int>> outcome(std::make_unique<int>(7));
    ASSERT_TRUE(outcome);
    EXPECT_EQ(*std::move(outcome.value()), 7);
}

TEST(Outcome, HoldsTheReasonOfAFailure)
{
    const Outcome<Done> outcome(Failure{QStringLiteral("family.lineara, line 3: cut off")});
    EXPECT_TRUE(outcome.failed());
    EXPECT_EQ(outcome.failure().message, QStringLiteral("family.lineara, line 3: cut off"));
}
