#pragma once

#include "model/record.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace lineara {

class Pool;

/// A copy of a family's rows as they were at some time, for telling what has changed since. Row 0 is that of persons
/// without links. Rows are sets: the order within a row is no matter.
class KnownRows
{
public:
    using Rows = std::vector<std::vector<RecordId>>;

    const Rows& rows() const { return rows_; }
    void take(const Rows& rows);

    /// The rows of `now` from 1 up that are new, ascending: none of the known rows from 1 up, at whatever index, is the
    /// same set of persons. All rows from 1 up while not more than one row is known. Linear in the persons.
    std::vector<std::int32_t> changedRows(const Rows& now) const;

    /// Which of these persons, who form the row at that index now, stood in it before. A row may have moved to another
    /// index: it continues the known row from 1 up that most of the persons come from; of several, the one at the same
    /// index, else the lowest.
    std::vector<bool> stoodInRow(std::int32_t row, std::span<const RecordId> persons) const;

    /// By how many rows up everybody moved who had a row from 1 up and still has one; 0 unless all moved alike.
    std::int64_t commonShift(const Pool& pool) const;

private:
    bool isKnown(const std::vector<RecordId>& row) const;
    void indexPersons() const;

    Rows rows_;
    // Both made when first asked for.
    mutable std::unordered_multimap<std::uint64_t, std::size_t> rowsByContent_;
    mutable std::unordered_map<RecordId, std::int32_t> rowOfPerson_;
};

} // namespace lineara
