#pragma once

#include "sweeps.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::engine {

/// Stands for who was pushed in a sweep, in which order, and by how many levels.
class SweepFingerprint
{
public:
    void addPush(PersonIndex person, Generation levels);
    std::size_t pushes() const { return pushes_; }
    std::uint64_t value() const { return mixed_; }

private:
    std::uint64_t mixed_ = 0;
    std::size_t pushes_ = 0;
};

/// Looks for a period in sweeps running. Works on fingerprints, so what it finds is a guess.
///
/// To cost little beside the sweeps it looks back over all of them now and then only: each time when a quarter more
/// sweeps were made than the last time, and not before `leastPushes` more pushes.
class PeriodSearch
{
public:
    explicit PeriodSearch(std::size_t leastPushes) : leastPushes_(leastPushes) {}

    /// Takes one more sweep. Returns a number of sweeps after which they may repeat, now and then, if there is one.
    std::optional<std::size_t> guessAfter(const SweepFingerprint& sweep);

    /// Forgets the sweeps: the coming ones follow from others than those taken.
    void restart();

private:
    std::size_t leastPushes_;
    std::size_t pushes_ = 0;
    std::size_t nextLook_ = 0; ///< by number of fingerprints
    std::vector<std::uint64_t> fingerprints_;
};

} // namespace lineara::engine
