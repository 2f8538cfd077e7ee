#include "model/object_context.h"

#include "journal_entry.h"
#include "model/text_hygiene.h"
#include "record_table.h"

#include <utility>

namespace lineara {

ObjectContext::ObjectContext(QUuid storeUuid) : storeUuid_(storeUuid), records_(std::make_unique<RecordTable>()) {}

ObjectContext::~ObjectContext() = default;

Pool& ObjectContext::insertPool()
{
    return static_cast<Pool&>(attach(std::unique_ptr<Record>(new Pool(*this, takeNumber()))));
}

Person& ObjectContext::insertPerson(PersonValues values)
{
    std::unique_ptr<Person> person(new Person(*this, takeNumber()));
    person->values_ = std::move(values);
    person->values_.name = writableText(std::move(person->values_.name));
    person->values_.additional = writableText(std::move(person->values_.additional));
    return static_cast<Person&>(attach(std::move(person)));
}

Pic& ObjectContext::insertPic()
{
    return static_cast<Pic&>(attach(std::unique_ptr<Record>(new Pic(*this, takeNumber()))));
}

SourceRecord& ObjectContext::insertSource(SourceOrigin origin, QByteArray text)
{
    return static_cast<SourceRecord&>(
        attach(std::unique_ptr<Record>(new SourceRecord(*this, takeNumber(), std::move(origin), std::move(text)))));
}

void ObjectContext::remove(Record& record)
{
    removeLinks(record);
    const std::uint64_t number = record.recordId().number;
    journal_.note({RecordEntry{number, detach(record), false}});
}

template<class T>
T* ObjectContext::find(RecordId id, Entity entity) const
{
    Record* const record = records_->find(id.number);
    return record && record->entity() == entity ? static_cast<T*>(record) : nullptr;
}

Person* ObjectContext::person(RecordId id) const
{
    return find<Person>(id, Entity::Person);
}

Pool* ObjectContext::pool(RecordId id) const
{
    return find<Pool>(id, Entity::Pool);
}

Pic* ObjectContext::pic(RecordId id) const
{
    return find<Pic>(id, Entity::Pic);
}

SourceRecord* ObjectContext::source(RecordId id) const
{
    return find<SourceRecord>(id, Entity::Source);
}

template<class T>
std::vector<T*> ObjectContext::all(Entity entity) const
{
    std::vector<T*> found;
    records_->forEach([&](Record& record) {
        if (record.entity() == entity)
            found.push_back(static_cast<T*>(&record));
    });
    return found;
}

std::vector<Person*> ObjectContext::allPersons() const
{
    return all<Person>(Entity::Person);
}

std::vector<Pool*> ObjectContext::allPools() const
{
    return all<Pool>(Entity::Pool);
}

std::vector<Pic*> ObjectContext::allPics() const
{
    return all<Pic>(Entity::Pic);
}

std::vector<SourceRecord*> ObjectContext::allSources() const
{
    return all<SourceRecord>(Entity::Source);
}

Subscription ObjectContext::observe(std::function<void(const Change&)> observer)
{
    return observers_.add(std::move(observer));
}

void ObjectContext::setAwakening(std::function<void(Person&)> awakening)
{
    awakening_ = std::move(awakening);
    records_->forEach([this](Record& record) {
        if (record.entity() == Entity::Person)
            wake(static_cast<Person&>(record));
    });
}

void ObjectContext::wake(Person& person)
{
    if (!awakening_ || person.awake_)
        return;
    person.awake_ = true;
    awakening_(person);
}

Record& ObjectContext::attach(std::unique_ptr<Record> record)
{
    Record& attached = *record;
    records_->insert(std::move(record));
    journal_.note({RecordEntry{attached.recordId().number, nullptr, true}});
    if (attached.entity() == Entity::Person)
        wake(static_cast<Person&>(attached));
    report(RecordInserted{attached});
    return attached;
}

std::unique_ptr<Record> ObjectContext::detach(Record& record)
{
    report(RecordRemoved{record});
    if (record.entity() == Entity::Person)
        static_cast<Person&>(record).awake_ = false;
    return records_->take(record.recordId().number);
}

void ObjectContext::report(const Change& change)
{
    observers_.report(change);
}

} // namespace lineara
