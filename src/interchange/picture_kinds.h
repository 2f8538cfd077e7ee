#pragma once

#include <QByteArray>
#include <QString>

namespace lineara {

/// What a picture is by its bytes.
struct PictureKind
{
    QByteArrayView start;
    QLatin1StringView ending; ///< of the names of such files
    QLatin1StringView mediaType;
};

/// One for any bytes at all where they are of no known kind.
const PictureKind& kindOf(const QByteArray& bytes);

} // namespace lineara
