#pragma once

#include "object_members.h"
#include "store_texts.h"

#include <optional>
#include <span>
#include <string>
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

/// Recognises members that stand as the writer writes them, each at most once and in the order of their slots.
class WrittenSlots
{
public:
    WrittenSlots(const XmlFragment& fragment, OnceOnly& once) : fragment_(fragment), once_(once) {}

    /// Looks which of the start tags, one per slot, the element has, and hands the slot and what follows the tag in the
    /// parsed text to `take`. False without that, or if it takes nothing.
    template<class Take>
    bool take(std::span<const std::string> tags, pugi::xml_node node, Take take)
    {
        for (auto slot = next_; slot < tags.size(); ++slot) {
            const auto rest = fragment_.after(tags[slot], node);
            if (!rest)
                continue;
            if (!once_.isFree(slot) || !take(slot, *rest))
                return false;
            once_.note(slot);
            next_ = slot + 1;
            return true;
        }
        return false;
    }

private:
    const XmlFragment& fragment_;
    OnceOnly& once_;
    std::size_t next_ = 0; ///< the slot after the one that was filled last
};

} // namespace lineara::store
