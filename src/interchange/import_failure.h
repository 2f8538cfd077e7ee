#pragma once

#include "platform/outcome.h"

#include <QString>

namespace lineara {

/// "“name” can't be imported: reason". The reason ends with a full stop.
Failure importFailure(const QString& name, const QString& reason);

Failure notGedcom(const QString& name);

/// Nobody wants the import any more.
Failure stoppedImport(const QString& name);

} // namespace lineara
