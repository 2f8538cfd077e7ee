#pragma once

#include "kinship/relationship.h"

#include <QString>

#include <functional>

namespace lineara {

/// A relationship as it is told to the user.
struct RelationshipText
{
    QString sentence; ///< who is what of whom; rich text, with the relationship in bold
    QString details;  ///< what else connects the two; plain text, may be empty
};

using NameOf = std::function<QString(kinship::PersonIndex)>;

/// `nameOf` gives the name of a person, as plain text.
RelationshipText relationshipText(const kinship::Relation& relationship, const engine::FamilyGraph& family,
                                  kinship::PersonIndex first, kinship::PersonIndex second, const NameOf& nameOf);

} // namespace lineara
