#include "model/context_loader.h"

#include "model/text_hygiene.h"
#include "record_table.h"

#include <utility>

namespace lineara {

ContextLoader::ContextLoader(QUuid storeUuid, std::uint64_t nextNumber, std::size_t expectedRecords)
    : context_(std::make_unique<ObjectContext>(storeUuid))
{
    context_->nextNumber_ = nextNumber;
    context_->records_->reserve(expectedRecords);
}

ContextLoader::~ContextLoader() = default;

Person& ContextLoader::addPerson(RecordId id, PersonValues values)
{
    std::unique_ptr<Person> owner(new Person(*context_, id));
    Person& person = *owner;
    person.values_ = std::move(values);
    person.values_.name = writableText(std::move(person.values_.name));
    person.values_.additional = writableText(std::move(person.values_.additional));
    context_->records_->append(std::move(owner));
    return person;
}

Pool& ContextLoader::addPool(RecordId id)
{
    std::unique_ptr<Pool> owner(new Pool(*context_, id));
    Pool& pool = *owner;
    context_->records_->append(std::move(owner));
    return pool;
}

Pic& ContextLoader::addPic(RecordId id, QByteArray data)
{
    std::unique_ptr<Pic> owner(new Pic(*context_, id));
    Pic& pic = *owner;
    pic.data_ = std::move(data);
    context_->records_->append(std::move(owner));
    return pic;
}

SourceRecord& ContextLoader::addSource(RecordId id, SourceOrigin origin, QByteArray text)
{
    std::unique_ptr<SourceRecord> owner(new SourceRecord(*context_, id, std::move(origin), std::move(text)));
    SourceRecord& source = *owner;
    context_->records_->append(std::move(owner));
    return source;
}

void ContextLoader::setParents(Person& person, std::vector<Person*> parents)
{
    person.parents_.assignDistinct(std::move(parents));
}

void ContextLoader::setChildren(Person& person, std::vector<Person*> children)
{
    person.children_.assignDistinct(std::move(children));
}

void ContextLoader::setPartners(Person& person, std::vector<Person*> partners)
{
    person.partners_.assignDistinct(std::move(partners));
}

void ContextLoader::setMembers(Pool& pool, std::vector<Person*> members)
{
    for (Person* const member : members)
        member->pool_ = &pool;
    pool.persons_.assignDistinct(std::move(members));
}

void ContextLoader::setPic(Person& person, Pic& pic)
{
    person.pic_ = &pic;
    pic.person_ = &person;
}

void ContextLoader::setSource(Person& person, SourceRecord& source)
{
    person.source_ = &source;
    source.person_ = &person;
}

void ContextLoader::setUnknown(Record& record, std::vector<UnknownElement> elements)
{
    switch (record.entity()) {
    case Entity::Person:
        static_cast<Person&>(record).unknown_ = std::make_unique<std::vector<UnknownElement>>(std::move(elements));
        break;
    case Entity::Pool:
        static_cast<Pool&>(record).unknown_ = std::move(elements);
        break;
    case Entity::Pic:
        static_cast<Pic&>(record).unknown_ = std::move(elements);
        break;
    case Entity::Source:
        static_cast<SourceRecord&>(record).unknown_ =
            std::make_unique<std::vector<UnknownElement>>(std::move(elements));
        break;
    }
}

void ContextLoader::setUnknownObjects(std::vector<UnknownElement> objects)
{
    context_->unknownObjects_ = std::move(objects);
}

void ContextLoader::setUnknownInfo(std::vector<UnknownElement> info)
{
    context_->unknownInfo_ = std::move(info);
}

std::unique_ptr<ObjectContext> ContextLoader::finish()
{
    context_->records_->sort();
    return std::move(context_);
}

} // namespace lineara
