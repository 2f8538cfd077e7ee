#pragma once

#include "gedcom_export_changes.h"

#include <QByteArray>

#include <map>
#include <string>

namespace lineara {

/// The files of an archive beside the genealogy, by name.
using ArchiveFiles = std::map<std::string, QByteArray>;

/// Collects the persons' pictures. Each comes under the name that the person's record gives it, if it is one within an
/// archive and not that of another picture; otherwise the record gets a line about it.
ArchiveFiles exportPictures(const FamilyContent& family, const KeptRecords& kept, GedcomChanges& changes);

/// The archive: "gedcom.ged" first. The same contents give the same bytes, whenever and wherever it is made. Fails for
/// lack of memory.
Outcome<QByteArray> gedzipOf(const QByteArray& genealogy, const ArchiveFiles& files);

} // namespace lineara
