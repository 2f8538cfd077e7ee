#pragma once

#include "date_entry.h"
#include "model/record.h"

#include <optional>
#include <unordered_map>

namespace lineara {

/// What was typed as the dates of one person and can't be dates.
struct RefusedDates
{
    std::optional<DateTexts> birth;
    std::optional<DateTexts> death;
    bool empty() const { return !birth && !death; }
};

/// Keeps what was refused while its row is closed, so that it can be mended when the row is opened again.
class RefusedEntries
{
public:
    /// Replaces what was kept for the person.
    void keep(RecordId person, const RefusedDates& dates)
    {
        if (dates.empty())
            kept_.erase(person);
        else
            kept_.insert_or_assign(person, dates);
    }

    RefusedDates of(RecordId person) const
    {
        const auto found = kept_.find(person);
        return found == kept_.end() ? RefusedDates() : found->second;
    }

    bool has(RecordId person) const { return kept_.contains(person); }

private:
    std::unordered_map<RecordId, RefusedDates> kept_;
};

} // namespace lineara
