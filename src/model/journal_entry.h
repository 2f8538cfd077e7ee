#pragma once

#include "bulk_values.h"
#include "link_sides.h"
#include "model/person.h"

#include <QByteArray>

#include <memory>
#include <variant>

namespace lineara {

class ObjectContext;

/// One attribute of one person. Entries about values hold the side that the record does not have at the moment, so
/// that taking back and making again are the same exchange.
struct ValueEntry
{
    std::uint64_t person;
    AttributeValue other;
    PersonAttribute attribute;
    bool becameAbsent;
};

/// One whole-number attribute of many persons.
struct BulkEntry
{
    PersonAttribute attribute;
    BulkValues values;
};

/// A shift of everybody: one number, and the few that had no x.
struct ShiftEntry
{
    std::uint64_t pool;
    std::int32_t points;
    std::vector<BulkValues::Other> others; ///< by number
};

struct PicDataEntry
{
    std::uint64_t pic;
    QByteArray other;
};

struct LinkEntry
{
    std::uint64_t owner;
    std::uint64_t member;
    LinkPlaces places;
    Relationship relationship;
    bool added;
};

/// A record that came or went. While it is not in the context, it lives here.
struct RecordEntry
{
    std::uint64_t number;
    std::unique_ptr<Record> kept;
    bool inserted;
};

enum class Replay : std::uint8_t
{
    Undo,
    Redo
};

/// One change of a step. Records are named by number: a change that was not journalled may have taken them away, and
/// replaying then leaves out what is no longer possible.
struct JournalEntry
{
    std::variant<ValueEntry, BulkEntry, ShiftEntry, PicDataEntry, LinkEntry, RecordEntry> change;

    void replay(ObjectContext& context, Replay direction);

    /// Whether taking it back would alter anything.
    bool hasEffect(const ObjectContext& context) const;

private:
    static void replay(ValueEntry& entry, ObjectContext& context, Replay direction);
    static void replay(BulkEntry& entry, ObjectContext& context, Replay direction);
    static void replay(ShiftEntry& entry, ObjectContext& context, Replay direction);
    static void replay(PicDataEntry& entry, ObjectContext& context, Replay direction);
    static void replay(LinkEntry& entry, ObjectContext& context, Replay direction);
    static void replay(RecordEntry& entry, ObjectContext& context, Replay direction);
    static void bringIn(RecordEntry& entry, ObjectContext& context);
    static void takeOut(RecordEntry& entry, ObjectContext& context);
    static Record* recordOf(Entity entity, std::uint64_t number, const ObjectContext& context);
};

} // namespace lineara
