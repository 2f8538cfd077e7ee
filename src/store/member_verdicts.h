#pragma once

#include "object_members.h"
#include "store_texts.h"

#include <optional>
#include <utility>

namespace lineara::store {

/// Turns "a value or a failure" into a verdict, and the value into the field.
template<class T, class Field>
MemberSink::Verdict store(std::optional<T> value, Field& field)
{
    if (!value)
        return MemberSink::Verdict::Failed;
    field = std::move(*value);
    return MemberSink::Verdict::Taken;
}

/// Notices members that come twice.
class OnceOnly
{
public:
    explicit OnceOnly(ObjectMembers& members) : members_(members) {}

    bool isFree(std::size_t slot) const { return (seen_ & (1u << slot)) == 0; }
    void note(std::size_t slot) { seen_ |= 1u << slot; }

    bool admit(std::size_t slot, const Member& member)
    {
        if (!isFree(slot))
            return members_.fail(member.node, StoreTexts::tr("%1 stands there twice.").arg(shown(member.name)));
        note(slot);
        return true;
    }

private:
    ObjectMembers& members_;
    unsigned seen_ = 0;
};

} // namespace lineara::store
