#include "journal_entry.h"

#include "attribute_value.h"
#include "model/object_context.h"
#include "record_table.h"

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

using Other = BulkValues::Other;

/// Moves persons by their distance and exchanges where a value was or became absent, and collects who changed.
class Mover
{
public:
    Mover(PersonAttribute attribute, std::vector<Person*>& changed)
        : member_(numberMember(attribute)), changed_(changed)
    {}

    void move(PersonValues& values, Person& person, std::int32_t by)
    {
        std::optional<std::int32_t>& value = values.*member_;
        if (!value || by == 0)
            return;
        value = wrappingSum(*value, by);
        changed_.push_back(&person);
    }

    void exchange(PersonValues& values, Person& person, Other& other)
    {
        if (values.*member_ == other.value)
            return;
        std::swap(values.*member_, other.value);
        changed_.push_back(&person);
    }

private:
    NumberMember member_;
    std::vector<Person*>& changed_;
};

Entity memberEntity(Relationship relationship)
{
    return relationship == Relationship::PersonPic      ? Entity::Pic
           : relationship == Relationship::PersonSource ? Entity::Source
                                                        : Entity::Person;
}

std::int32_t directed(std::int32_t by, Replay direction)
{
    return direction == Replay::Redo ? by : wrappingDifference(0, by);
}

} // namespace

void JournalEntry::replay(ObjectContext& context, Replay direction)
{
    std::visit([&](auto& entry) { replay(entry, context, direction); }, change);
}

Record* JournalEntry::recordOf(Entity entity, std::uint64_t number, const ObjectContext& context)
{
    Record* const record = context.records_->find(number);
    return record && record->entity() == entity ? record : nullptr;
}

void JournalEntry::replay(ValueEntry& entry, ObjectContext& context, Replay)
{
    Person* const person = context.person({entry.person});
    if (!person)
        return;
    AttributeValue present = valueOf(person->values(), entry.attribute);
    context.setAttribute(*person, entry.attribute, std::exchange(entry.other, std::move(present)));
}

void JournalEntry::replay(BulkEntry& entry, ObjectContext& context, Replay direction)
{
    std::vector<Person*> changed;
    Mover mover(entry.attribute, changed);
    for (const BulkValues::Run& run : entry.values.runs()) {
        for (std::uint64_t number = run.first; number < run.first + run.count; ++number) {
            if (Person* const person = context.person({number}))
                mover.move(person->values_, *person, directed(run.by, direction));
        }
    }
    for (Other& other : entry.values.others()) {
        if (Person* const person = context.person({other.number}))
            mover.exchange(person->values_, *person, other);
    }
    if (!changed.empty())
        context.report(ManyChanged{changed, entry.attribute});
}

void JournalEntry::replay(ShiftEntry& entry, ObjectContext& context, Replay direction)
{
    Pool* const pool = context.pool({entry.pool});
    if (!pool)
        return;
    const std::int32_t shift = directed(wrappingDifference(0, entry.points), direction);
    std::vector<Person*> changed;
    Mover mover(PersonAttribute::X, changed);
    for (Person* const person : pool->persons()) {
        const std::uint64_t number = person->recordId().number;
        const auto other = std::ranges::lower_bound(entry.others, number, {}, &Other::number);
        if (other != entry.others.end() && other->number == number)
            mover.exchange(person->values_, *person, *other);
        else
            mover.move(person->values_, *person, shift);
    }
    if (!changed.empty())
        context.report(ManyChanged{changed, PersonAttribute::X, shift});
}

void JournalEntry::replay(PicDataEntry& entry, ObjectContext& context, Replay)
{
    Pic* const pic = context.pic({entry.pic});
    if (!pic)
        return;
    QByteArray present = pic->data();
    context.setPicData(*pic, std::exchange(entry.other, std::move(present)));
}

void JournalEntry::replay(LinkEntry& entry, ObjectContext& context, Replay direction)
{
    const bool toPool = entry.relationship == Relationship::PoolMembers;
    Record* const owner = recordOf(toPool ? Entity::Pool : Entity::Person, entry.owner, context);
    Record* const member = recordOf(memberEntity(entry.relationship), entry.member, context);
    if (!owner || !member)
        return;
    if (entry.added == (direction == Replay::Redo))
        context.link(entry.relationship, *owner, *member, entry.places);
    else
        context.unlink(entry.relationship, *owner, *member);
}

void JournalEntry::replay(RecordEntry& entry, ObjectContext& context, Replay direction)
{
    if (entry.inserted == (direction == Replay::Redo))
        bringIn(entry, context);
    else
        takeOut(entry, context);
}

void JournalEntry::bringIn(RecordEntry& entry, ObjectContext& context)
{
    if (!entry.kept || context.records_->find(entry.number))
        return;
    if (entry.inserted)
        context.nextNumber_ = std::max(context.nextNumber_, entry.number + 1);
    context.attach(std::move(entry.kept));
}

void JournalEntry::takeOut(RecordEntry& entry, ObjectContext& context)
{
    Record* const record = context.records_->find(entry.number);
    if (!record)
        return;
    context.removeLinks(*record);
    entry.kept = context.detach(*record);
    // Records that came meanwhile without being journalled keep their numbers, and theirs must not be given out again.
    if (entry.inserted && context.nextNumber_ == entry.number + 1)
        context.nextNumber_ = entry.number;
}

bool JournalEntry::hasEffect(const ObjectContext& context) const
{
    if (const auto* const value = std::get_if<ValueEntry>(&change)) {
        const Person* const person = context.person({value->person});
        return person && valueOf(person->values(), value->attribute) != value->other;
    }
    if (const auto* const data = std::get_if<PicDataEntry>(&change)) {
        const Pic* const pic = context.pic({data->pic});
        return pic && (pic->data() != data->other || pic->data().isNull() != data->other.isNull());
    }
    return true;
}

} // namespace lineara
