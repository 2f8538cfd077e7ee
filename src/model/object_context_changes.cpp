#include "attribute_value.h"
#include "journal_entry.h"
#include "model/object_context.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace lineara {

namespace {

PersonAttributes withDerived(PersonAttribute attribute)
{
    const bool isYear = attribute == PersonAttribute::BirthYear || attribute == PersonAttribute::DeathYear;
    return isYear ? attribute | PersonAttribute::Era : PersonAttributes(attribute);
}

bool isAbsent(const AttributeValue& value)
{
    return std::visit([](const auto& present) { return !present.has_value(); }, value);
}

} // namespace

void ObjectContext::setAttribute(Person& person, PersonAttribute attribute, AttributeValue value)
{
    if (valueOf(person.values_, attribute) == value)
        return;
    const bool becameAbsent = isAbsent(value);
    AttributeValue before = exchange(person.values_, attribute, std::move(value));
    journal_.note({ValueEntry{person.recordId().number, std::move(before), attribute, becameAbsent}});
    report(AttributesChanged{person, withDerived(attribute)});
}

void ObjectContext::setMany(PersonAttribute attribute, std::span<Person* const> persons,
                            std::span<const std::optional<std::int32_t>> values)
{
    assert(persons.size() == values.size());
    const NumberMember member = numberMember(attribute);
    const bool recording = journal_.recording();
    std::vector<Person*> changed;
    std::vector<BulkValues::Change> changes;
    for (std::size_t at = 0; at < persons.size(); ++at) {
        std::optional<std::int32_t>& value = persons[at]->values_.*member;
        if (value == values[at])
            continue;
        if (recording)
            changes.push_back({persons[at]->recordId().number, value, values[at]});
        value = values[at];
        changed.push_back(persons[at]);
    }
    if (changed.empty())
        return;
    if (recording)
        journal_.note({BulkEntry{attribute, BulkValues(std::move(changes))}});
    report(ManyChanged{changed, attribute});
}

void ObjectContext::shiftX(Pool& pool, std::int32_t points)
{
    std::vector<BulkValues::Other> absent;
    for (Person* const person : pool.persons_) {
        std::optional<std::int32_t>& x = person->values_.x;
        if (!x)
            absent.push_back({person->recordId().number, std::nullopt});
        x = wrappingDifference(x.value_or(0), points);
    }
    if (pool.persons_.empty() || (points == 0 && absent.empty()))
        return;
    std::ranges::sort(absent, {}, &BulkValues::Other::number);
    journal_.note({ShiftEntry{pool.recordId().number, points, std::move(absent)}});
    report(ManyChanged{pool.persons_.span(), PersonAttribute::X, wrappingDifference(0, points)});
}

void ObjectContext::setPicData(Pic& pic, QByteArray data)
{
    if (pic.data_ == data && pic.data_.isNull() == data.isNull())
        return;
    std::swap(pic.data_, data);
    journal_.note({PicDataEntry{pic.recordId().number, std::move(data)}});
    if (pic.person_)
        pic.person_->image_.reset();
    report(PicDataChanged{pic});
    if (pic.person_)
        report(AttributesChanged{*pic.person_, PersonAttribute::Image});
}

void ObjectContext::link(Relationship relationship, Record& owner, Record& member, LinkPlaces places)
{
    assert(&owner.context() == this && &member.context() == this);
    if (&owner == &member || LinkSides::linked(relationship, owner, member))
        return;
    makeRoom(relationship, owner, member);
    const LinkPlaces stand = LinkSides::join(relationship, owner, member, places);
    journal_.note({LinkEntry{owner.recordId().number, member.recordId().number, stand, relationship, true}});
    reportLink({relationship, owner, member, true});
}

void ObjectContext::link(Relationship relationship, Record& owner, Record& member)
{
    link(relationship, owner, member, LinkPlaces());
}

void ObjectContext::unlink(Relationship relationship, Record& owner, Record& member)
{
    if (!LinkSides::linked(relationship, owner, member))
        return;
    const LinkPlaces stood = LinkSides::part(relationship, owner, member);
    journal_.note({LinkEntry{owner.recordId().number, member.recordId().number, stood, relationship, false}});
    reportLink({relationship, owner, member, false});
}

void ObjectContext::reportLink(const LinkChanged& change)
{
    if (change.relationship != Relationship::PersonPic) {
        report(change);
        return;
    }
    auto& person = static_cast<Person&>(change.owner);
    person.image_.reset();
    report(change);
    report(AttributesChanged{person, PersonAttribute::Image});
}

/// A person has one pool, one picture and one source, and each of the latter two one person: whoever held the place
/// before lets go of it.
void ObjectContext::makeRoom(Relationship relationship, Record& owner, Record& member)
{
    if (relationship == Relationship::PoolMembers) {
        if (Pool* const before = static_cast<Person&>(member).pool_)
            unlink(relationship, *before, member);
    } else if (relationship == Relationship::PersonPic) {
        if (Pic* const before = static_cast<Person&>(owner).pic_)
            unlink(relationship, owner, *before);
        if (Person* const before = static_cast<Pic&>(member).person_)
            unlink(relationship, *before, member);
    } else if (relationship == Relationship::PersonSource) {
        if (SourceRecord* const before = static_cast<Person&>(owner).source_)
            unlink(relationship, owner, *before);
        if (Person* const before = static_cast<SourceRecord&>(member).person_)
            unlink(relationship, *before, member);
    }
}

void ObjectContext::removeLinks(Record& record)
{
    switch (record.entity()) {
    case Entity::Person: {
        auto& person = static_cast<Person&>(record);
        person.disconnect();
        if (person.pool_)
            unlink(Relationship::PoolMembers, *person.pool_, person);
        person.removePic();
        if (person.source_)
            remove(*person.source_);
        break;
    }
    case Entity::Pool: {
        Pool& pool = static_cast<Pool&>(record);
        while (!pool.persons_.empty())
            unlink(Relationship::PoolMembers, pool, *pool.persons_[pool.persons_.size() - 1]);
        break;
    }
    case Entity::Pic:
        if (Person* const person = static_cast<Pic&>(record).person_)
            unlink(Relationship::PersonPic, *person, record);
        break;
    case Entity::Source:
        if (Person* const person = static_cast<SourceRecord&>(record).person_)
            unlink(Relationship::PersonSource, *person, record);
        break;
    }
}

} // namespace lineara
