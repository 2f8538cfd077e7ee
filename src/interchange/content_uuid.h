#pragma once

#include "platform/progress.h"

#include <QByteArray>
#include <QUuid>

namespace lineara {

/// Made of the content, so that importing a file twice gives the same family: a name-based UUID of version 5, worked
/// out piece by piece. Of no use if the progress is stopped meanwhile.
QUuid uuidOf(const QByteArray& bytes, const Progress& progress);

} // namespace lineara
