#pragma once

#include "gedcom_export_changes.h"
#include "gedzip_writing.h"

#include "platform/progress.h"

#include <QString>

#include <functional>

namespace lineara {

/// Whether a file is where a reader of the genealogy will look for that name.
using IsFileThere = std::function<bool(const QString& name)>;

struct ExportedPictures
{
    ArchiveFiles files;      ///< where an archive is made
    std::size_t leftOut = 0; ///< pictures that only an archive could hold
};

/// Brings the lines about the persons' pictures up to date: those about pictures that persons have no more go, the
/// others stay as they are. After find() of the changes, before their finish(). Not all if the progress is stopped.
///
/// Into an archive each picture comes under the name that the person's record gives it. A name that means nothing
/// within archives, or another picture, is exchanged for one that does. A picture without a name gets one.
ExportedPictures exportPictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes,
                                const Progress& progress);

/// The same for a genealogy without an archive, which leaves out what it can't name.
ExportedPictures leavePictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes,
                               const IsFileThere& isThere, const Progress& progress);

/// The files that the genealogy names and that are not there, each once. After finish() of the changes.
QStringList missingFiles(const KeptRecords& kept, const GedcomChanges& changes, const IsFileThere& isThere,
                         const Progress& progress);

} // namespace lineara
