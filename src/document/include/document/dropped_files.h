#pragma once

#include <QStringList>

class QMimeData;

namespace lineara {

/// The paths of the files on this machine that are being dropped; empty if there are none.
QStringList droppedFiles(const QMimeData& data);

} // namespace lineara
