#pragma once

#include "kinship/relationship.h"

#include <QString>

namespace lineara {

// What the second of two persons is to the first, in the language of the program: "parent", "second cousin once
// removed", "partner of a first cousin". A record of a person tells no sex, so the words are such as fit everybody.

QString bloodWords(const kinship::BloodLine& line);
QString inLawWords(const kinship::InLaw& inLaw);

/// How two persons are connected who have no shorter word for it, step by step from the first: "partner › sibling ›
/// child". A long way is cut short.
QString chainWords(const engine::FamilyGraph& family, const std::vector<kinship::PersonIndex>& path);

} // namespace lineara
