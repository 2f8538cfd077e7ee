#pragma once

#include "gedcom_export_text.h"

#include <string>
#include <string_view>

namespace lineara {

/// The lines of a record in the other way of writing them. What both know by different names is renamed: notes that
/// are pointed at (NOTE, SNOTE), calendars and eras of dates, phrases of dates. Everything else stays.
std::string convertedLines(std::string_view text, GedcomDialect from, GedcomDialect to);

} // namespace lineara
