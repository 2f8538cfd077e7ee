#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lineara {

/// The place in an archive that a FILE of this value means, where the value is one that every reader of archives
/// understands. No value for an absolute name, one that climbs or has characters of another meaning in addresses, and
/// for one on the web.
std::optional<QString> plainPlace(const QString& file);

/// The place that comes next to it for any other value; no value if there is none.
std::optional<QString> nearestPlace(const QString& file);

/// The FILE value that means this place.
QString addressOfPlace(const QString& place);

/// A place for the picture of that number, which has no name to lie under: "pictures/p105.jpg". Each attempt gives
/// another.
QString madePlace(std::uint64_t number, qsizetype attempt, const QString& ending);

/// Whether it may have been made so.
bool isMadePlace(const QString& place);

} // namespace lineara
