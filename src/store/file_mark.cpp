#include "store/file_mark.h"

#include <QFile>

#include <sys/stat.h>

namespace lineara {

std::optional<FileMark> FileMark::of(const QString& path)
{
    constexpr std::int64_t nanosecondsOfASecond = 1'000'000'000;
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileMark{status.st_size, status.st_mtim.tv_sec * nanosecondsOfASecond + status.st_mtim.tv_nsec};
}

} // namespace lineara
