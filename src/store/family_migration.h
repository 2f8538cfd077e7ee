#pragma once

#include "migration_plan.h"
#include "platform/outcome.h"
#include "platform/progress.h"
#include "xml_writer.h"

#include <string_view>

namespace lineara::store {

/// Writes what the plan makes of the text of a file. The failure names the place and the reason; what was written by
/// then is of no use. The writer is not finished.
Outcome<Done> migrateText(std::string_view text, const MigrationPlan& plan, XmlWriter& out,
                          const Progress& progress = {});

} // namespace lineara::store
