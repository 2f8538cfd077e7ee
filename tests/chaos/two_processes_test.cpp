// Two programs at once: what one of them has, the other does not get.

#include "family_state.h"
#include "reports.h"
#include "rounds.h"
#include "store/family_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace lineara::chaos {

namespace {

std::string familyIn(const Place& place)
{
    const auto path = (place.docs() / "family.lineara").string();
    EXPECT_TRUE(saveFamilyFile(*madeFamily(10), QString::fromStdString(path)));
    return path;
}

std::string told(Child& child)
{
    const auto report = child.next(now() + minute);
    return report ? report->kind() : "nothing";
}

void takeAdopted(Child& child, std::multiset<std::string>& adopted)
{
    for (auto report = child.next(now() + minute); report && report->kind() != "done";
         report = child.next(now() + minute))
        adopted.insert(report->words[1]);
}

} // namespace

TEST(TwoPrograms, OneHasTheFileUntilItIsKilled)
{
    const Place place;
    const auto path = familyIn(place);
    Child first(place.path(), {"hold", path});
    EXPECT_EQ(told(first), "held");
    Child second(place.path(), {"hold", path});
    EXPECT_EQ(told(second), "refused");
    first.kill();
    Child third(place.path(), {"hold", path});
    EXPECT_EQ(told(third), "held");
}

TEST(TwoPrograms, AFileThatIsBeingEditedIsRefusedToOthers)
{
    const Place place;
    const auto path = familyIn(place);
    Child editor(place.path(), {"edit", path, "1", "calm"});
    ASSERT_TRUE(editor.expect("ready"));
    Child other(place.path(), {"hold", path});
    EXPECT_EQ(told(other), "refused");
    Child editorToo(place.path(), {"edit", path, "2", "calm"});
    EXPECT_EQ(editorToo.expect("ready"), std::nullopt);
    EXPECT_FALSE(editorToo.hasSucceeded());
    editor.kill();
    Child next(place.path(), {"hold", path});
    EXPECT_EQ(told(next), "held");
}

TEST(TwoPrograms, WhatWasLeftIsOfferedToOneOfThem)
{
    constexpr int families = 3;
    const Place place;
    for (int family = 0; family < families; ++family) {
        const auto path = (place.docs() / (std::to_string(family) + ".lineara")).string();
        ASSERT_TRUE(saveFamilyFile(*madeFamily(20), QString::fromStdString(path)));
        Child editor(place.path(), {"edit", path, std::to_string(family), "calm"});
        const auto ready = editor.expect("ready");
        ASSERT_TRUE(ready);
        // Long enough for a copy to be written.
        while (editor.next(ready->at + 4'000'000'000)) {
        }
    }
    const auto kept = place.files("data/lineara/lineara/recovery");
    const auto left = std::ranges::count(kept, ".lineara", [](const auto& file) { return file.extension().string(); });
    ASSERT_GT(left, 0);
    // Two at once may keep each other from looking, so that a third one finds what neither of them took.
    Child one(place.path(), {"adopt"});
    Child other(place.path(), {"adopt"});
    std::multiset<std::string> adopted;
    takeAdopted(one, adopted);
    takeAdopted(other, adopted);
    Child third(place.path(), {"adopt"});
    takeAdopted(third, adopted);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(adopted.size()), left);
    EXPECT_EQ(std::set(adopted.begin(), adopted.end()).size(), adopted.size());
}

} // namespace lineara::chaos
