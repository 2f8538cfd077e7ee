#include "platform/log.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace lineara {

namespace {

std::mutex mutex;
LogCapture* innermost = nullptr;

} // namespace

void writeLog(std::string_view lines)
{
    const std::lock_guard lock(mutex);
    if (innermost)
        innermost->text_ += lines;
    else
        std::fwrite(lines.data(), 1, lines.size(), stderr);
}

LogCapture::LogCapture()
{
    const std::lock_guard lock(mutex);
    outer_ = std::exchange(innermost, this);
}

LogCapture::~LogCapture()
{
    const std::lock_guard lock(mutex);
    innermost = outer_;
}

std::string LogCapture::text() const
{
    const std::lock_guard lock(mutex);
    return text_;
}

} // namespace lineara
