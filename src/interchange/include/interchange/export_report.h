#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>

namespace lineara {

/// What an export could not give away with its file.
struct ExportReport
{
    /// Pictures of persons that the file neither holds nor names a file of that is there. Only a GEDZIP holds them all.
    std::size_t picturesLeftOut = 0;
    /// Files that the genealogy names and that are neither in its archive nor beside it, in the order of the lines.
    QStringList missingFiles;
};

/// The report as lines to read, each with a line end; empty if there is nothing to tell.
QString exportSummary(const ExportReport& report);

/// The same without the names of single files: at most two lines.
QString exportSums(const ExportReport& report);

} // namespace lineara
