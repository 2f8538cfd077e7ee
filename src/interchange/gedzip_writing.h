#pragma once

#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>

#include <map>
#include <string>

namespace lineara {

/// The files of an archive beside the genealogy, by name.
using ArchiveFiles = std::map<std::string, QByteArray>;

/// The archive: "gedcom.ged" first. The same contents give the same bytes, whenever and wherever it is made. Fails for
/// lack of memory, and if it is stopped.
Outcome<QByteArray> gedzipOf(const QByteArray& genealogy, const ArchiveFiles& files, const Progress& progress);

} // namespace lineara
