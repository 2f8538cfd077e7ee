#include "attribute_value.h"

#include <utility>

namespace lineara {

namespace {

using TextMember = std::optional<QString> PersonValues::*;

/// nullptr for an attribute that is no text.
TextMember textMember(PersonAttribute attribute)
{
    switch (attribute) {
    case PersonAttribute::Name:
        return &PersonValues::name;
    case PersonAttribute::Additional:
        return &PersonValues::additional;
    default:
        return nullptr;
    }
}

} // namespace

NumberMember numberMember(PersonAttribute attribute)
{
    switch (attribute) {
    case PersonAttribute::BirthDay:
        return &PersonValues::birthDay;
    case PersonAttribute::BirthMonth:
        return &PersonValues::birthMonth;
    case PersonAttribute::BirthYear:
        return &PersonValues::birthYear;
    case PersonAttribute::DeathDay:
        return &PersonValues::deathDay;
    case PersonAttribute::DeathMonth:
        return &PersonValues::deathMonth;
    case PersonAttribute::DeathYear:
        return &PersonValues::deathYear;
    case PersonAttribute::Generation:
        return &PersonValues::generation;
    case PersonAttribute::X:
        return &PersonValues::x;
    default:
        return nullptr;
    }
}

AttributeValue exchange(PersonValues& values, PersonAttribute attribute, AttributeValue value)
{
    if (const TextMember text = textMember(attribute))
        return std::exchange(values.*text, std::get<std::optional<QString>>(std::move(value)));
    return std::exchange(values.*numberMember(attribute), std::get<std::optional<std::int32_t>>(value));
}

AttributeValue valueOf(const PersonValues& values, PersonAttribute attribute)
{
    if (const TextMember text = textMember(attribute))
        return values.*text;
    return values.*numberMember(attribute);
}

} // namespace lineara
