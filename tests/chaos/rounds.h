#pragma once

#include "child.h"

#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace lineara::chaos {

struct Rounds
{
#ifdef LINEARA_SANITIZED
    int runs = 8;
    int atOnce = 2;
#else
    int runs = 50;
    int atOnce = 8;
#endif
    int seed = 1;
};

/// How many runs there are in all; set by the arguments of the program.
Rounds& rounds();

/// A folder that is gone after the run: "docs" for families, and homes for the programs.
class Place
{
public:
    Place();
    ~Place();
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path docs() const { return path_ / "docs"; }
    /// Files below a folder that are temporary ones of saving.
    std::vector<std::filesystem::path> temporaries() const;
    std::vector<std::filesystem::path> files(const std::string& folder) const;

private:
    std::filesystem::path path_;
};

/// What one run found: problems, and how often something happened.
struct Finding
{
    std::vector<std::string> problems;
    std::vector<std::string> counted;
};

/// Runs `run` that many times, several at once, and fails for every problem. Tells the counts.
void repeat(const std::string& title, int times, const std::function<Finding(int number, std::mt19937& random)>& run);

} // namespace lineara::chaos
