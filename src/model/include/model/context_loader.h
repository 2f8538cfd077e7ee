#pragma once

#include "model/object_context.h"

#include <memory>
#include <vector>

namespace lineara {

/// Fills a new context from a file that names both sides of every link: no events, no journal, no bookkeeping of
/// inverses. The caller has checked that both sides agree, that nobody is named twice in a set, and that the parents
/// hold no cycle. Orders given here are the orders the sets enumerate in.
class ContextLoader
{
public:
    ContextLoader(QUuid storeUuid, std::uint64_t nextNumber, std::size_t expectedRecords);
    ~ContextLoader();

    /// Numbers must be distinct over all entities.
    Person& addPerson(RecordId id, PersonValues values);
    Pool& addPool(RecordId id);
    Pic& addPic(RecordId id, QByteArray data);
    SourceRecord& addSource(RecordId id, SourceOrigin origin, QByteArray text);

    void setParents(Person& person, std::vector<Person*> parents);
    void setChildren(Person& person, std::vector<Person*> children);
    void setPartners(Person& person, std::vector<Person*> partners);
    /// Sets the pool of each member as well.
    void setMembers(Pool& pool, std::vector<Person*> members);
    /// Sets both sides.
    void setPic(Person& person, Pic& pic);
    void setSource(Person& person, SourceRecord& source);

    void setUnknown(Record& record, std::vector<UnknownElement> elements);
    void setUnknownObjects(std::vector<UnknownElement> objects);
    void setUnknownInfo(std::vector<UnknownElement> info);

    /// Hands the context over. The persons come to life when its awakening is set.
    std::unique_ptr<ObjectContext> finish();

private:
    std::unique_ptr<ObjectContext> context_;
};

} // namespace lineara
