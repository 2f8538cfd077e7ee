#include "migration_check.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto complaint = lineara::checkMigration(bytes);
    if (!complaint.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(complaint));
        std::abort();
    }
    return 0;
}
