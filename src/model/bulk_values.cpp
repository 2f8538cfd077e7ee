#include "bulk_values.h"

#include "attribute_value.h"

#include <algorithm>
#include <utility>

namespace lineara {

/// The change of one person: a distance, or the value of the other side.
struct BulkValues::Single
{
    std::uint64_t number;
    bool kept;
    std::int32_t by;
    std::optional<std::int32_t> other;

    static Single of(const Change& change)
    {
        if (change.before && change.after)
            return {change.number, false, wrappingDifference(*change.after, *change.before), {}};
        return {change.number, true, 0, change.before};
    }

    void append(const Single& later)
    {
        if (kept)
            return;
        if (!later.kept) {
            by = wrappingSum(by, later.by);
            return;
        }
        kept = true;
        other = later.other;
        if (other)
            other = wrappingDifference(*other, by);
    }
};

BulkValues::BulkValues(std::vector<Change> changes)
{
    if (!std::ranges::is_sorted(changes, {}, &Change::number))
        std::ranges::stable_sort(changes, {}, &Change::number);
    for (std::size_t at = 0; at < changes.size();) {
        Change whole = changes[at];
        for (++at; at < changes.size() && changes[at].number == whole.number; ++at)
            whole.after = changes[at].after;
        if (whole.before != whole.after)
            add(Single::of(whole));
    }
    runs_.shrink_to_fit();
    others_.shrink_to_fit();
}

void BulkValues::append(const BulkValues& later)
{
    if (addSameRuns(later))
        return;
    std::vector<Single> singles = singlesOf(*this);
    const std::vector<Single> laterSingles = singlesOf(later);
    singles.insert(singles.end(), laterSingles.begin(), laterSingles.end());
    std::ranges::stable_sort(singles, {}, &Single::number);
    *this = BulkValues();
    for (std::size_t at = 0; at < singles.size();) {
        Single whole = singles[at];
        for (++at; at < singles.size() && singles[at].number == whole.number; ++at)
            whole.append(singles[at]);
        add(whole);
    }
}

std::vector<BulkValues::Single> BulkValues::singlesOf(const BulkValues& values)
{
    std::vector<Single> singles;
    for (const Run& run : values.runs_) {
        for (std::uint64_t number = run.first; number < run.first + run.count; ++number)
            singles.push_back({number, false, run.by, {}});
    }
    for (const Other& other : values.others_)
        singles.push_back({other.number, true, 0, other.value});
    return singles;
}

/// Numbers must come ascending.
void BulkValues::add(const Single& single)
{
    if (single.kept) {
        others_.push_back({single.number, single.other});
        return;
    }
    if (single.by == 0)
        return;
    if (!runs_.empty()) {
        Run& last = runs_.back();
        if (last.first + last.count == single.number && last.by == single.by) {
            ++last.count;
            return;
        }
    }
    runs_.push_back({single.number, 1, single.by});
}

/// The usual case while something is dragged: the same persons move once more.
bool BulkValues::addSameRuns(const BulkValues& later)
{
    const auto samePersons = [](const Run& a, const Run& b) { return a.first == b.first && a.count == b.count; };
    if (!others_.empty() || !later.others_.empty() || !std::ranges::equal(runs_, later.runs_, samePersons))
        return false;
    for (std::size_t at = 0; at < runs_.size(); ++at)
        runs_[at].by = wrappingSum(runs_[at].by, later.runs_[at].by);
    std::erase_if(runs_, [](const Run& run) { return run.by == 0; });
    return true;
}

} // namespace lineara
