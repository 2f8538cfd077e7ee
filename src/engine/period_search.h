#pragma once

#include "sweeps.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::engine {

/// Looks for a period in the lists of persons pushed by sweeps running. Works on fingerprints, so what it finds is a
/// guess.
///
/// To cost little beside the sweeps it searches a window of sweeps at the end of the window only. Short periods that
/// last for a while want short windows, long periods long ones: every fourth window takes its turn in growing lengths
/// (1, 2, 1, 4, 1, 2, 1, 8, ... times the least), so that as many sweeps go to each length, and the three between are
/// of the least. No window ends before `leastPushes` pushes were made.
class PeriodSearch
{
public:
    explicit PeriodSearch(std::size_t leastPushes) : leastPushes_(leastPushes) {}

    /// Takes the persons pushed in one more sweep. Returns a number of sweeps after which the lists may repeat, now
    /// and then, if there is one.
    std::optional<std::size_t> guessAfter(const std::vector<PersonIndex>& pushed);

private:
    std::size_t windowLength() const;

    std::size_t leastPushes_;
    std::size_t pushes_ = 0;
    std::size_t windows_ = 1;
    std::vector<std::uint64_t> fingerprints_;
};

} // namespace lineara::engine
