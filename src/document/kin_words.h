#pragma once

#include "kinship/relationship.h"
#include "kinship/sex.h"

#include <QString>

#include <span>

namespace lineara {

// What the second of two persons is to the first, in the language of the program: "mother", "second cousin once
// removed", "husband of a first cousin". Where nobody knows a person's sex, the words are such as fit everybody.

QString partnerWords(kinship::Sex second);
QString bloodWords(const kinship::BloodLine& line, kinship::Sex second);

/// `between` is the sex of the one through whom the two are related: the partner of the first, or the relative whose
/// partner the second is.
QString inLawWords(const kinship::InLaw& inLaw, kinship::Sex second, kinship::Sex between);

/// How two persons are connected who have no shorter word for it, step by step from the first: "partner › sibling ›
/// child". A long way is cut short. `sexes` are those of the family.
QString chainWords(const engine::FamilyGraph& family, std::span<const kinship::Sex> sexes,
                   const std::vector<kinship::PersonIndex>& path);

} // namespace lineara
