#pragma once

#include "model/object_context.h"

#include <cstdint>

namespace lineara {

/// One walk over a family: remembers who was met, and a number for each, in the persons themselves, so that nothing
/// has to be hashed or reset. A person forgets when the next walk meets it; walks must not overlap.
class Visit
{
public:
    explicit Visit(const ObjectContext& context) : stamp_(++context.lastVisit_) {}

    bool met(const Person& person) const { return person.visitStamp_ == stamp_; }

    /// The number given to a person that was met.
    std::uint32_t note(const Person& person) const { return person.visitNote_; }

    void meet(const Person& person, std::uint32_t note = 0) const
    {
        person.visitStamp_ = stamp_;
        person.visitNote_ = note;
    }

private:
    std::uint32_t stamp_;
};

} // namespace lineara
