#pragma once

#include "platform/outcome.h"

#include <QByteArray>
#include <QString>

namespace lineara::store {

/// All bytes of an ordinary text file. Gives up at the first zero byte, so that a huge file of nothing costs nothing.
/// The failure is the reason alone.
Outcome<QByteArray> readTextFile(const QString& path);

} // namespace lineara::store
