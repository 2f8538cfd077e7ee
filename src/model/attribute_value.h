#pragma once

#include "model/person.h"

namespace lineara {

/// The member of PersonValues that holds a whole-number attribute.
using NumberMember = std::optional<std::int32_t> PersonValues::*;
NumberMember numberMember(PersonAttribute attribute);

/// Puts `value` in the place of the attribute and returns what was there.
AttributeValue exchange(PersonValues& values, PersonAttribute attribute, AttributeValue value);

AttributeValue valueOf(const PersonValues& values, PersonAttribute attribute);

/// The sum of two coordinates or row numbers; whole numbers wrap at 32 bits.
constexpr std::int32_t wrappingSum(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappingDifference(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

} // namespace lineara
