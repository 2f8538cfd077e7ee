#include "store/file_lock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lineara {

namespace {

/// A holder that lets go removes the name, maybe after somebody else has opened the file behind it.
bool isStillNamed(int file, const QByteArray& path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file, &opened) == 0 && ::stat(path.constData(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(QByteArray path, int file) : path_(std::move(path)), file_(file) {}

FileLock::~FileLock()
{
    if (file_ < 0)
        return;
    ::unlink(path_.constData());
    ::close(file_);
}

std::unique_ptr<FileLock> FileLock::tryTake(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QByteArray encoded = QFile::encodeName(path);
    for (;;) {
        const int file = ::open(encoded.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0)
            return std::unique_ptr<FileLock>(new FileLock(encoded, -1));
        const int error = ::flock(file, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        if (error == 0 && isStillNamed(file, encoded))
            return std::unique_ptr<FileLock>(new FileLock(encoded, file));
        ::close(file);
        if (error == EWOULDBLOCK)
            return nullptr;
        if (error != 0 && error != EINTR)
            return std::unique_ptr<FileLock>(new FileLock(encoded, -1));
    }
}

} // namespace lineara
