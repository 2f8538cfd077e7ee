#pragma once

#include "interchange/export_report.h"
#include "platform/outcome.h"
#include "platform/progress.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace lineara {

class FamilyContent;

enum class GedcomFormat : std::uint8_t
{
    Gedcom551,
    Gedcom70,
    Gedzip ///< 7.0 in a ZIP archive, together with the persons' pictures
};

/// The family as a genealogy in UTF-8. What was imported comes back line by line, but for what has changed since;
/// everything else is written anew, families rebuilt from the links. Equal families give equal bytes. Fails only if it
/// is stopped, or if it can't be told any more which person was made of which of the kept records. Any thread.
Outcome<QByteArray> gedcomOf(const FamilyContent& family, GedcomFormat format, const Progress& progress = {});

/// Puts gedcomOf() in the place of the file at `path`, or leaves that as it was, and tells what could not go along. The
/// failure names the file. A stop is heard until the moment in which the file takes its place. Any thread.
Outcome<ExportReport> exportGedcomFile(const FamilyContent& family, const QString& path, GedcomFormat format,
                                       const Progress& progress = {});

} // namespace lineara
