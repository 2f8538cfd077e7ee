#pragma once

#include "model/record.h"

#include <QString>

#include <optional>
#include <variant>

namespace lineara {

/// A new person becomes a member of the family.
struct Joining
{
    RecordId person;
};

/// A person's links go, and then the person.
struct Leaving
{
    RecordId person;
};

/// Two persons that were just linked get their generations.
struct Linking
{
    RecordId from;
    RecordId to;
    QString type;
};

/// Everybody's generation is worked out again.
struct Processing
{
    std::optional<RecordId> concerned; ///< who is to be in view afterwards
};

/// A change of the family that takes its turn on the document's queue. Persons are named by id: whoever is gone by then
/// is left out.
using FamilyWork = std::variant<Joining, Leaving, Linking, Processing>;

} // namespace lineara
