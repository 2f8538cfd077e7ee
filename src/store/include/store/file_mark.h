#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace lineara {

/// What tells one state of a file on the disk from another one.
struct FileMark
{
    std::int64_t size = 0;    ///< bytes
    std::int64_t changed = 0; ///< nanoseconds since 1970, as the disk has it

    friend bool operator==(const FileMark&, const FileMark&) = default;

    /// Links are followed. No value if there is no such file.
    static std::optional<FileMark> of(const QString& path);
};

} // namespace lineara
