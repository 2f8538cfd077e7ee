// Disks that fail while a document is saved: nothing is lost, and one message says why.

#include "family_state.h"
#include "rounds.h"
#include "store/family_file.h"

#include <gmock/gmock.h>

#include <fstream>

namespace lineara::chaos {

using testing::Contains;
using testing::IsEmpty;

namespace {

class FailingDisk : public testing::Test
{
protected:
    FailingDisk() { EXPECT_TRUE(saveFamilyFile(*madeFamily(20), QString::fromStdString(path()))); }

    std::string path() const { return (place_.docs() / "family.lineara").string(); }
    QByteArray bytes() const { return bytesOf(QString::fromStdString(path())); }

    /// What the program tells that edits and saves on such a disk, one line each without the time.
    std::vector<std::string> told(const std::string& disk) const
    {
        Child child(place_.path(), {"fail", path(), disk});
        std::vector<std::string> lines;
        for (const auto& report : child.finish()) {
            lines.emplace_back();
            for (const auto& word : report.words)
                lines.back().append(lines.back().empty() ? "" : " ").append(word);
        }
        EXPECT_TRUE(child.hasSucceeded());
        return lines;
    }

    const Place place_;
};

} // namespace

TEST_F(FailingDisk, SavingLosesNothingAndSaysWhy)
{
    const auto before = bytes();
    for (const auto& [disk, reason] :
         {std::pair("full", "there is no space left on the disk."), std::pair("unsynced", "the disk reports an error."),
          std::pair("closed", "permission to write to its folder is denied."),
          std::pair("unnamed", "the disk is read-only.")}) {
        const auto lines = told(disk);
        EXPECT_THAT(lines, Contains("message “" + path() + "” can't be saved: " + reason)) << disk;
        EXPECT_THAT(lines, Contains("modified yes")) << disk;
        EXPECT_THAT(lines, Contains("kept yes")) << disk;
        EXPECT_EQ(bytes(), before) << disk;
        EXPECT_THAT(place_.temporaries(), IsEmpty()) << disk;
        Child next(place_.path(), {"adopt"});
        EXPECT_TRUE(next.expect("adopted")) << disk;
        std::filesystem::remove_all(place_.path() / "data");
    }
}

TEST_F(FailingDisk, SavingToASoundOneLeavesNothingToRecover)
{
    const auto lines = told("sound");
    EXPECT_THAT(lines, Contains("saved"));
    EXPECT_THAT(lines, Contains("modified no"));
    EXPECT_THAT(lines, Contains("kept no"));
    EXPECT_THAT(lines, Contains("warned no"));
    EXPECT_TRUE(bytes().contains("Renamed"));
}

TEST_F(FailingDisk, WhereNoCopyCanBeKeptItIsToldAndSavingGoesOn)
{
    const auto folder = place_.path() / "data" / "lineara" / "lineara";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "recovery") << "in the way";
    const auto lines = told("sound");
    EXPECT_THAT(lines, Contains("warned yes"));
    EXPECT_THAT(lines, Contains("kept no"));
    EXPECT_THAT(lines, Contains("saved"));
    EXPECT_TRUE(bytes().contains("Renamed"));
}

} // namespace lineara::chaos
