// What waits for an export, and what does not.

#include "edited_document.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace lineara {
namespace {

TEST(Exporting, IsWaitedForByThoseWhomItConcerns)
{
    EditedDocument edited(*threeGenerations());
    std::atomic<bool> mayEnd = false;
    bool isExported = false;
    bool isSettled = false;
    bool isGone = false;
    Document& document = *edited.document;
    const auto write = [&mayEnd](const FamilyContent&, const Progress& progress) -> Outcome<Done> {
        while (!mayEnd && progress.goesOn(0.5))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return Done{};
    };
    document.exportFamily(QStringLiteral("Exporting"), write, [&](const Outcome<Done>&) { isExported = true; });
    EXPECT_TRUE(document.isWriting());
    document.whenSettled([&] { isSettled = true; });
    document.whenExported([&] {
        EXPECT_TRUE(isExported);
        isGone = true;
    });
    ASSERT_TRUE(runEventsUntil(isSettled));
    EXPECT_TRUE(document.isWriting());
    EXPECT_FALSE(isGone);
    mayEnd = true;
    ASSERT_TRUE(runEventsUntil(isGone));
    EXPECT_FALSE(document.isWriting());
}

} // namespace
} // namespace lineara
