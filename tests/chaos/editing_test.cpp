// A program that edits and saves is killed: its files are whole, and what was done more than five seconds before is in
// them or in what the next program offers.

#include "family_state.h"
#include "reports.h"
#include "rounds.h"
#include "store/family_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include <sys/stat.h>

namespace lineara::chaos {

namespace {

constexpr std::int64_t second = 1'000'000'000;
constexpr mode_t mode = 0640;

/// What the killed program had told.
class Told
{
public:
    explicit Told(std::string family) { allowed_["family.lineara"] = {{std::move(family)}}; }

    void take(const Report& report)
    {
        const auto& words = report.words;
        if (report.kind() == "step")
            begun_[step_ = std::stoi(words[1])] = report.at;
        if (report.kind() == "state")
            steps_[words[2]] = std::max(steps_[words[2]], std::stoi(words[1]));
        if (report.kind() == "saving")
            allowed_[words[1]].emplace_back();
        if (report.kind() == "saving" || report.kind() == "also") {
            allowed_[words[1]].back().insert(words[2]);
            savedAt_[words[2]] = step_;
        }
        // Files are written one after the other, so this is the oldest that is under way.
        if (report.kind() == "saved")
            ++finished_[words[1]];
    }

    /// Whether the file may hold that: what was saved last, or what was being saved.
    bool allows(const std::string& name, const std::string& digest) const
    {
        const auto allowed = allowed_.find(name);
        if (allowed == allowed_.end())
            return false;
        const int last = lastSaved(name);
        return std::any_of(allowed->second.begin() + std::max(last, 0), allowed->second.end(),
                           [&](const auto& digests) { return digests.contains(digest); });
    }
    bool wasWriting() const
    {
        return std::ranges::any_of(allowed_, [this](const auto& file) {
            return lastSaved(file.first) + 1 < static_cast<int>(file.second.size());
        });
    }
    bool mustExist(const std::string& name) const { return lastSaved(name) >= 0; }

    /// The newest step that left the family in that state; no value if no step did.
    std::optional<int> step(const std::string& state) const
    {
        const auto found = steps_.find(state);
        return found == steps_.end() ? std::nullopt : std::optional(found->second);
    }
    /// The step after which these bytes were saved; 0 for what was there before.
    int savedAt(const std::string& digest) const
    {
        const auto found = savedAt_.find(digest);
        return found == savedAt_.end() ? 0 : found->second;
    }
    int newestBefore(std::int64_t moment) const
    {
        int newest = 0;
        for (const auto& [step, begun] : begun_)
            newest = begun <= moment ? step : newest;
        return newest;
    }

private:
    /// Position among what may be in the file; the family's first one is there from the beginning.
    int lastSaved(const std::string& name) const
    {
        const auto finished = finished_.find(name);
        const int count = finished == finished_.end() ? 0 : finished->second;
        return name == "family.lineara" ? count : count - 1;
    }

    int step_ = 0;
    std::map<int, std::int64_t> begun_;
    std::map<std::string, int> savedAt_;
    std::map<std::string, int> steps_;
    std::map<std::string, std::vector<std::set<std::string>>> allowed_; // one set for each save
    std::map<std::string, int> finished_;
};

/// What is found afterwards.
class Aftermath
{
public:
    Aftermath(const Told& told, std::int64_t killed) : told_(told), killed_(killed) {}

    Finding judge(const Place& place)
    {
        judgeRemains(place);
        Child looking(place.path(), {"look", place.docs().string()});
        for (const auto& report : looking.finish())
            take(report);
        demand(looking.hasSucceeded(), "what was left can't be looked at");
        for (const std::string name : {"family.lineara", "other.lineara", "copy.lineara"})
            demand(!told_.mustExist(name) || seen_.contains(name), name + " is gone");
        const int due = told_.newestBefore(killed_ - 5 * second);
        demand(due <= newest_,
               std::to_string(due) + " steps are due, and only " + std::to_string(newest_) + " are left");
        for (const auto& file : place.temporaries())
            demand(file.parent_path() != place.docs(), file.string() + " stays after the next save");
        return finding_;
    }

private:
    void judgeRemains(const Place& place)
    {
        count(told_.wasWriting(), "killed while a family was being saved");
        const auto temporaries = place.temporaries().size();
        demand(temporaries <= 1, std::to_string(temporaries) + " temporary files after one kill");
        count(temporaries > 0, "with a temporary file left");
        struct stat status = {};
        ::stat((place.docs() / "family.lineara").c_str(), &status);
        demand((status.st_mode & 07777) == mode, "other permissions");
    }

