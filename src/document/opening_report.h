#pragma once

#include "document/family_opening.h"

#include <QString>

#include <optional>

namespace lineara {

/// What a user should know about the opening of a file: one line, and every detail line by line.
struct OpeningReport
{
    QString summary;
    QString details; ///< empty if the summary tells it all
};

/// No value if there is nothing to tell (a sound family file).
std::optional<OpeningReport> openingReport(const OpenedFamily& family);

} // namespace lineara
