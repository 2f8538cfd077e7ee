#include "replayed_changes.h"

#include "model/person.h"

namespace lineara {

void ReplayedChanges::add(const Change& change)
{
    if (const auto* const one = std::get_if<AttributesChanged>(&change)) {
        addAttributes(one->attributes);
        concern(one->person.recordId(), Reason::Attribute);
    } else if (const auto* const many = std::get_if<ManyChanged>(&change)) {
        addAttributes(many->attributes);
        if ((many->attributes & PersonAttribute::X) && many->shift == 0)
            moved += many->persons.size();
    } else if (const auto* const link = std::get_if<LinkChanged>(&change)) {
        add(*link);
    } else if (const auto* const inserted = std::get_if<RecordInserted>(&change)) {
        addRecord(inserted->record);
    } else if (const auto* const removed = std::get_if<RecordRemoved>(&change)) {
        addRecord(removed->record);
    }
}

void ReplayedChanges::add(const LinkChanged& link)
{
    if (link.relationship == Relationship::PersonPic || link.relationship == Relationship::PersonSource)
        return;
    rows = true;
    members = members || link.relationship == Relationship::PoolMembers;
    concern(link.member.recordId(), Reason::Link);
}

void ReplayedChanges::addAttributes(PersonAttributes attributes)
{
    rows = rows || attributes.testFlag(PersonAttribute::Generation);
}

void ReplayedChanges::addRecord(const Record& record)
{
    if (record.entity() != Entity::Person)
        return;
    members = true;
    rows = true;
    concern(record.recordId(), Reason::Record);
}

/// Whoever comes or goes says more about a step than who is linked, and that more than whose place changed.
void ReplayedChanges::concern(RecordId person, Reason reason)
{
    if (reason < reason_)
        return;
    concerned = person;
    reason_ = reason;
}

} // namespace lineara
