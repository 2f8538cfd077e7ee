#pragma once

#include "platform/outcome.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include <sys/types.h>

namespace lineara::store {

/// Takes bytes; false if it refuses them. Nothing is handed over after a refusal.
using ByteSink = std::function<bool(std::string_view)>;

/// The calls that can fail half-way; replaced where failures are to be provoked.
struct FileCalls
{
    std::function<ssize_t(int, const void*, std::size_t)> write;
    std::function<int(int)> sync;
    std::function<int(const char*, const char*)> rename;

    static FileCalls ofTheSystem();
};

/// Puts what `produce` hands to its sink in the place of the file at `path`, or leaves everything as it was. The
/// failure names the path and the reason. Permissions, extended attributes and, where allowed, the owner stay; links
/// are followed. Only if the folder can't be synced at the very end, the new file stands there in spite of the failure,
/// since nothing but the disk knows which of the two a loss of power would leave.
Outcome<Done> replaceFile(const QString& path, const std::function<bool(ByteSink)>& produce,
                          const FileCalls& calls = FileCalls::ofTheSystem());

/// Why replaceFile() would fail at `path`, ready to follow a colon; no value if nothing is known beforehand.
std::optional<QString> obstacleToReplacing(const QString& path);

/// Makes an empty file of a name that is free in the folder, readable by its owner alone: `fileName` itself, or with a
/// number before its ending ("family 2.lineara"). Never opens or follows what is there already. Gives its path; the
/// failure is the reason alone. `aboutToMake` is called with every path before it is known whether that is free.
Outcome<QString> createFreeFile(
    const QString& folder, const QString& fileName,
    const std::function<void(const QString& path)>& aboutToMake = [](const QString&) {});

/// Puts a copy of the ordinary file at `from` in the place of the one at `to`, as replaceFile() does.
Outcome<Done> copyOver(const QString& from, const QString& to, const FileCalls& calls = FileCalls::ofTheSystem());

/// An error number in plain words, ready to follow a colon.
QString reasonOf(int errorNumber);

} // namespace lineara::store
