#pragma once

#include "document/family_opening.h"

#include <QString>

namespace lineara::tool {

/// What a script learns from the program's end. Frozen: scripts rely on the numbers.
enum class ExitCode : int
{
    Done = 0,
    InputUnreadable = 1,
    WrongUsage = 2,
    OutputUnwritable = 3
};

/// One line on standard error, "lineara-tool: text".
void tell(const QString& text);

/// Text on standard output, as it stands; false if nobody could take it.
bool print(const QString& text);

/// Opens a family ready to be drawn and tells what had to be left out or mended: in one line, or with `tellNotes` in
/// full. A failure is not told.
Outcome<OpenedFamily> openTold(const QString& path, bool tellNotes);

} // namespace lineara::tool
