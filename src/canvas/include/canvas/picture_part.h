#pragma once

#include "model/person.h"

#include <optional>
#include <unordered_set>

namespace lineara {

/// Whom a picture of a family shows: everybody, or some, with the links among them.
struct PicturePart
{
    std::optional<std::unordered_set<RecordId>> persons = std::nullopt;

    bool holds(const Person& person) const { return !persons || persons->contains(person.recordId()); }
    /// Of a link; a missing person belongs to no part of a family.
    bool holds(const Person* source, const Person* target) const
    {
        return !persons || (source && target && holds(*source) && holds(*target));
    }
};

} // namespace lineara
