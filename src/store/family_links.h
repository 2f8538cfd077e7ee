#pragma once

#include "id_index.h"
#include "platform/outcome.h"
#include "raw_family.h"

#include <QStringList>

namespace lineara::store {

/// A person by position among the persons of the file.
using PersonIndex = std::uint32_t;

/// The links between persons, from both sides, in set order.
struct FamilyLinks
{
    Lists<PersonIndex> parents;
    Lists<PersonIndex> children;
    Lists<PersonIndex> partners;
};

/// How messages name a person: “Ada” (z104).
QString called(const RawPerson& person);

/// Replaces numbers by positions. Fails on a reference to an object that is missing or of the wrong kind.
Outcome<Lists<PersonIndex>> resolve(const Lists<Number>& references, const RawFamily& family, const IdIndex& index,
                                    const QString& relationship);

/// True if nothing has to be mended: both sides agree, nobody stands twice in a set or is linked to itself, nobody
/// has three parents or is a descendant of its own. Time is linear in persons and links.
bool areSound(const FamilyLinks& links);

/// Makes the links sound: a missing side is added at the end; a link of a person to itself, a second mention, a third
/// parent and a link that closes a cycle are left out. Each is told in `repairs`.
FamilyLinks mended(const FamilyLinks& links, const RawFamily& family, QStringList& repairs);

} // namespace lineara::store
