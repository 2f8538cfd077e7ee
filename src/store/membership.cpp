#include "membership.h"

#include "repair_notes.h"

#include "numbers.h"
#include "store_texts.h"

#include <numeric>

namespace lineara::store {

namespace {

/// Fails if the reference names nothing or something of another kind. Without a reference there is no value.
Outcome<std::optional<std::uint32_t>> find(Number reference, Kind kind, Number owner, const QString& relationship,
                                           const IdIndex& index)
{
    if (reference == 0)
        return std::optional<std::uint32_t>();
    const auto place = index.find(reference);
    if (place && place->kind == kind)
        return std::optional(place->index);
    const auto reason =
        place ? StoreTexts::tr("which is of another type.") : StoreTexts::tr("which is not in the file.");
    return Failure{StoreTexts::tr("object z%1: relationship “%2” refers to z%3, %4")
                       .arg(owner)
                       .arg(relationship)
                       .arg(reference)
                       .arg(reason)};
}

/// Settles where each person belongs.
class PoolMembers
{
public:
    PoolMembers(const RawFamily& family, QStringList& repairs)
        : family_(family), repairs_(repairs), home_(family.persons.size()), listed_(family.persons.size())
    {}

    Outcome<Lists<PersonIndex>> settle(const Lists<PersonIndex>& lists, const IdIndex& index)
    {
        for (std::size_t person = 0; person < family_.persons.size(); ++person) {
            const auto& raw = family_.persons[person];
            const auto pool = find(raw.pool, Kind::Pool, raw.number, u"pool"_qs, index);
            if (pool.failed())
                return pool.failure();
            home_[person] = pool.value();
        }
        std::vector<std::vector<PersonIndex>> members(family_.pools.size());
        for (std::size_t pool = 0; pool < lists.size(); ++pool)
            takeListed(static_cast<std::uint32_t>(pool), lists[pool], members[pool]);
        takeUnlisted(members);
        Lists<PersonIndex> result;
        for (const auto& list : members)
            result.append(list);
        return result;
    }

private:
    void takeListed(std::uint32_t pool, std::span<const PersonIndex> list, std::vector<PersonIndex>& members)
    {
        members.reserve(list.size());
        for (const auto person : list) {
            // The pool's list says it all, so a person need not name its pool.
            if (!home_[person])
                home_[person] = pool;
            if (home_[person] != pool || listed_[person]) {
                tell(person, StoreTexts::tr("was listed a second time, by pool z%1; that is left out.")
                                 .arg(family_.pools[pool]));
                continue;
            }
            listed_[person] = true;
            members.push_back(person);
        }
    }

    void takeUnlisted(std::vector<std::vector<PersonIndex>>& members)
    {
        for (std::size_t person = 0; person < home_.size(); ++person) {
            if (!home_[person] || listed_[person])
                continue;
            tell(person, StoreTexts::tr("was not listed by its pool z%1; the link was completed.")
                             .arg(family_.pools[*home_[person]]));
            members[*home_[person]].push_back(static_cast<PersonIndex>(person));
        }
    }

    void tell(std::size_t person, const QString& what)
    {
        tellRepair(repairs_, called(family_.persons[person]) + u' ' + what);
    }

    const RawFamily& family_;
    QStringList& repairs_;
    std::vector<std::optional<std::uint32_t>> home_;
    std::vector<bool> listed_;
};

/// A kind of record that belongs to one person: how both sides name each other, and the words for it.
template<class Owned>
struct Belonging
{
    std::vector<Owned> RawFamily::*records = nullptr;
    Number RawPerson::*ofPerson = nullptr;
    Kind kind = Kind::Person;
    QString relationship;
    QString ofTwo;
    QString completed;
    /// Says that the record of a person that is gone is left out; empty where such a record is refused.
    QString leftOut;
};

Belonging<RawPic> pictures()
{
    return {&RawFamily::pics,
            &RawPerson::pic,
            Kind::Pic,
            u"pic"_qs,
            StoreTexts::tr("object z%1: the picture belongs to two persons."),
            StoreTexts::tr("Only one side of the link between picture z%1 and its person was there; it was completed."),
            {}};
}

Belonging<RawSource> sources()
{
    return {
        &RawFamily::sources, &RawPerson::source, Kind::Source, u"sourceRecord"_qs,
        StoreTexts::tr("object z%1: the imported record belongs to two persons."),
        StoreTexts::tr(
            "Only one side of the link between imported record z%1 and its person was there; it was completed."),
        // A program of this model version may know nothing of such records, and leave one when it removes a person.
        StoreTexts::tr(
            "Person z%2, who was made of imported record z%1, is not in the file any more; the record was left out.")};
}

struct Pairs
{
    std::vector<std::uint32_t> recordOf; ///< by person: the position of its record plus 1, or 0
    std::vector<std::size_t> leftOut;    ///< positions of records of persons that are gone, ascending
};

/// Finds the one record of each person.
template<class Owned>
class Pairing
{
public:
    Pairing(const RawFamily& family, const IdIndex& index, Belonging<Owned> belonging)
        : family_(family), index_(index), belonging_(std::move(belonging)), records_(family.*belonging_.records),
          recordOf_(family.persons.size()), ownerOf_(records_.size())
    {}

