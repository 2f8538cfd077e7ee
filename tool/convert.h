#pragma once

#include "command_line.h"
#include "messages.h"

namespace lineara::tool {

/// Reads the one file and writes the other; what goes wrong is told. The same input gives the same bytes.
ExitCode convert(const ConvertCommand& command);

} // namespace lineara::tool
