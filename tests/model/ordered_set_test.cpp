#include "model/ordered_set.h"

#include <gtest/gtest.h>

#include <random>

namespace lineara {

TEST(OrderedSet, EnumeratesInOrderOfInsertion)
{
    OrderedSet<int> set;
    for (const int member : {3, 1, 2})
        EXPECT_TRUE(set.append(member));
    EXPECT_FALSE(set.append(1));
    EXPECT_EQ(std::vector<int>(set.begin(), set.end()), (std::vector{3, 1, 2}));
    EXPECT_EQ(set.remove(1), 1u);
    EXPECT_EQ(set.remove(1), std::nullopt);
    EXPECT_TRUE(set.insertAt(0, 1));
    EXPECT_EQ(std::vector<int>(set.begin(), set.end()), (std::vector{1, 3, 2}));
}

TEST(OrderedSet, AgreesWithAPlainListWhateverIsDone)
{
    std::mt19937 random(1);
    OrderedSet<int> set;
    std::vector<int> list;
    for (int round = 0; round < 20'000; ++round) {
        const int member = static_cast<int>(random() % 60);
        const auto found = std::find(list.begin(), list.end(), member);
        ASSERT_EQ(set.contains(member), found != list.end());
        if (found == list.end()) {
            const std::size_t position = random() % (list.size() + 1);
            set.insertDistinctAt(position, member);
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(position), member);
        } else if (random() % 2) {
            ASSERT_EQ(set.removePresent(member), static_cast<std::size_t>(found - list.begin()));
            list.erase(found);
        } else {
            ASSERT_EQ(set.indexOf(member), static_cast<std::size_t>(found - list.begin()));
        }
        ASSERT_TRUE(std::ranges::equal(set, list));
    }
}

} // namespace lineara
