#include "link_sides.h"

#include "model/person.h"
#include "model/pic.h"
#include "model/pool.h"
#include "model/source_record.h"

#include <algorithm>

namespace lineara {

namespace {

using PersonSet = OrderedSet<Person*>;

template<class T>
T& as(Record& record)
{
    return static_cast<T&>(record);
}

template<class T>
const T& as(const Record& record)
{
    return static_cast<const T&>(record);
}

/// Searching the smaller side keeps a parent of thousands from being searched for each child.
bool eachOther(const PersonSet& ofOwner, const Person& member, const PersonSet& ofMember, const Person& owner)
{
    const auto holds = [](const PersonSet& set, const Person& person) {
        return std::ranges::find(set, &person) != set.end();
    };
    return ofOwner.size() < ofMember.size() ? holds(ofOwner, member) : holds(ofMember, owner);
}

std::uint32_t insert(PersonSet& set, Person& person, std::uint32_t place)
{
    const std::size_t position = std::min<std::size_t>(place, set.size());
    set.insertDistinctAt(position, &person);
    return static_cast<std::uint32_t>(position);
}

std::uint32_t remove(PersonSet& set, Person& person)
{
    return static_cast<std::uint32_t>(set.removePresent(&person));
}

} // namespace

bool LinkSides::linked(Relationship relationship, const Record& owner, const Record& member)
{
    switch (relationship) {
    case Relationship::Children:
        return eachOther(as<Person>(owner).children_, as<Person>(member), as<Person>(member).parents_,
                         as<Person>(owner));
    case Relationship::Partners:
        return eachOther(as<Person>(owner).partners_, as<Person>(member), as<Person>(member).partners_,
                         as<Person>(owner));
    case Relationship::PoolMembers:
        return as<Person>(member).pool_ == &owner;
    case Relationship::PersonPic:
        return as<Person>(owner).pic_ == &member;
    case Relationship::PersonSource:
        return as<Person>(owner).source_ == &member;
    }
    return false;
}

LinkPlaces LinkSides::join(Relationship relationship, Record& owner, Record& member, LinkPlaces places)
{
    switch (relationship) {
    case Relationship::Children:
        return {insert(as<Person>(owner).children_, as<Person>(member), places.inOwner),
                insert(as<Person>(member).parents_, as<Person>(owner), places.inMember)};
    case Relationship::Partners:
        return {insert(as<Person>(owner).partners_, as<Person>(member), places.inOwner),
                insert(as<Person>(member).partners_, as<Person>(owner), places.inMember)};
    case Relationship::PoolMembers:
        as<Person>(member).pool_ = &as<Pool>(owner);
        return {insert(as<Pool>(owner).persons_, as<Person>(member), places.inOwner), 0};
    case Relationship::PersonPic:
        as<Person>(owner).pic_ = &as<Pic>(member);
        as<Pic>(member).person_ = &as<Person>(owner);
        break;
    case Relationship::PersonSource:
        as<Person>(owner).source_ = &as<SourceRecord>(member);
        as<SourceRecord>(member).person_ = &as<Person>(owner);
        break;
    }
    return {0, 0};
}

LinkPlaces LinkSides::part(Relationship relationship, Record& owner, Record& member)
{
    switch (relationship) {
    case Relationship::Children:
        return {remove(as<Person>(owner).children_, as<Person>(member)),
                remove(as<Person>(member).parents_, as<Person>(owner))};
    case Relationship::Partners:
        return {remove(as<Person>(owner).partners_, as<Person>(member)),
                remove(as<Person>(member).partners_, as<Person>(owner))};
    case Relationship::PoolMembers:
        as<Person>(member).pool_ = nullptr;
        return {remove(as<Pool>(owner).persons_, as<Person>(member)), 0};
    case Relationship::PersonPic:
        as<Person>(owner).pic_ = nullptr;
        as<Pic>(member).person_ = nullptr;
        break;
    case Relationship::PersonSource:
        as<Person>(owner).source_ = nullptr;
        as<SourceRecord>(member).person_ = nullptr;
        break;
    }
    return {0, 0};
}

} // namespace lineara
