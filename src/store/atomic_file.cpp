#include "atomic_file.h"

#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lineara::store {

namespace {

namespace fs = std::filesystem;

/// An open file descriptor.
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }
    /// The error number, or 0.
    int close() { return isOpen() && ::close(std::exchange(descriptor_, -1)) != 0 ? errno : 0; }

private:
    int descriptor_;
};

/// The file that the path means in the end. It need not exist.
Outcome<fs::path> followLinks(fs::path path)
{
    constexpr int mostLinks = 40;
    for (int followed = 0; followed <= mostLinks; ++followed) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const auto target = fs::read_symlink(path, error);
        if (error)
            return Failure{reasonOf(error.value())};
        path = path.parent_path() / target;
    }
    return Failure{reasonOf(ELOOP)};
}

/// Replaces one file. Every step gives the error number of what failed, or 0.
class Replacement
{
public:
    Replacement(fs::path target, const FileCalls& calls) : target_(std::move(target)), calls_(calls) {}

    ~Replacement()
    {
        if (!temporary_.empty())
            ::unlink(temporary_.c_str());
    }

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    int run(const std::function<bool(ByteSink)>& produce)
    {
        if (const int error = examineTarget())
            return error;
        Descriptor file(create());
        if (!file.isOpen())
            return errno;
        if (const int error = fill(file.get(), produce))
            return error;
        if (const int error = file.close())
            return error;
        if (calls_.rename(temporary_.c_str(), target_.c_str()) != 0)
            return errno;
        temporary_.clear();
        return syncFolder();
    }

private:
    fs::path folder() const { return target_.has_parent_path() ? target_.parent_path() : fs::path("."); }

    /// Renaming would replace what must not be written to, so that is asked before.
    int examineTarget()
    {
        struct stat status = {};
        if (::stat(target_.c_str(), &status) != 0)
            return errno == ENOENT ? 0 : errno;
        if (S_ISDIR(status.st_mode))
            return EISDIR;
        if (!S_ISREG(status.st_mode))
            return EINVAL;
        if (::access(target_.c_str(), W_OK) != 0)
            return errno;
        old_ = status;
        return 0;
    }

    int create()
    {
        constexpr int attempts = 100;
        // What replaces a private file must never be readable to others, not even for a moment.
        const mode_t mode = old_ ? 0600 : 0666;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            std::array<char, 32> name{};
            std::snprintf(name.data(), name.size(), ".lineara-%08x", QRandomGenerator::system()->generate());
            const auto candidate = folder() / name.data();
            const int descriptor = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            if (descriptor >= 0)
                temporary_ = candidate;
            if (descriptor >= 0 || errno != EEXIST)
                return descriptor;
        }
        return -1;
    }

    int fill(int file, const std::function<bool(ByteSink)>& produce)
    {
        int error = 0;
        const bool produced = produce([&](std::string_view bytes) {
            error = writeAll(file, bytes);
            return error == 0;
        });
        if (!produced)
            return error != 0 ? error : EIO;
        if (old_)
            takeOver(file);
        return calls_.sync(file) != 0 ? errno : 0;
    }

    int writeAll(int file, std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const auto written = calls_.write(file, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                return written < 0 ? errno : EIO;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return 0;
    }

    /// Owner first, because changing it clears bits of the mode. Only the superuser can give files away; then the
    /// file belongs to whoever saved it.
    void takeOver(int file) const
    {
        const bool sameOwner = ::fchown(file, old_->st_uid, old_->st_gid) == 0;
        const mode_t bits = sameOwner ? 07777 : 0777;
        static_cast<void>(::fchmod(file, old_->st_mode & bits));
    }

    /// Makes the new name last. Some file systems can't sync a folder; the file is in place all the same.
    int syncFolder() const
    {
        const Descriptor directory(::open(folder().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!directory.isOpen() || calls_.sync(directory.get()) == 0 || errno == EINVAL || errno == ENOTSUP)
            return 0;
        return errno;
    }

    fs::path target_;
    const FileCalls& calls_;
    fs::path temporary_;
    std::optional<struct stat> old_;
};

} // namespace

FileCalls FileCalls::ofTheSystem()
{
    return {::write, ::fsync, ::rename};
}

QString reasonOf(int errorNumber)
{
    switch (errorNumber) {
    case ENOENT:
        return u"the folder or file does not exist."_qs;
    case ENOTDIR:
        return u"a part of the path is not a folder."_qs;
    case EACCES:
    case EPERM:
        return u"permission is denied."_qs;
    case EROFS:
        return u"the disk is read-only."_qs;
    case ENOSPC:
        return u"there is no space left on the disk."_qs;
    case EDQUOT:
        return u"your share of the disk is used up."_qs;
    case EFBIG:
        return u"the file would be too large for the disk."_qs;
    case EISDIR:
        return u"it is a folder."_qs;
    case EINVAL:
        return u"it is not an ordinary file."_qs;
    case ENAMETOOLONG:
        return u"the name is too long."_qs;
    case ELOOP:
        return u"its symbolic links lead in a circle."_qs;
    case EIO:
        return u"the disk reports an error."_qs;
    default:
        return qt_error_string(errorNumber) + u'.';
    }
}

Outcome<Done> replaceFile(const QString& path, const std::function<bool(ByteSink)>& produce, const FileCalls& calls)
{
    const auto failure = [&path](const QString& reason) {
        return Failure{u"“%1” can't be saved: %2"_qs.arg(path, reason)};
    };
    auto target = followLinks(QFile::encodeName(path).toStdString());
    if (target.failed())
        return failure(target.failure().message);
    if (const int error = Replacement(target.value(), calls).run(produce))
        return failure(reasonOf(error));
    return Done{};
}

} // namespace lineara::store
