#pragma once

#include "gedcom_export_record.h"

#include <QString>

#include <optional>

namespace lineara {

/// The line below a FILE of 7.0 that keeps the name which 5.5.1 gives the file. No value where none does, where the
/// address is not one that an export would give a file of that name, since somebody has moved the file, or where more
/// is said below it than an export would.
std::optional<EditedRecord::Line> keptFileName(const EditedRecord& lines, EditedRecord::Line file,
                                               const QString& address);

} // namespace lineara
