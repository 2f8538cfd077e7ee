#include "file_bytes.h"

#include "atomic_file.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lineara::store {

namespace {

constexpr qsizetype pieceSize = 4 * 1024 * 1024;

/// Appends the file in pieces. Memory grows with what was read, never with what the file claims to hold.
Outcome<QByteArray> readPieces(int file, qsizetype expected)
{
    QByteArray bytes;
    bytes.reserve(std::min(expected, 16 * pieceSize));
    for (;;) {
        const auto before = bytes.size();
        if (bytes.capacity() < before + pieceSize)
            bytes.reserve(std::min(std::max(2 * before, before + pieceSize), std::max(expected, before + pieceSize)));
        bytes.resize(before + pieceSize);
        const auto count = ::read(file, bytes.data() + before, static_cast<std::size_t>(pieceSize));
        if (count < 0 && errno != EINTR)
            return Failure{reasonOf(errno)};
        bytes.truncate(before + std::max<ssize_t>(count, 0));
        if (count == 0)
            return bytes;
        if (std::memchr(bytes.constData() + before, '\0', static_cast<std::size_t>(bytes.size() - before)))
            return bytes;
    }
}

} // namespace

Outcome<QByteArray> readTextFile(const QString& path)
{
    // Not waiting for the other end of a pipe.
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return Failure{reasonOf(errno)};
    struct stat status = {};
    Outcome<QByteArray> result = Failure{reasonOf(EINVAL)};
    if (::fstat(file, &status) != 0)
        result = Failure{reasonOf(errno)};
    else if (S_ISDIR(status.st_mode))
        result = Failure{reasonOf(EISDIR)};
    else if (S_ISREG(status.st_mode))
        result = readPieces(file, status.st_size);
    ::close(file);
    return result;
}

} // namespace lineara::store
