#include "period_search.h"

#include <algorithm>
#include <utility>

namespace lineara::engine {

namespace {

constexpr std::size_t leastWindow = 16;

/// Windows grow no further, so that the search takes bounded memory; longer periods are not found.
constexpr std::size_t greatestWindow = std::size_t{1} << 21;

std::uint64_t fingerprint(const std::vector<PersonIndex>& persons)
{
    std::uint64_t mixed = persons.size();
    for (const PersonIndex person : persons) {
        mixed = (mixed ^ person) * 0x9e3779b97f4a7c15U;
        mixed ^= mixed >> 29;
    }
    return mixed;
}

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

std::size_t PeriodSearch::windowLength() const
{
    if (windows_ % 4 != 0)
        return leastWindow;
    const std::size_t turn = windows_ / 4;
    const std::size_t greatestPowerOfTwoIn = turn & (~turn + 1);
    return std::min(leastWindow * greatestPowerOfTwoIn, greatestWindow);
}

std::optional<std::size_t> PeriodSearch::guessAfter(const std::vector<PersonIndex>& pushed)
{
    fingerprints_.push_back(fingerprint(pushed));
    pushes_ += pushed.size();
    if (fingerprints_.size() < windowLength() || pushes_ < leastPushes_)
        return std::nullopt;
    ++windows_;
    pushes_ = 0;
    return periodOfTail(std::exchange(fingerprints_, {}));
}

} // namespace lineara::engine