    Outcome<Pairs> pair(QStringList& repairs)
    {
        if (auto asked = askPersons(); asked.failed())
            return asked.failure();
        if (auto asked = askRecords(repairs); asked.failed())
            return asked.failure();
        return Pairs{std::move(recordOf_), std::move(leftOut_)};
    }

private:
    Outcome<Done> askPersons()
    {
        for (std::size_t person = 0; person < family_.persons.size(); ++person) {
            const auto& raw = family_.persons[person];
            const auto record =
                find(raw.*belonging_.ofPerson, belonging_.kind, raw.number, belonging_.relationship, index_);
            if (record.failed())
                return record.failure();
            if (!record.value())
                continue;
            if (ownerOf_[*record.value()])
                return ofTwo(records_[*record.value()]);
            ownerOf_[*record.value()] = static_cast<PersonIndex>(person);
            recordOf_[person] = *record.value() + 1;
        }
        return Done{};
    }

    Outcome<Done> askRecords(QStringList& repairs)
    {
        for (std::size_t record = 0; record < records_.size(); ++record) {
            const auto& raw = records_[record];
            if (isOfSomebodyGone(raw)) {
                settleWithout(record, repairs);
                continue;
            }
            const auto person = find(raw.person, Kind::Person, raw.number, u"person"_qs, index_);
            if (person.failed())
                return person.failure();
            if (person.value() == ownerOf_[record])
                continue;
            tellRepair(repairs, belonging_.completed.arg(raw.number));
            if (!person.value())
                continue;
            if (ownerOf_[record] || recordOf_[*person.value()] != 0)
                return ofTwo(raw);
            recordOf_[*person.value()] = static_cast<std::uint32_t>(record) + 1;
        }
        return Done{};
    }

    bool isOfSomebodyGone(const Owned& record) const
    {
        return !belonging_.leftOut.isEmpty() && record.person != 0 && !index_.find(record.person);
    }

    /// Whoever names the record still has it.
    void settleWithout(std::size_t record, QStringList& repairs)
    {
        const auto& raw = records_[record];
        const bool isOwned = ownerOf_[record].has_value();
        tellRepair(repairs,
                   isOwned ? belonging_.completed.arg(raw.number) : belonging_.leftOut.arg(raw.number).arg(raw.person));
        if (!isOwned)
            leftOut_.push_back(record);
    }

    Failure ofTwo(const Owned& record) const { return Failure{belonging_.ofTwo.arg(record.number)}; }

    const RawFamily& family_;
    const IdIndex& index_;
    Belonging<Owned> belonging_;
    const std::vector<Owned>& records_;
    std::vector<std::uint32_t> recordOf_;
    std::vector<std::optional<PersonIndex>> ownerOf_;
    std::vector<std::size_t> leftOut_;
};

} // namespace

Outcome<Membership> resolveMembership(RawFamily& family, const IdIndex& index, QStringList& repairs)
{
    auto lists = resolve(family.members, family, index, u"persons"_qs);
    if (lists.failed())
        return lists.failure();
    auto members = PoolMembers(family, repairs).settle(lists.value(), index);
    if (members.failed())
        return members.failure();
    auto pics = Pairing(family, index, pictures()).pair(repairs);
    if (pics.failed())
        return pics.failure();
    auto records = Pairing(family, index, sources()).pair(repairs);
    if (records.failed())
        return records.failure();
    if (family.pools.empty() && !family.persons.empty()) {
        if (family.nextNumber > highestNumber)
            return Failure{StoreTexts::tr("it holds persons without a pool, and no number is left for a new one.")};
        repairs += StoreTexts::tr("The file held persons without a pool; all of them were taken into a new one.");
        family.pools.push_back(family.nextNumber++);
        std::vector<PersonIndex> everybody(family.persons.size());
        std::iota(everybody.begin(), everybody.end(), 0U);
        members.value().append(everybody);
    }
    return Membership{std::move(members.value()), std::move(pics.value().recordOf), std::move(records.value().recordOf),
                      std::move(records.value().leftOut)};
}

} // namespace lineara::store
