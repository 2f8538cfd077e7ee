#pragma once

#include <QDateTime>

#include <optional>
#include <string_view>

namespace lineara::store {

/// A date attribute: seconds since 2001-01-01T00:00:00Z, which may have a fraction; a begun second counts as the one
/// that it lies in. An invalid date if that is a number, but no calendar reaches so far; no value if it is no number.
std::optional<QDateTime> parseDate(std::string_view text);

} // namespace lineara::store
