#pragma once

#include "model/record.h"

#include <QFlags>

#include <span>
#include <variant>

namespace lineara {

class Person;
class Pool;
class Pic;

/// What can change about a person apart from links. `Image` and `Era` are derived: `Era` comes along with every change
/// of birthYear or deathYear, `Image` with every change of the picture.
enum class PersonAttribute : std::uint32_t
{
    Name = 1u << 0,
    Additional = 1u << 1,
    BirthDay = 1u << 2,
    BirthMonth = 1u << 3,
    BirthYear = 1u << 4,
    DeathDay = 1u << 5,
    DeathMonth = 1u << 6,
    DeathYear = 1u << 7,
    Generation = 1u << 8,
    X = 1u << 9,
    Image = 1u << 10,
    Era = 1u << 11,
};
Q_DECLARE_FLAGS(PersonAttributes, PersonAttribute)
Q_DECLARE_OPERATORS_FOR_FLAGS(PersonAttributes)

enum class Relationship : std::uint8_t
{
    Children,
    Partners,
    PoolMembers,
    PersonPic,
    PersonSource
};

/// A record came into the context: made by the user, or brought back by undo or redo.
struct RecordInserted
{
    Record& record;
};

/// The record still exists, but has no links any more and leaves the context after this event.
struct RecordRemoved
{
    Record& record;
};

struct AttributesChanged
{
    Person& person;
    PersonAttributes attributes;
};

/// One event for a change of many persons at once (generations after a run, a shift of everybody).
struct ManyChanged
{
    std::span<Person* const> persons;
    PersonAttributes attributes;
    std::int32_t shift = 0; ///< points by which every x of a pool grew, where the change is such a shift
};

/// A link was made (`added`) or removed; both sides already agree. For Children `owner` is the parent, for PoolMembers
/// the pool, for PersonPic and PersonSource the person; for Partners the one that the caller named first.
struct LinkChanged
{
    Relationship relationship;
    Record& owner;
    Record& member;
    bool added;
};

/// The bytes of a picture were replaced.
struct PicDataChanged
{
    Pic& pic;
};

/// An undo, a redo or a roll-back has ended; its single changes were reported before.
struct Replayed
{};

using Change =
    std::variant<RecordInserted, RecordRemoved, AttributesChanged, ManyChanged, LinkChanged, PicDataChanged, Replayed>;

} // namespace lineara
