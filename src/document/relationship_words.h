#pragma once

#include "kinship/relationship.h"
#include "kinship/sex.h"

#include <QString>

#include <functional>
#include <span>

namespace lineara {

/// A relationship as it is told to the user.
struct RelationshipText
{
    QString sentence; ///< who is what of whom; rich text, with the relationship in bold
    QString details;  ///< what else connects the two; plain text, may be empty
};

using NameOf = std::function<QString(kinship::PersonIndex)>;

/// A family as it is told of; `sexes` may be empty for nobody's.
struct ToldFamily
{
    const engine::FamilyGraph& graph;
    std::span<const kinship::Sex> sexes;
    NameOf nameOf; ///< as plain text
};

RelationshipText relationshipText(const kinship::Relation& relationship, const ToldFamily& family,
                                  kinship::PersonIndex first, kinship::PersonIndex second);

} // namespace lineara
