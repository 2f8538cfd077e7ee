#include "rounds.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <map>
#include <mutex>
#include <thread>

namespace lineara::chaos {

namespace fs = std::filesystem;

Rounds& rounds()
{
    static Rounds all;
    return all;
}

Place::Place()
{
    auto name = (fs::temp_directory_path() / "chaos-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
    fs::create_directories(docs());
}

Place::~Place()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::vector<fs::path> Place::files(const std::string& folder) const
{
    std::vector<fs::path> result;
    if (!fs::exists(path_ / folder))
        return result;
    for (const auto& entry : fs::recursive_directory_iterator(path_ / folder)) {
        if (entry.is_regular_file())
            result.push_back(entry.path());
    }
    return result;
}

std::vector<fs::path> Place::temporaries() const
{
    std::vector<fs::path> result;
    for (const auto& file : files({})) {
        const auto name = file.filename().string();
        const bool isOfToolkit =
            file.parent_path().filename() == "recovery" && name.find(".json.") != std::string::npos;
        if (name.starts_with(".lineara-") || isOfToolkit)
            result.push_back(file);
    }
    return result;
}

void repeat(const std::string& title, int times, const std::function<Finding(int number, std::mt19937& random)>& run)
{
    std::atomic<int> next = 0;
    std::mutex guard;
    std::map<std::string, int> counts;
    std::map<int, std::vector<std::string>> problems;
    const auto work = [&] {
        for (int number = next++; number < times; number = next++) {
            std::seed_seq seed{rounds().seed, number, static_cast<int>(title.size())};
            std::mt19937 random(seed);
            auto finding = run(number, random);
            const std::lock_guard lock(guard);
            for (const auto& counted : finding.counted)
                ++counts[counted];
            if (!finding.problems.empty())
                problems[number] = std::move(finding.problems);
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < rounds().atOnce; ++thread)
        threads.emplace_back(work);
    for (auto& thread : threads)
        thread.join();
    std::cout << title << ": " << times << " runs\n";
    for (const auto& [counted, count] : counts)
        std::cout << "    " << count << ' ' << counted << '\n';
    for (const auto& [number, found] : problems) {
        for (const auto& problem : found)
            ADD_FAILURE() << title << ", run " << number << " of seed " << rounds().seed << ": " << problem;
    }
}

} // namespace lineara::chaos
