#include "journal_step.h"

#include "attribute_value.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace lineara {

void JournalStep::note(JournalEntry&& entry)
{
    if (!std::visit([this](auto& change) { return merge(change); }, entry.change))
        entries_.push_back(std::move(entry));
}

void JournalStep::append(JournalStep later)
{
    entries_.insert(entries_.end(), std::make_move_iterator(later.entries_.begin()),
                    std::make_move_iterator(later.entries_.end()));
}

void JournalStep::close()
{
    noted_ = {};
    entries_.shrink_to_fit();
}

bool JournalStep::hasEffect(const ObjectContext& context) const
{
    return std::ranges::any_of(entries_, [&](const JournalEntry& entry) { return entry.hasEffect(context); });
}

void JournalStep::undo(ObjectContext& context)
{
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry)
        entry->replay(context, Replay::Undo);
}

void JournalStep::redo(ObjectContext& context)
{
    for (JournalEntry& entry : entries_)
        entry.replay(context, Replay::Redo);
}

/// The entry that was there first holds the value from before the step; a later write adds nothing to it. Bulk entries
/// in between hold distances, which stay right as long as the value is present.
bool JournalStep::merge(ValueEntry& entry)
{
    return !firstOf(entry.person, entry.attribute) && !entry.becameAbsent;
}

bool JournalStep::merge(BulkEntry& entry)
{
    if (entry.values.empty())
        return true;
    auto* const before = last<BulkEntry>();
    if (!before || before->attribute != entry.attribute)
        return false;
    before->values.append(entry.values);
    if (before->values.empty())
        entries_.pop_back();
    return true;
}

bool JournalStep::merge(ShiftEntry& entry)
{
    auto* const before = last<ShiftEntry>();
    if (!before || before->pool != entry.pool)
        return false;
    before->points = wrappingSum(before->points, entry.points);
    for (BulkValues::Other& other : entry.others) {
        const auto place = std::ranges::lower_bound(before->others, other.number, {}, &BulkValues::Other::number);
        if (place == before->others.end() || place->number != other.number)
            before->others.insert(place, other);
    }
    if (before->points == 0 && before->others.empty())
        entries_.pop_back();
    return true;
}

bool JournalStep::merge(PicDataEntry& entry)
{
    return !firstOf(entry.pic, PersonAttribute::Image);
}

/// A link made and at once taken back, or the other way round, leaves the sets as they were.
bool JournalStep::merge(LinkEntry& entry)
{
    const auto* const before = last<LinkEntry>();
    const bool takesBack = before && before->relationship == entry.relationship && before->owner == entry.owner &&
                           before->member == entry.member && before->added != entry.added &&
                           before->places == entry.places;
    if (takesBack)
        entries_.pop_back();
    return takesBack;
}

bool JournalStep::merge(RecordEntry&)
{
    return false;
}

bool JournalStep::firstOf(std::uint64_t number, PersonAttributes attribute)
{
    PersonAttributes& noted = noted_[number];
    const bool first = !noted.testFlags(attribute);
    noted |= attribute;
    return first;
}

template<class Entry>
Entry* JournalStep::last()
{
    return entries_.empty() ? nullptr : std::get_if<Entry>(&entries_.back().change);
}

} // namespace lineara
