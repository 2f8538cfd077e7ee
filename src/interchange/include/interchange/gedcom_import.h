#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"

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
    std::size_t partnerLinks = 0;
    std::size_t offspringLinks = 0;
    std::size_t refusedLinks = 0;     ///< links that the rules refuse (third parent, cycle, a person to itself)
    std::size_t unreadableLines = 0;
    std::size_t notTaken = 0;         ///< lines that were understood as lines but have no place in a family
    /// One sentence per refusal, unreadable line and line not taken, naming the line number.
    QStringList notes;
};

struct ImportedFamily
{
    std::unique_ptr<ObjectContext> context;   ///< with one pool; nobody has a generation or an x yet
    ImportReport report;
};

/// Reads a GEDCOM file of version 5.5, 5.5.1 or 7.0 in UTF-8 or ASCII.
Outcome<ImportedFamily> importGedcomFile(const QString& path);
Outcome<ImportedFamily> importGedcom(const QByteArray& bytes, const QString& name);

} // namespace lineara
