#pragma once

#include "gedcom_export_enums.h"

#include <QString>

namespace lineara {

/// The value of a DATE line of 5.5.1 as 7.0 has it, and the phrase that says what the grammar of 7.0 can't. Reading the
/// value gives the same day as reading the text.
PhrasedValue dateInSeven(const QString& text);

/// The same from 7.0 to 5.5.1. A phrase that comes back is one that 5.5.1 has no other place for.
PhrasedValue dateInFive(const PhrasedValue& line);

} // namespace lineara
