#pragma once

#include "raw_family.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace lineara::store {

enum class Kind : std::uint8_t
{
    Person,
    Pool,
    Pic,
    Source,
    Unknown
};

/// Where a record stands among those of its kind.
struct Place
{
    Kind kind = Kind::Unknown;
    std::uint32_t index = 0;
};

/// Finds records by number: an array while the numbers are dense, a search among sorted numbers otherwise.
class IdIndex
{
public:
    explicit IdIndex(const RawFamily& family);

    std::optional<Place> find(Number number) const;

    /// A number that two objects share, or no value.
    std::optional<Number> duplicate() const { return duplicate_; }

    /// 0 if there is no object.
    Number highest() const { return highest_; }

private:
    struct Entry
    {
        Number number;
        Place place;
    };

    void fillArray(const std::vector<Entry>& entries);
    void sortEntries(std::vector<Entry> entries);

    std::vector<std::uint32_t> slots_; ///< by number: 0 or the position in places_ plus 1
    std::vector<Place> places_;
    std::vector<Entry> sorted_;
    Number highest_ = 0;
    std::optional<Number> duplicate_;
};

} // namespace lineara::store
