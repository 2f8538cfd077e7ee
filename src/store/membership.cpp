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

Failure pictureOfTwo(const RawPic& pic)
{
    return Failure{StoreTexts::tr("object z%1: the picture belongs to two persons.").arg(pic.number)};
}

Outcome<std::vector<std::uint32_t>> pairPictures(const RawFamily& family, const IdIndex& index, QStringList& repairs)
{
    std::vector<std::uint32_t> picOf(family.persons.size());
    std::vector<std::optional<PersonIndex>> ownerOf(family.pics.size());
    for (std::size_t person = 0; person < family.persons.size(); ++person) {
        const auto& raw = family.persons[person];
        const auto pic = find(raw.pic, Kind::Pic, raw.number, u"pic"_qs, index);
        if (pic.failed())
            return pic.failure();
        if (!pic.value())
            continue;
        if (ownerOf[*pic.value()])
            return pictureOfTwo(family.pics[*pic.value()]);
        ownerOf[*pic.value()] = static_cast<PersonIndex>(person);
        picOf[person] = *pic.value() + 1;
    }
    for (std::size_t pic = 0; pic < family.pics.size(); ++pic) {
        const auto& raw = family.pics[pic];
        const auto person = find(raw.person, Kind::Person, raw.number, u"person"_qs, index);
        if (person.failed())
            return person.failure();
        if (person.value() == ownerOf[pic])
            continue;
        tellRepair(
            repairs,
            StoreTexts::tr("Only one side of the link between picture z%1 and its person was there; it was completed.")
                .arg(raw.number));
        if (!person.value())
            continue;
        if (ownerOf[pic] || picOf[*person.value()] != 0)
            return pictureOfTwo(raw);
        picOf[*person.value()] = static_cast<std::uint32_t>(pic) + 1;
    }
    return picOf;
}

} // namespace

Outcome<Membership> resolveMembership(RawFamily& family, const IdIndex& index, QStringList& repairs)
{
    auto lists = resolve(family.members, family, index, u"persons"_qs);
    if (lists.failed())
        return lists.failure();
    auto members = PoolMembers(family, repairs).settle(lists.value(), index);
    if (members.failed())
        return members.failure();
    auto pics = pairPictures(family, index, repairs);
    if (pics.failed())
        return pics.failure();
    if (family.pools.empty() && !family.persons.empty()) {
        if (family.nextNumber > highestNumber)
            return Failure{StoreTexts::tr("it holds persons without a pool, and no number is left for a new one.")};
        repairs += StoreTexts::tr("The file held persons without a pool; all of them were taken into a new one.");
        family.pools.push_back(family.nextNumber++);
        std::vector<PersonIndex> everybody(family.persons.size());
        std::iota(everybody.begin(), everybody.end(), 0U);
        members.value().append(everybody);
    }
    return Membership{std::move(members.value()), std::move(pics.value())};
}

} // namespace lineara::store
