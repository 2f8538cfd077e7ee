#pragma once

#include <functional>
#include <string_view>

namespace lineara {

/// Writes whole lines to the system log. `lines` may hold many, each ended by '\n', and is written at once, so that a
/// run with thousands of lines costs one write. Any thread.
void writeLog(std::string_view lines);

/// Receives everything that is logged instead of the system log, until destroyed. For tests; one at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// What was logged since construction.
    std::string_view text() const;
};

} // namespace lineara
