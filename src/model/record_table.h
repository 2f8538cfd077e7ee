#pragma once

#include "model/record.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace lineara {

/// The records of a context by number, in number order.
///
/// A sorted array: numbers are given out ascending, and most walks over the family ask for them about in that order,
/// so looking at the neighbour of the last answer first beats any hashing. A record that is taken out leaves its slot
/// behind for the undo that brings it back.
class RecordTable
{
public:
    void reserve(std::size_t records) { slots_.reserve(records); }

    /// The number must not be in the table.
    void insert(std::unique_ptr<Record> record);

    /// Adds at the end without regard to order; sort() must follow before anything is looked up.
    void append(std::unique_ptr<Record> record);
    void sort();

    /// The record of that number, or nullptr.
    Record* find(std::uint64_t number) const;

    /// Takes the record out of the table; it must be there.
    std::unique_ptr<Record> take(std::uint64_t number);

    /// Calls `visit` with every record, lowest number first. The table may grow meanwhile.
    template<class Visitor>
    void forEach(Visitor visit) const
    {
        for (std::size_t at = 0; at < slots_.size(); ++at) {
            if (Record* const record = slots_[at].record.get())
                visit(*record);
        }
    }

private:
    struct Slot
    {
        std::uint64_t number;
        std::unique_ptr<Record> record;
    };

    bool standsAt(std::size_t position, std::uint64_t number) const
    {
        return position < slots_.size() && slots_[position].number == number;
    }
    /// Position of the first slot whose number is not below the given one.
    std::size_t position(std::uint64_t number) const;

    std::vector<Slot> slots_;
    mutable std::size_t lastFound_ = 0;
};

} // namespace lineara
