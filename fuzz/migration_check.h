#pragma once

#include <QByteArray>
#include <QString>

namespace lineara {

/// Takes the bytes from version 12 to 14. A complaint if that breaks a promise, else empty: a refusal has a reason, and
/// what comes out is read, and is the same when it is made again.
QString checkMigration(const QByteArray& bytes);

} // namespace lineara
