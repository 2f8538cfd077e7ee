#include "period_search.h"

#include <algorithm>

namespace lineara::engine {

namespace {

constexpr std::size_t firstLook = 16;

/// No more sweeps are looked back over, so that the search takes bounded memory; longer periods are not found.
constexpr std::size_t mostSweeps = std::size_t{1} << 21;

/// Pushes further than this count as equally far. Where lines of different speed drive somebody in turns, it falls and
/// is pushed further each time, though all the rest repeats; within a line of one speed pushes rarely go that far.
constexpr Generation farPush = 64;

/// The period that reaches back furthest from the end of the sequence, at least twice its own length.
std::optional<std::size_t> periodOfTail(std::vector<std::uint64_t> sequence)
{
    std::ranges::reverse(sequence);
    std::optional<std::size_t> best;
    std::size_t reachOfBest = 0;
    // matches[i] is the number of elements from i on that equal those from 0 on; [begin, end) is the match found so
    // far that ends last, and what lies in it was compared before.
    std::vector<std::size_t> matches(sequence.size(), 0);
    for (std::size_t at = 1, begin = 0, end = 0; at < sequence.size(); ++at) {
        std::size_t length = at < end ? std::min(matches[at - begin], end - at) : 0;
        while (at + length < sequence.size() && sequence[length] == sequence[at + length])
            ++length;
        matches[at] = length;
        if (at + length > end) {
            begin = at;
            end = at + length;
        }
        if (length >= at && at + length > reachOfBest) {
            best = at;
            reachOfBest = at + length;
        }
    }
    return best;
}

} // namespace

void SweepFingerprint::addPush(PersonIndex person, Generation levels)
{
    const auto push = (std::uint64_t{person} << 32) | static_cast<std::uint32_t>(std::min(levels, farPush));
    mixed_ = (mixed_ ^ push) * 0x9e3779b97f4a7c15U;
    mixed_ ^= mixed_ >> 29;
    ++pushes_;
}

std::optional<std::size_t> PeriodSearch::guessAfter(const SweepFingerprint& sweep)
{
    fingerprints_.push_back(sweep.value());
    pushes_ += sweep.pushes();
    if (fingerprints_.size() < std::max(firstLook, nextLook_) || pushes_ < leastPushes_)
        return std::nullopt;
    pushes_ = 0;
    nextLook_ = fingerprints_.size() + fingerprints_.size() / 4;
    const auto guess = periodOfTail(fingerprints_);
    if (nextLook_ > mostSweeps)
        restart();
    return guess;
}

void PeriodSearch::restart()
{
    fingerprints_.clear();
    nextLook_ = firstLook;
}

} // namespace lineara::engine
