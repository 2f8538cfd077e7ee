#pragma once

#include "interchange/import_report.h"
#include "model/object_context.h"
#include "platform/outcome.h"
#include "platform/progress.h"

#include <QString>

#include <memory>

namespace lineara {

struct ImportedFamily
{
    std::unique_ptr<ObjectContext> context; ///< with one pool; nobody has a generation or an x yet
    ImportReport report;
};

/// Whether a file is a genealogy, told by its beginning: GEDCOM text in any character set, or a ZIP archive (GEDZIP).
/// False for what can't be read, and for what is no file.
bool isGenealogy(const QString& path);

/// Reads a GEDCOM file of version 5.5, 5.5.1, 5.5.5 or 7.0, or a GEDZIP archive, whatever its character set and line
/// ends. Persons' pictures are read from the folder of the file (and below), or from the archive.
///
/// Every record of the file is kept whole as a SourceRecord, in the order of the file, and belongs to the person that
/// was made of it. Deterministic: the same bytes (and pictures) give the same family, its store UUID included. Fails
/// for what is no genealogy, at once, for more than 512 MB, and if it is stopped. Nothing of an import is an undoable
/// change. Any thread; the family may then be handed to the main thread.
Outcome<ImportedFamily> importGedcomFile(const QString& path, const Progress& progress = {});

/// The same for bytes in memory; `name` is what messages call them. Pictures beside the file are missing then.
Outcome<ImportedFamily> importGedcom(QByteArray bytes, const QString& name, const Progress& progress = {});

} // namespace lineara
