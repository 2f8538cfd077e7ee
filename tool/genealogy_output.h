#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"

#include <QString>

namespace lineara::tool {

/// Whether a file of that name holds a genealogy for other programs: ".ged" or ".gdz".
bool isGenealogyName(const QString& name);

/// Writes the family as the name asks for; a ".ged" file is of version 5.5.1, or 7.0 where that is asked for. Tells
/// what could not go along.
Outcome<Done> saveGenealogy(const ObjectContext& family, const QString& path, bool asGedcom7);

} // namespace lineara::tool
