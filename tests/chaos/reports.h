#pragma once

#include <QByteArray>

#include <chrono>
#include <cstdint>

#include <unistd.h>

namespace lineara::chaos {

/// Nanoseconds on a clock that all processes share.
inline std::int64_t now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// In nanoseconds.
inline constexpr std::int64_t minute = 60'000'000'000;

/// Tells the parent, before anything else happens: what was told is known even if the process is killed right after.
inline void report(const QByteArray& words)
{
    const auto line = QByteArray::number(static_cast<qlonglong>(now())) + ' ' + words + '\n';
    [[maybe_unused]] const auto written =
        ::write(STDOUT_FILENO, line.constData(), static_cast<std::size_t>(line.size()));
}

} // namespace lineara::chaos
