#pragma once

#include "family_links.h"

namespace lineara::store {

/// Who belongs to which pool, and which picture and imported record to whom, from both sides.
struct Membership
{
    Lists<PersonIndex> members; ///< by pool
    /// By person: the position of its picture plus 1; 0 without one.
    std::vector<std::uint32_t> pics;
    std::vector<std::uint32_t> sources; ///< likewise
    /// Positions of imported records whose persons are not in the file, ascending; they belong to nobody and are to be
    /// left out.
    std::vector<std::size_t> sourcesLeftOut;
};

/// Brings both sides together; what only one side says is completed and told, and a person listed by two pools stays
/// with one. Persons without any pool in the file make a pool of number `family.nextNumber`, which is counted up.
/// Fails on dangling references other than those of imported records, and on a picture or imported record of two
/// persons.
Outcome<Membership> resolveMembership(RawFamily& family, const IdIndex& index, QStringList& repairs);

} // namespace lineara::store
