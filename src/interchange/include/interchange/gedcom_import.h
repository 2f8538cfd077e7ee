#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"
#include "platform/progress.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <memory>

namespace lineara {

/// What an import did, in numbers and lines. Nothing of the file is dropped without a line here.
struct ImportReport
{
    std::size_t persons = 0;
    std::size_t families = 0;
    std::size_t partnerLinks = 0;   ///< made; each pair of persons once
    std::size_t offspringLinks = 0; ///< made; each pair of parent and child once
    std::size_t refusedLinks = 0;   ///< links that the rules refuse (third parent, cycle, a person to itself)
    std::size_t unreadableLines = 0;
    std::size_t notTaken = 0; ///< lines that were understood as lines but have no place in a family
    /// One sentence per refusal, unreadable line, line not taken and line taken with a change ("ABT 1600" as 1600), in
    /// the order of the file: "line 12: ...". What goes beyond a million sentences is told as a sum.
    QStringList notes;
};

struct ImportedFamily
{
    std::unique_ptr<ObjectContext> context; ///< with one pool; nobody has a generation or an x yet
    ImportReport report;
};

/// Reads a GEDCOM file of version 5.5, 5.5.1 or 7.0 in UTF-8 or ASCII. Deterministic: the same bytes give the same
/// family, its store UUID included. Fails for what is no GEDCOM text, is in another character set, or takes more than
/// 512 MB, and if it is stopped. Nothing of an import is an undoable change. Any thread; the family may then be handed
/// to the main thread.
Outcome<ImportedFamily> importGedcomFile(const QString& path, const Progress& progress = {});

/// The same for bytes in memory; `name` is what messages call them.
Outcome<ImportedFamily> importGedcom(const QByteArray& bytes, const QString& name, const Progress& progress = {});

} // namespace lineara
