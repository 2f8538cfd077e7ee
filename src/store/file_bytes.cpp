#include "file_bytes.h"

#include "store/atomic_file.h"
#include "store_texts.h"

#include <QFile>
#include <QFileInfo>

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
Outcome<QByteArray> readPieces(int file, qsizetype expected, qsizetype most, const Progress& progress)
{
    QByteArray bytes;
    bytes.reserve(std::min(expected, 16 * pieceSize));
    for (;;) {
        const auto before = bytes.size();
        if (before >= most)
            return bytes;
        if (bytes.capacity() < before + pieceSize)
            bytes.reserve(std::min(std::max(2 * before, before + pieceSize), std::max(expected, before + pieceSize)));
        bytes.resize(before + pieceSize);
        const auto count =
            ::read(file, bytes.data() + before, static_cast<std::size_t>(std::min(pieceSize, most - before)));
        if (count < 0 && errno != EINTR)
            return Failure{reasonOf(errno)};
        bytes.truncate(before + std::max<ssize_t>(count, 0));
        if (count == 0)
            return bytes;
        if (bytes.size() > mostFileBytes)
            return tooLarge();
        const auto all = static_cast<double>(std::max(expected, bytes.size()));
        if (!progress.goesOn(static_cast<double>(bytes.size()) / all))
            return stoppedReading();
        if (std::memchr(bytes.constData() + before, '\0', static_cast<std::size_t>(bytes.size() - before)))
            return bytes;
    }
}

QString whyNotOpened(const QString& path, int error)
{
    if (error != EACCES)
        return reasonOf(error);
    const auto folder = QFile::encodeName(QFileInfo(path).path());
    return ::faccessat(AT_FDCWD, folder.constData(), X_OK, AT_EACCESS) == 0
               ? StoreTexts::tr("permission to read the file is denied.")
               : StoreTexts::tr("permission to open its folder is denied.");
}

} // namespace

Failure tooLarge()
{
    return Failure{StoreTexts::tr("it has more than 2 GB, and a family file can't have more.")};
}

Failure stoppedReading()
{
    return Failure{StoreTexts::tr("opening it was cancelled.")};
}

Outcome<QByteArray> readTextFile(const QString& path, const Progress& progress, qsizetype most)
{
    // Not waiting for the other end of a pipe.
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return Failure{whyNotOpened(path, errno)};
    struct stat status = {};
    Outcome<QByteArray> result = Failure{reasonOf(EINVAL)};
    if (::fstat(file, &status) != 0)
        result = Failure{reasonOf(errno)};
    else if (S_ISDIR(status.st_mode))
        result = Failure{reasonOf(EISDIR)};
    else if (S_ISREG(status.st_mode) && status.st_size > mostFileBytes && most > mostFileBytes)
        result = tooLarge();
    else if (S_ISREG(status.st_mode))
        result = readPieces(file, std::min<qsizetype>(status.st_size, most), most, progress);
    ::close(file);
    return result;
}

} // namespace lineara::store
