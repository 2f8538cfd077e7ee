#pragma once

#include <QString>

#include <optional>

namespace lineara {

/// The media type of a file with that name, as far as the ending tells; one for any bytes at all if it does not.
QString mediaTypeByName(const QString& file);

/// The media type that a format of 5.5.1 means, or that of the file's name where it says nothing; no value for words
/// that can be none.
std::optional<QString> mediaTypeOf(const QString& format, const QString& file);

/// The word of 5.5.1 for a media type, or the type itself.
QString formatOf(const QString& mediaType);

} // namespace lineara