    void take(const Report& report)
    {
        const auto& words = report.words;
        if (report.kind() == "broken")
            demand(false, words[1] + " can't be opened");
        if (report.kind() == "lock")
            demand(words[2] == "free", words[1] + " is still locked");
        if (report.kind() == "file")
            takeFile(words);
        if (report.kind() == "left")
            takeCopy(words);
    }

    void takeFile(const std::vector<std::string>& words)
    {
        seen_.insert(words[1]);
        demand(words[4] == "0", words[1] + " had to be mended");
        demand(told_.allows(words[1], words[2]), words[1] + " is neither what was saved nor what was being saved");
        newest_ = std::max(newest_, told_.step(words[3]).value_or(0));
        if (words[1] != "copy.lineara" && copied_ && told_.savedAt(words[2]) > *copied_)
            demand(isOther_, "an older copy is offered as if the file were as it was");
    }

    void takeCopy(const std::vector<std::string>& words)
    {
        if (words[1] == "broken")
            return demand(false, "the copy on offer can't be opened");
        demand(!copied_, "two copies are on offer");
        demand(words[2] == "0", "the copy had to be mended");
        copied_ = told_.step(words[1]);
        isOther_ = words[3] == "changed";
        demand(copied_.has_value(), "the copy holds what never was");
        newest_ = std::max(newest_, copied_.value_or(0));
        count(true, "with a copy on offer");
    }

    void demand(bool isSo, const std::string& problem)
    {
        if (!isSo)
            finding_.problems.push_back(problem);
    }
    void count(bool isSo, const std::string& what)
    {
        if (isSo)
            finding_.counted.push_back(what);
    }

    const Told& told_;
    std::int64_t killed_;
    std::set<std::string> seen_;
    std::optional<int> copied_;
    bool isOther_ = false;
    int newest_ = 0;
    Finding finding_;
};

std::filesystem::path makeFamily(const Place& place, int persons)
{
    const auto path = place.docs() / "family.lineara";
    EXPECT_TRUE(saveFamilyFile(*madeFamily(persons), QString::fromStdString(path.string())));
    ::chmod(path.c_str(), mode);
    return path;
}

/// Lets the program work until `isEnough`, with `rest` nanoseconds left to it after that.
Finding killed(const std::string& pace, int persons, unsigned seed, std::int64_t rest,
               const std::function<bool(const Report&)>& isEnough)
{
    const Place place;
    const auto family = makeFamily(place, persons);
    Told told(digestOf(bytesOf(QString::fromStdString(family.string()))).toStdString());
    Child editor(place.path(), {"edit", family.string(), std::to_string(seed), pace});
    auto deadline = now() + 120 * second;
    bool isWaiting = true;
    while (const auto report = editor.next(deadline)) {
        told.take(*report);
        if (isWaiting && isEnough(*report)) {
            deadline = report->at + rest;
            isWaiting = false;
        }
    }
    const auto moment = now();
    for (const auto& report : editor.kill())
        told.take(report);
    if (isWaiting)
        return {{"the program does not work"}, {}};
    return Aftermath(told, moment).judge(place);
}

} // namespace

TEST(Chaos, SavingThatIsKilledLeavesTheOldFileOrTheNewOne)
{
    repeat("killed while saving", rounds().runs * 2 / 5, [](int, std::mt19937& random) {
        int saves = std::uniform_int_distribution(1, 6)(random);
        // Of all magnitudes from the first call on to the last.
        const double magnitude = std::uniform_real_distribution(4.0, 7.6)(random);
        return killed("storm", 2000, static_cast<unsigned>(random()), std::llround(std::pow(10.0, magnitude)),
                      [&saves](const Report& report) { return report.kind() == "saving" && --saves == 0; });
    });
}

TEST(Chaos, WhatIsOlderThanFiveSecondsOutlivesTheProgram)
{
    repeat("killed while editing", rounds().runs * 3 / 10, [](int, std::mt19937& random) {
        const auto rest = std::uniform_int_distribution<std::int64_t>(0, 10 * second)(random);
        return killed("calm", 60, static_cast<unsigned>(random()), rest,
                      [](const Report& report) { return report.kind() == "ready"; });
    });
}

} // namespace lineara::chaos
