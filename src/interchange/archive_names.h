#pragma once

#include <QString>

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

} // namespace lineara
