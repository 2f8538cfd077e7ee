#pragma once

#include "model/changes.h"
#include "model/journal.h"
#include "model/person.h"
#include "model/pic.h"
#include "model/pool.h"
#include "model/source_record.h"
#include "platform/observer_list.h"

#include <QUuid>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace lineara {

struct LinkPlaces;
class RecordTable;

/// Owns every record of one family file, keeps both sides of every link, reports each change at once as one typed
/// event and journals it. Main thread only.
class ObjectContext
{
public:
    /// The first record gets number 101.
    explicit ObjectContext(QUuid storeUuid = QUuid::createUuid());
    ~ObjectContext();
    ObjectContext(const ObjectContext&) = delete;
    ObjectContext& operator=(const ObjectContext&) = delete;

    const QUuid& storeUuid() const { return storeUuid_; }
    std::uint64_t nextNumber() const { return nextNumber_; }

    Pool& insertPool();
    /// A new person belongs to no pool, has no generation and no x.
    Person& insertPerson(PersonValues values = {});
    Pic& insertPic();
    /// Keeps a record of an imported genealogy; its text is made writable, see SourceRecord::text().
    SourceRecord& insertSource(SourceOrigin origin, QByteArray text);

    /// Deletes the record after taking it out of every relationship. A person's Pic and SourceRecord
    /// go with it.
    void remove(Record& record);

    /// The record of that number and entity, or nullptr if there is none (any more).
    Person* person(RecordId id) const;
    Pool* pool(RecordId id) const;
    Pic* pic(RecordId id) const;
    SourceRecord* source(RecordId id) const;

    /// All records of an entity, oldest number first.
    std::vector<Person*> allPersons() const;
    std::vector<Pool*> allPools() const;
    std::vector<Pic*> allPics() const;
    /// In the order of the imported files.
    std::vector<SourceRecord*> allSources() const;

    /// Sets one attribute of many persons: one event, one journal entry. Both spans have the same length.
    /// `attribute` is Generation or X.
    void setMany(PersonAttribute attribute, std::span<Person* const> persons,
                 std::span<const std::optional<std::int32_t>> values);

    /// Subtracts `points` from the x of every person of the pool (absent reads as 0): one event, and a journal entry
    /// whose size does not grow with the family. Whole numbers wrap at 32 bits.
    void shiftX(Pool& pool, std::int32_t points);

    /// Calls `observer` on every change until the returned subscription is destroyed.
    [[nodiscard]] Subscription observe(std::function<void(const Change&)> observer);

    /// Called once whenever a person comes to life, by insertion, by being read from a file, or brought back by undo or
    /// redo: the place where the canvas side makes the person's node, ahead of the RecordInserted event. Persons that
    /// are there already come to life now, in number order.
    void setAwakening(std::function<void(Person&)> awakening);

    Journal& journal() { return journal_; }
    const Journal& journal() const { return journal_; }

    /// Elements of the file that this version does not know: objects (by position among the objects) and metadata.
    const std::vector<UnknownElement>& unknownObjects() const { return unknownObjects_; }
    const std::vector<UnknownElement>& unknownInfo() const { return unknownInfo_; }

private:
    friend class ContextLoader;
    friend struct JournalEntry;
    friend class Journal;
    friend class Person;
    friend class Pool;
    friend class Pic;
    friend class Visit;

    template<class T>
    T* find(RecordId id, Entity entity) const;
    template<class T>
    std::vector<T*> all(Entity entity) const;
    RecordId takeNumber() { return {nextNumber_++}; }

    // Every change is one of these: it alters the records, journals itself and is then reported.
    Record& attach(std::unique_ptr<Record> record);
    [[nodiscard]] std::unique_ptr<Record> detach(Record& record);
    void setAttribute(Person& person, PersonAttribute attribute, AttributeValue value);
    void setPicData(Pic& pic, QByteArray data);
    void link(Relationship relationship, Record& owner, Record& member);
    void link(Relationship relationship, Record& owner, Record& member, LinkPlaces places);
    void unlink(Relationship relationship, Record& owner, Record& member);

    void removeLinks(Record& record);
    void makeRoom(Relationship relationship, Record& owner, Record& member);
    void reportLink(const LinkChanged& change);
    void wake(Person& person);
    void report(const Change& change);

    QUuid storeUuid_;
    std::uint64_t nextNumber_ = 101;
    std::unique_ptr<RecordTable> records_;
    ObserverList<Change> observers_;
    std::function<void(Person&)> awakening_;
    mutable std::uint32_t lastVisit_ = 0;
    Journal journal_{*this};
    std::vector<UnknownElement> unknownObjects_;
    std::vector<UnknownElement> unknownInfo_;
};

} // namespace lineara
