#pragma once

#include "gedcom_export_enums.h"

#include <QString>

namespace lineara {

/// The value of an AGE line of 5.5.1 as 7.0 has it ("76y 3m"), and the phrase that says how 5.5.1 did, if otherwise.
PhrasedValue ageInSeven(const QString& text);

/// The same from 7.0 to 5.5.1. A phrase that comes back is one that 5.5.1 has no other place for.
PhrasedValue ageInFive(const PhrasedValue& line);

} // namespace lineara
