#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace lineara {

/// The value of a line, and what of it only a PHRASE below the line can say in 7.0; empty if there is nothing.
struct PhrasedValue
{
    QString value;
    QString phrase;
    friend bool operator==(const PhrasedValue&, const PhrasedValue&) = default;
};

/// Whether a line with this tag below one of the other says one of the words that the standard lists for it.
bool isEnumeration(std::string_view parent, std::string_view tag);

/// The words of 7.0 for what 5.5.1 says in its own; no value for a line that is no enumeration, and for words that
/// can't be said in 7.0.
std::optional<PhrasedValue> enumerationInSeven(std::string_view parent, std::string_view tag, const QString& text);

/// The same from 7.0 to 5.5.1. A phrase that comes back is one that 5.5.1 has no other place for.
PhrasedValue enumerationInFive(std::string_view parent, std::string_view tag, const PhrasedValue& line);

} // namespace lineara
