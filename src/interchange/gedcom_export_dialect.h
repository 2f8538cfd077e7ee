#pragma once

#include "gedcom_export_text.h"

#include <string>
#include <string_view>

namespace lineara {

/// The lines of a record, which are written in the other way, in this one. What both know by different names is
/// renamed: notes that are pointed at (NOTE, SNOTE), calendars and eras of dates, the words of enumerations, phrases.
/// Everything else stays.
std::string convertedLines(std::string_view text, GedcomDialect to);

} // namespace lineara
