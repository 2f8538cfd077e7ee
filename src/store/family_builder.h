#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"
#include "raw_family.h"
#include "store/family_file.h"

namespace lineara::store {

/// Makes the records. Fails on what can't be mended without losing something; the rest is told in `repairs`, which
/// come back with the family.
Outcome<LoadedFamily> buildFamily(RawFamily raw, QStringList repairs, const Progress& progress);

} // namespace lineara::store
