#pragma once

#include "platform/outcome.h"
#include "xml_writer.h"

#include <QString>

#include <cstddef>
#include <functional>

#include <sys/types.h>

namespace lineara::store {

/// The calls that can fail half-way; replaced where failures are to be provoked.
struct FileCalls
{
    std::function<ssize_t(int, const void*, std::size_t)> write;
    std::function<int(int)> sync;
    std::function<int(const char*, const char*)> rename;

    static FileCalls ofTheSystem();
};

/// Puts what `produce` hands to its sink in the place of the file at `path`, or leaves everything as it was. The
/// failure names the path and the reason. Permissions and, where allowed, the owner stay; links are followed.
Outcome<Done> replaceFile(const QString& path, const std::function<bool(ByteSink)>& produce,
                          const FileCalls& calls = FileCalls::ofTheSystem());

/// An error number in plain words, ready to follow a colon.
QString reasonOf(int errorNumber);

} // namespace lineara::store
