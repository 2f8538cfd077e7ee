#pragma once

#include "date_entry.h"
#include "model/person.h"

#include <optional>

namespace lineara {

void storeBirth(Person& person, const PartialDate& date);
void storeDeath(Person& person, const PartialDate& date);

/// Puts dates in the place of those in the values; without one, these stay.
void overlay(PersonValues& values, const std::optional<PartialDate>& birth, const std::optional<PartialDate>& death);

} // namespace lineara
