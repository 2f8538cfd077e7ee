#pragma once

#include "kinship/checks.h"

#include <vector>

namespace lineara::kinship::literal {

/// The checks written down word by word: every day that a date may mean is tried against every day of the other.
/// For years from 1 to 9999.
std::vector<FoundPerson> findings(const CheckedFamily& family);

} // namespace lineara::kinship::literal
