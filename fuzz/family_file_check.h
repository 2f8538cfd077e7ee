#pragma once

#include <QByteArray>
#include <QString>

namespace lineara {

/// Reads any bytes as a family file. What can be read must come back the same from a second reading, without another
/// repair and with the same text. Empty if all is well, otherwise what went wrong.
QString checkFamilyFile(const QByteArray& bytes);

} // namespace lineara
