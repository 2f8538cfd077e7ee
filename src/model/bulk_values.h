#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara {

/// How one whole-number attribute of many persons changed, kept so that it can be taken back and made again.
///
/// Persons of neighbouring numbers that moved by the same amount share one entry, so that a family that goes up a row
/// as a whole costs a few bytes. Where a value was or became absent, the value of the other side is kept instead.
class BulkValues
{
public:
    /// Every person of `count` numbers from `first` on moved by `by`.
    struct Run
    {
        std::uint64_t first;
        std::uint32_t count;
        std::int32_t by;
        friend bool operator==(const Run&, const Run&) = default;
    };

    /// The value that the person does not have at the moment.
    struct Other
    {
        std::uint64_t number;
        std::optional<std::int32_t> value;
        friend bool operator==(const Other&, const Other&) = default;
    };

    /// What happened to one person.
    struct Change
    {
        std::uint64_t number;
        std::optional<std::int32_t> before;
        std::optional<std::int32_t> after;
    };

    BulkValues() = default;
    /// A person may be named several times; the changes then follow one another.
    explicit BulkValues(std::vector<Change> changes);

    bool empty() const { return runs_.empty() && others_.empty(); }
    const std::vector<Run>& runs() const { return runs_; }
    std::vector<Other>& others() { return others_; }

    /// Makes this the change that it was, followed directly by `later`.
    void append(const BulkValues& later);

private:
    struct Single;
    static std::vector<Single> singlesOf(const BulkValues& values);
    void add(const Single& single);
    bool addSameRuns(const BulkValues& later);

    std::vector<Run> runs_;
    std::vector<Other> others_;
};

} // namespace lineara
