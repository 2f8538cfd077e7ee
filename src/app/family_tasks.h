#pragma once

#include "opening.h"

#include <memory>

namespace lineara {

/// Reads the file; who gets the family from it holds the lock.
Opening::Task openingTask(const QString& path, std::shared_ptr<FileLock> lock);

/// Reads unsaved changes of a file; without its lock they become a copy of it.
Opening::Task recoveryTask(const LeftWork& work, std::shared_ptr<RecoveryCopy> copy, std::shared_ptr<FileLock> lock);

} // namespace lineara
