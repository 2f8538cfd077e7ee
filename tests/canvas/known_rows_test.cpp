// What has changed about the rows of a family since they were last looked at.

#include "canvas/known_rows.h"
#include "model/object_context.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = KnownRows::Rows;

constexpr RecordId a{101}, b{102}, c{103}, d{104}, x{105};

KnownRows knowing(const Rows& rows)
{
    KnownRows known;
    known.take(rows);
    return known;
}

TEST(KnownRows, KnowARowThatHasMovedToAnotherIndex)
{
    EXPECT_THAT(knowing({{}, {a, b}, {c}}).changedRows({{}, {}, {a, b}, {c}}), ElementsAre(1));
    EXPECT_THAT(knowing({{}, {}, {a, b}, {c}}).changedRows({{}, {a, b}, {c}}), IsEmpty());
}

TEST(KnownRows, KnowARowInAnyOrder)
{
    EXPECT_THAT(knowing({{}, {a, b, c}}).changedRows({{}, {c, a, b}}), IsEmpty());
}

TEST(KnownRows, TellRowsThatSomebodyJoinedLeftOrChangedPlacesIn)
{
    const KnownRows known = knowing({{}, {a, b}, {c, d}});
    EXPECT_THAT(known.changedRows({{}, {a, b, x}, {c, d}}), ElementsAre(1));
    EXPECT_THAT(known.changedRows({{}, {a, b}, {c}}), ElementsAre(2));
    EXPECT_THAT(known.changedRows({{}, {a, c}, {b, d}}), ElementsAre(1, 2));
}

TEST(KnownRows, NeverTakeRowZeroForAnotherRow)
{
    EXPECT_THAT(knowing({{a, b}, {c}}).changedRows({{}, {a, b}, {c}}), ElementsAre(1));
    EXPECT_THAT(knowing({{a}, {c}}).changedRows({{a, x}, {c}}), IsEmpty());
    EXPECT_THAT(knowing({{a}, {c}}).changedRows({{}, {c}}), IsEmpty());
}

TEST(KnownRows, AreNoneAtFirstSoThatAllAreNew)
{
    EXPECT_THAT(KnownRows().changedRows({{x}, {a, b}, {c}}), ElementsAre(1, 2));
    EXPECT_THAT(knowing({{x}}).changedRows({{}, {x}}), ElementsAre(1));
}

TEST(KnownRows, OfAnEmptyFamilyAreNoMatter)
{
    EXPECT_THAT(KnownRows().changedRows({}), IsEmpty());
    EXPECT_THAT(KnownRows().changedRows({{}}), IsEmpty());
    EXPECT_THAT(knowing({{}, {a}}).changedRows({}), IsEmpty());
}

TEST(KnownRows, AgreeWithAComparisonOfSets)
{
    std::mt19937 random(4);
    const auto sorted = [](std::vector<RecordId> row) {
        std::ranges::sort(row, {}, &RecordId::number);
        return row;
    };
    for (int round = 0; round < 500; ++round) {
        Rows before(random() % 5), now(random() % 5);
        for (Rows* const rows : {&before, &now}) {
            for (std::uint64_t person = 101; person < 107; ++person) {
                if (!rows->empty())
                    (*rows)[random() % rows->size()].push_back({person});
            }
            for (auto& row : *rows)
                std::ranges::shuffle(row, random);
        }
        std::vector<std::int32_t> expected;
        for (std::size_t row = 1; row < now.size(); ++row) {
            const bool isKnown =
                before.size() > 1 && std::any_of(before.begin() + 1, before.end(),
                                                 [&](const auto& old) { return sorted(old) == sorted(now[row]); });
            if (!isKnown)
                expected.push_back(static_cast<std::int32_t>(row));
        }
        EXPECT_EQ(knowing(before).changedRows(now), expected);
    }
}

TEST(KnownRows, TellNewcomersFromThoseWhoStoodInTheRow)
{
    const KnownRows known = knowing({{x}, {a, b}, {c}});
    EXPECT_THAT(known.stoodInRow(1, std::vector{a, x, b}), ElementsAre(true, false, true));
    EXPECT_THAT(known.stoodInRow(1, std::vector{a, b}), ElementsAre(true, true));
    EXPECT_THAT(known.stoodInRow(2, std::vector{c, x, d}), ElementsAre(true, false, false));
}

TEST(KnownRows, FollowARowToItsNewIndex)
{
    const KnownRows known = knowing({{}, {a, b}, {c}});
    EXPECT_THAT(known.stoodInRow(2, std::vector{x, a, b, c}), ElementsAre(false, true, true, false));
}

TEST(KnownRows, PreferTheSameIndexWhereTwoRowsMeetAsEquals)
{
    const KnownRows known = knowing({{}, {a}, {c}});
    EXPECT_THAT(known.stoodInRow(2, std::vector{a, c}), ElementsAre(false, true));
    EXPECT_THAT(known.stoodInRow(1, std::vector{a, c}), ElementsAre(true, false));
    EXPECT_THAT(known.stoodInRow(3, std::vector{a, c}), ElementsAre(true, false));
}

TEST(KnownRows, TakeNobodyWithoutARowForOneWhoStood)
{
    EXPECT_THAT(knowing({{a, b}}).stoodInRow(1, std::vector{a, b}), ElementsAre(false, false));
    EXPECT_THAT(KnownRows().stoodInRow(1, std::vector{a, b}), ElementsAre(false, false));
}

class CommonShift : public testing::Test
{
protected:
    Person& add(std::int32_t generation)
    {
        Person& person = context.insertPerson({.generation = generation});
        pool.addPerson(person);
        return person;
    }
    void look()
    {
        pool.arrangeGenerations();
        known.take(pool.generations());
    }
    std::int64_t shift()
    {
        pool.arrangeGenerations();
        return known.commonShift(pool);
    }

    ObjectContext context;
    Pool& pool = context.insertPool();
    Person& parent = add(2);
    Person& child = add(1);
    KnownRows known;
};

TEST_F(CommonShift, IsThatOfEverybody)
{
    look();
    parent.setGeneration(4);
    child.setGeneration(3);
    EXPECT_EQ(shift(), 2);
    look();
    parent.setGeneration(2);
    child.setGeneration(1);
    EXPECT_EQ(shift(), -2);
}

TEST_F(CommonShift, IsNoneWhereSomebodyStaysOrMovesOtherwise)
{
    look();
    EXPECT_EQ(shift(), 0);
    parent.setGeneration(3);
    EXPECT_EQ(shift(), 0);
    child.setGeneration(3);
    EXPECT_EQ(shift(), 0);
}

TEST_F(CommonShift, LeavesOutWhoComesOrGoes)
{
    Person& leaves = add(1);
    Person& unlinked = add(1);
    look();
    parent.setGeneration(3);
    child.setGeneration(2);
    unlinked.setGeneration(std::nullopt);
    add(7);
    context.remove(leaves);
    EXPECT_EQ(shift(), 1);
}

TEST_F(CommonShift, IsNoneBeforeRowsAreKnown)
{
    EXPECT_EQ(shift(), 0);
}

} // namespace
} // namespace lineara
