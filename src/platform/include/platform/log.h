#pragma once

#include <string>
#include <string_view>

namespace lineara {

/// Writes whole lines to the system log. `lines` may hold many, each ended by '\n', and is written at once, so that a
/// run with thousands of lines costs one write. Any thread.
void writeLog(std::string_view lines);

/// Receives everything that is logged instead of the system log, until destroyed; of several the one that was made
/// last, which has to go first. For tests.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// What was received since construction. Any thread.
    std::string text() const;

private:
    friend void writeLog(std::string_view lines);

    std::string text_;
    LogCapture* outer_ = nullptr;
};

} // namespace lineara
