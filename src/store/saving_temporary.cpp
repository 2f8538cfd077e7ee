#include "saving_temporary.h"

#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lineara::store {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = ".lineara-";
constexpr std::size_t digits = 8;

bool isName(const std::string& name)
{
    return name.size() == prefix.size() + digits && name.starts_with(prefix) &&
           name.find_first_not_of("0123456789abcdef", prefix.size()) == std::string::npos;
}

fs::path randomName()
{
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), ".lineara-%08x", QRandomGenerator::system()->generate());
    return name.data();
}

/// Another program may have removed the file, between its making and its lock, for one that was left.
bool isStillNamed(int file, const fs::path& path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

bool isOwnFile(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

void removeIfStale(const fs::path& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    // Removed while the lock is held, or a program that is about to take it would not see that the file is gone.
    if (isOwnFile(file) && ::flock(file, LOCK_EX | LOCK_NB) == 0 && isStillNamed(file, path))
        ::unlink(path.c_str());
    ::close(file);
}

} // namespace

SavingTemporary::~SavingTemporary()
{
    if (!path_.empty())
        ::unlink(path_.c_str());
    close();
    if (lock_ >= 0)
        ::close(lock_);
}

void SavingTemporary::removeStale() const
{
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
        if (isName(entry->path().filename().string()))
            removeIfStale(entry->path());
    }
}

int SavingTemporary::create(mode_t mode)
{
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (take(folder_ / randomName(), mode))
            return 0;
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

/// With EEXIST if the name, or the file, is somebody else's.
bool SavingTemporary::take(const fs::path& candidate, mode_t mode)
{
    file_ = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file_ < 0)
        return false;
    // On a disk without locks nobody gets one, so nobody removes the file either.
    const bool isTaken = ::flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (isTaken || !isStillNamed(file_, candidate)) {
        close();
        errno = EEXIST;
        return false;
    }
    path_ = candidate;
    lock_ = ::fcntl(file_, F_DUPFD_CLOEXEC, 0);
    return true;
}

int SavingTemporary::close()
{
    return file_ >= 0 && ::close(std::exchange(file_, -1)) != 0 ? errno : 0;
}

} // namespace lineara::store
