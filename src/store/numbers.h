#pragma once

#include "raw_family.h"

#include <optional>
#include <string_view>

namespace lineara::store {

/// The whole text as a decimal number of at most 18 digits without leading zeros, at least 1.
std::optional<Number> parseNumber(std::string_view text);

/// The number of an object id such as "z102".
std::optional<Number> parseObjectId(std::string_view text);

} // namespace lineara::store
