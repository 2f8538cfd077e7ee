#include "record_table.h"

#include <algorithm>
#include <utility>

namespace lineara {

void RecordTable::insert(std::unique_ptr<Record> record)
{
    const std::uint64_t number = record->recordId().number;
    const std::size_t at = position(number);
    if (standsAt(at, number))
        slots_[at].record = std::move(record);
    else
        slots_.insert(slots_.begin() + static_cast<std::ptrdiff_t>(at), Slot{number, std::move(record)});
}

void RecordTable::append(std::unique_ptr<Record> record)
{
    const std::uint64_t number = record->recordId().number;
    slots_.push_back({number, std::move(record)});
}

void RecordTable::sort()
{
    const auto number = [](const Slot& slot) { return slot.number; };
    if (!std::ranges::is_sorted(slots_, {}, number))
        std::ranges::sort(slots_, {}, number);
}

Record* RecordTable::find(std::uint64_t number) const
{
    const std::size_t at = position(number);
    return standsAt(at, number) ? slots_[at].record.get() : nullptr;
}

std::unique_ptr<Record> RecordTable::take(std::uint64_t number)
{
    return std::move(slots_[position(number)].record);
}

std::size_t RecordTable::position(std::uint64_t number) const
{
    if (slots_.empty() || slots_.back().number < number)
        return slots_.size();
    if (standsAt(lastFound_ + 1, number))
        return ++lastFound_;
    // Families whose numbers leave no gaps, which is most of them, need no search.
    const std::size_t withoutGaps = number - slots_.front().number;
    if (standsAt(withoutGaps, number))
        return lastFound_ = withoutGaps;
    const auto found = std::ranges::lower_bound(slots_, number, {}, [](const Slot& slot) { return slot.number; });
    lastFound_ = static_cast<std::size_t>(found - slots_.begin());
    return lastFound_;
}

} // namespace lineara
