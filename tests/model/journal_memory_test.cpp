// What a long history costs, in memory that the heap tells of.

#include "model/dump.h"
#include "model/object_context.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

#ifdef LINEARA_SANITIZED
// A part of the sanitizers' runtime that the compiler ships no header for.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

using namespace lineara;
using test::dump;

namespace {

#ifdef LINEARA_SANITIZED
constexpr int largeFamily = 2'000;
constexpr int manySteps = 500;
#else
constexpr int largeFamily = 10'000;
constexpr int manySteps = 10'000;
#endif

constexpr std::size_t bytesOfAStep = 1'000;

std::size_t bytesInUse()
{
#ifdef LINEARA_SANITIZED
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

std::unique_ptr<ObjectContext> familyOf(int persons)
{
    auto family = std::make_unique<ObjectContext>();
    Pool& pool = family->insertPool();
    for (int number = 0; number < persons; ++number)
        pool.addPerson(family->insertPerson({.generation = number % 60, .x = number}));
    return family;
}

/// Somebody is dragged over the left edge, or back: the person moves, and everybody along.
void drag(ObjectContext& family, int step)
{
    Pool& pool = *family.allPools().front();
    family.journal().begin(QStringLiteral("Move Person"));
    pool.persons()[0]->setX(-step);
    family.shiftX(pool, step % 2 ? 7 : -9);
}

/// An engine run after a link gives everybody another row.
void lift(ObjectContext& family, int step)
{
    Pool& pool = *family.allPools().front();
    family.journal().begin(QStringLiteral("Link Partner"));
    std::vector<std::optional<std::int32_t>> generations;
    for (const Person* const person : pool.persons())
        generations.push_back(*person->generation() + (step % 2 ? 1 : -1));
    family.setMany(PersonAttribute::Generation, pool.persons().span(), generations);
}

template<class Step>
std::size_t growthOf(ObjectContext& family, int steps, Step step)
{
    const std::size_t before = bytesInUse();
    for (int number = 1; number <= steps; ++number)
        step(family, number);
    return bytesInUse() - before;
}

} // namespace

TEST(JournalMemory, AStepThatMovesEverybodyCostsTheSameInAnyFamily)
{
    const auto small = familyOf(10);
    const auto large = familyOf(2'000);
    EXPECT_LE(growthOf(*large, 200, drag), growthOf(*small, 200, drag) + 4'096);
    EXPECT_LE(growthOf(*large, 200, lift), growthOf(*small, 200, lift) + 4'096);
}

TEST(JournalMemory, AThousandEventsOfADragCostAsMuchAsOne)
{
    const auto family = familyOf(100);
    Pool& pool = *family->allPools().front();
    family->journal().begin(QStringLiteral("Move Person"));
    const auto event = [&](ObjectContext&, int number) {
        pool.persons()[0]->setX(-number);
        family->shiftX(pool, -number);
    };
    growthOf(*family, 1, event);
    EXPECT_LE(growthOf(*family, 1'000, event), 1'024u);
}

TEST(JournalMemory, ThousandsOfStepsThatMoveEverybodyAreKeptAndTakenBack)
{
    const auto family = familyOf(largeFamily);
    family->journal().clear();
    const std::string first = dump(*family);
    EXPECT_LE(growthOf(*family, manySteps, drag), manySteps * bytesOfAStep);
    EXPECT_EQ(family->journal().depth(), static_cast<std::size_t>(manySteps));
    const std::string last = dump(*family);
    while (family->journal().canUndo()) {
        family->journal().undo();
        ASSERT_TRUE(family->journal().canRedo());
    }
    EXPECT_TRUE(dump(*family) == first);
    while (family->journal().canRedo())
        family->journal().redo();
    EXPECT_TRUE(dump(*family) == last);
}
