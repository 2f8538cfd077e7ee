#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"

#include <QString>

namespace lineara::tool {

/// Whether a file of that name holds a genealogy for other programs: ".ged" or ".gdz".
bool isGenealogyName(const QString& name);

struct GenealogyOptions
{
    bool asGedcom7 = false; ///< a ".ged" file is of version 7.0 and not 5.5.1
    bool tellNotes = false; ///< every file that could not go along is told, not only how many
};

/// Writes the family as the name asks for, and tells what could not go along.
Outcome<Done> saveGenealogy(const ObjectContext& family, const QString& path, const GenealogyOptions& options);

} // namespace lineara::tool
