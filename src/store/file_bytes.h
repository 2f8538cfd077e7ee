#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QString>

#include <limits>

namespace lineara::store {

/// What a family file may hold. Opening takes up to four times as much memory.
inline constexpr qsizetype mostFileBytes = qsizetype{2} << 30;

/// All bytes of an ordinary text file. Gives up at the first zero byte, so that a huge file of nothing costs nothing.
/// Refuses more than can be opened (mostFileBytes). Stops after `most` bytes. The failure is the reason alone.
Outcome<QByteArray> readTextFile(const QString& path, const Progress& progress = {},
                                 qsizetype most = std::numeric_limits<qsizetype>::max());

/// Why a file beyond mostFileBytes is neither opened nor saved.
Failure tooLarge();

/// Why a reading that nobody wants any more ended.
Failure stoppedReading();

} // namespace lineara::store
