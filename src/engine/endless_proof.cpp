#include "endless_proof.h"

#include "graph_queries.h"
#include "ordered_worklist.h"

#include <algorithm>
#include <span>
#include <utility>

namespace lineara::engine {

namespace {

/// Windows stop growing here, so that the search takes bounded memory; longer periods are not found.
constexpr std::size_t greatestWindow = std::size_t{1} << 21;

/// A period with more pushes than this is not recorded, for the same reason.
constexpr std::size_t greatestRecord = std::size_t{1} << 24;

std::uint64_t fingerprint(const std::vector<Push>& pushed)
{
    std::uint64_t mixed = pushed.size();
    for (const Push& push : pushed) {
        mixed ^= (std::uint64_t{push.person} << 32) | static_cast<std::uint32_t>(push.levels);
        mixed *= 0x9e3779b97f4a7c15U;
        mixed ^= mixed >> 29;
    }
    return mixed;
}

/// The least period of the whole sequence if it holds at least two of them, by the borders of its prefixes.
std::optional<std::size_t> leastPeriod(std::span<const std::uint64_t> sequence)
{
    std::vector<std::size_t> border(sequence.size(), 0);
    for (std::size_t end = 1; end < sequence.size(); ++end) {
        std::size_t length = border[end - 1];
        while (length > 0 && sequence[length] != sequence[end])
            length = border[length - 1];
        border[end] = sequence[length] == sequence[end] ? length + 1 : 0;
    }
    const std::size_t period = sequence.size() - border.back();
    return 2 * period <= sequence.size() ? std::optional(period) : std::nullopt;
}

std::vector<std::int64_t> differences(const std::vector<Generation>& from, const std::vector<Generation>& to)
{
    std::vector<std::int64_t> result(from.size());
    std::ranges::transform(from, to, result.begin(), [](Generation before, Generation after) {
        return std::int64_t{valueOrZero(after)} - valueOrZero(before);
    });
    return result;
}

/// Follows the rises through one period: members are due when their comparison with a child may have changed.
class RiseCheck
{
public:
    RiseCheck(const FamilyGraph& family, SweepMode mode, std::vector<std::int64_t> rises)
        : family_(family), mode_(mode), rises_(std::move(rises)), due_(family.members)
    {
        for (PersonIndex member = 0; member < family.members; ++member)
            due_.insert(member);
    }

    /// False if a member is looked at in this sweep while one of its children rises faster.
    bool survives(std::span<const Push> sweep)
    {
        PersonIndex reached = 0;
        for (const Push& push : sweep) {
            if (!holdsBetween(reached, push.person + 1))
                return false;
            reached = push.person + 1;
            follow(push.person);
        }
        return holdsBetween(reached, family_.members);
    }

    const std::vector<std::int64_t>& rises() const { return rises_; }

private:
    bool holdsBetween(PersonIndex begin, PersonIndex end)
    {
        for (auto member = due_.takeFrom(begin); member; member = due_.takeFrom(*member + 1)) {
            if (*member >= end) {
                due_.insert(*member);
                return true;
            }
            for (const PersonIndex child : family_.children[*member]) {
                if (rises_[child] > rises_[*member])
                    return false;
            }
        }
        return true;
    }

    void follow(PersonIndex pushed)
    {
        if (mode_ == SweepMode::WithoutPartners)
            return;
        for (const PersonIndex partner : family_.partners[pushed]) {
            if (std::exchange(rises_[partner], rises_[pushed]) == rises_[pushed])
                continue;
            becomeDue(partner);
            for (const PersonIndex parent : family_.parents[partner])
                becomeDue(parent);
        }
    }

    void becomeDue(PersonIndex person)
    {
        if (person < family_.members)
            due_.insert(person);
    }

    const FamilyGraph& family_;
    SweepMode mode_;
    std::vector<std::int64_t> rises_;
    OrderedWorklist due_;
};

} // namespace

bool EndlessProof::completedBy(const std::vector<Push>& pushed, const std::vector<Generation>& generations)
{
    switch (stage_) {
    case Stage::Searching:
        search(pushed, generations);
        return false;
    case Stage::FirstPeriod:
        recordFirst(pushed, generations);
        return false;
    case Stage::SecondPeriod:
        return compareSecond(pushed, generations);
    }
    return false;
}

void EndlessProof::search(const std::vector<Push>& pushed, const std::vector<Generation>& generations)
{
    fingerprints_.push_back(fingerprint(pushed));
    if (fingerprints_.size() < window_)
        return;
    const auto period = leastPeriod(std::span(fingerprints_).subspan(window_ / 2));
    fingerprints_.clear();
    window_ = std::min(2 * window_, greatestWindow);
    if (!period)
        return;
    sweepsOfPeriod_ = *period;
    period_ = {};
    atStart_ = generations;
    stage_ = Stage::FirstPeriod;
}

void EndlessProof::recordFirst(const std::vector<Push>& pushed, const std::vector<Generation>& generations)
{
    if (period_.pushes.size() + pushed.size() > greatestRecord)
        return searchOn();
    period_.pushes.insert(period_.pushes.end(), pushed.begin(), pushed.end());
    period_.sweepEnds.push_back(period_.pushes.size());
    if (period_.sweepEnds.size() < sweepsOfPeriod_)
        return;
    rises_ = differences(atStart_, generations);
    atStart_ = generations;
    sweepsCompared_ = 0;
    stage_ = Stage::SecondPeriod;
}

bool EndlessProof::compareSecond(const std::vector<Push>& pushed, const std::vector<Generation>& generations)
{
    if (!isAsRecorded(pushed)) {
        searchOn();
        return false;
    }
    if (++sweepsCompared_ < sweepsOfPeriod_)
        return false;

    RiseCheck check(family_, mode_, rises_);
    std::size_t begin = 0;
    bool proved = rises_ == differences(atStart_, generations);
    for (std::size_t sweep = 0; proved && sweep < sweepsOfPeriod_; ++sweep) {
        const std::size_t end = period_.sweepEnds[sweep];
        proved = check.survives(std::span(period_.pushes).subspan(begin, end - begin));
        begin = end;
    }
    if (!proved)
        searchOn();
    return proved;
}

bool EndlessProof::isAsRecorded(const std::vector<Push>& pushed) const
{
    const std::size_t begin = sweepsCompared_ == 0 ? 0 : period_.sweepEnds[sweepsCompared_ - 1];
    const std::size_t end = period_.sweepEnds[sweepsCompared_];
    return std::ranges::equal(pushed, std::span(period_.pushes).subspan(begin, end - begin));
}

void EndlessProof::searchOn()
{
    stage_ = Stage::Searching;
    period_ = {};
}

} // namespace lineara::engine
