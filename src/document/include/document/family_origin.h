#pragma once

#include "store/file_lock.h"
#include "store/file_mark.h"

#include <QString>

#include <memory>
#include <optional>

namespace lineara {

/// Where a family comes from, and whether that is where it is saved to.
struct FamilyOrigin
{
    QString path; ///< absolute; empty for a family that was begun here
    /// False for a file of another program, and for one that this is a copy of: it is not written to.
    bool isOwn = false;
    /// The file as it was last read or written; no value if it was not there.
    std::optional<FileMark> mark;
    /// The right to write to it; nullptr where it is not written to.
    std::shared_ptr<FileLock> lock;
    /// Whether the family is a copy of that file, which goes on without it, and can be opened beside it...
    bool isCopy = false;
    /// ... unless the copy stands in for it, because the file is of an older version and can't be brought up to date.
    bool isStandIn = false;
};

/// The right to write to a family file, by whatever path it is reached. Nullptr if another document has it, of this
/// program or another one.
std::shared_ptr<FileLock> lockFamilyFile(const QString& path);

/// One path for all the ways to reach a file. It need not exist.
QString canonicalPath(const QString& path);

} // namespace lineara
