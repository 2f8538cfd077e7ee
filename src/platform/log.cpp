#include "platform/log.h"

#include <cstdio>
#include <mutex>
#include <string>

namespace lineara {

namespace {

std::mutex captureMutex;
std::string captured;
bool capturing = false;

} // namespace

void writeLog(std::string_view lines)
{
    const std::lock_guard lock(captureMutex);
    if (capturing)
        captured += lines;
    else
        std::fwrite(lines.data(), 1, lines.size(), stderr);
}

LogCapture::LogCapture()
{
    const std::lock_guard lock(captureMutex);
    captured.clear();
    capturing = true;
}

LogCapture::~LogCapture()
{
    const std::lock_guard lock(captureMutex);
    capturing = false;
}

std::string_view LogCapture::text() const
{
    const std::lock_guard lock(captureMutex);
    return captured;
}

} // namespace lineara
