#pragma once

#include <QByteArray>
#include <QString>

namespace lineara {

/// Imports any bytes as a GEDCOM file. What can be imported must be a family that keeps the rules and can be written,
/// and a second import must tell the same. Empty if all is well, otherwise what went wrong.
QString checkGedcom(const QByteArray& bytes);

} // namespace lineara
