#pragma once

#include <QString>

#include <optional>

namespace lineara {

/// The language tag (BCP 47) that 7.0 asks for, of a language that 5.5.1 calls by its name or of one that is written as
/// a tag already. No value for other words: 7.0 has no place for them.
std::optional<QString> languageInSeven(const QString& name);

/// The name that 5.5.1 has for the language of a tag; the tag itself where it has none, or where the tag says more,
/// such as a country.
QString languageInFive(const QString& tag);

} // namespace lineara
