#include "store/atomic_file.h"

#include "extended_attributes.h"
#include "saving_temporary.h"
#include "store_texts.h"

#include <QFile>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lineara::store {

namespace {

namespace fs = std::filesystem;

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
    Replacement(const fs::path& target, const FileCalls& calls)
        : target_(target), calls_(calls), temporary_(folderOf(target))
    {}

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    /// Why it can't be done, as far as can be told beforehand.
    int examine()
    {
        if (const int error = examineTarget())
            return error;
        return mayWrite(folderOf(target_), W_OK | X_OK) ? 0 : errno;
    }

    int run(const std::function<bool(ByteSink)>& produce)
    {
        if (const int error = examineTarget())
            return error;
        temporary_.removeStale();
        // What replaces a private file must never be readable to others, not even for a moment.
        if (const int error = temporary_.create(old_ ? 0600 : 0666))
            return error;
        if (const int error = fill(temporary_.file(), produce))
            return error;
        if (const int error = temporary_.close())
            return error;
        if (calls_.rename(temporary_.path().c_str(), target_.c_str()) != 0)
            return errno;
        temporary_.release();
        return syncFolder();
    }

    /// What the error number of a step means here.
    QString reason(int error) const
    {
        if (error != EACCES && error != EPERM)
            return reasonOf(error);
        return isTargetClosed_ ? StoreTexts::tr("permission to write to the file is denied.")
                               : StoreTexts::tr("permission to write to its folder is denied.");
    }

private:
    /// As the one whom files belong to that are made now.
    static bool mayWrite(const fs::path& path, int access)
    {
        return ::faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
    }

    static fs::path folderOf(const fs::path& file)
    {
        return file.has_parent_path() ? file.parent_path() : fs::path(".");
    }

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
        isTargetClosed_ = !mayWrite(target_, W_OK);
        if (isTargetClosed_)
            return errno;
        old_ = status;
        return 0;
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
        copyExtendedAttributes(target_.c_str(), file);
    }

    /// Makes the new name last. Some file systems can't sync a folder; the file is in place all the same.
    int syncFolder() const
    {
        const int directory = ::open(folderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (directory < 0)
            return 0;
        const int error = calls_.sync(directory) != 0 ? errno : 0;
        ::close(directory);
        return error == EINVAL || error == ENOTSUP ? 0 : error;
    }

    fs::path target_;
    const FileCalls& calls_;
    SavingTemporary temporary_;
    std::optional<struct stat> old_;
    bool isTargetClosed_ = false;
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
        return StoreTexts::tr("the folder or file does not exist.");
    case ENOTDIR:
        return StoreTexts::tr("a part of the path is not a folder.");
    case EACCES:
    case EPERM:
        return StoreTexts::tr("permission is denied.");
    case EROFS:
        return StoreTexts::tr("the disk is read-only.");
    case ENOSPC:
        return StoreTexts::tr("there is no space left on the disk.");
    case EDQUOT:
        return StoreTexts::tr("your share of the disk is used up.");
    case EFBIG:
        return StoreTexts::tr("the file would be too large for the disk.");
    case EISDIR:
        return StoreTexts::tr("it is a folder.");
    case EINVAL:
        return StoreTexts::tr("it is not an ordinary file.");
    case ENAMETOOLONG:
        return StoreTexts::tr("the name is too long.");
    case ELOOP:
        return StoreTexts::tr("its symbolic links lead in a circle.");
    case EIO:
        return StoreTexts::tr("the disk reports an error.");
    default:
        return qt_error_string(errorNumber) + u'.';
    }
}

Outcome<Done> replaceFile(const QString& path, const std::function<bool(ByteSink)>& produce, const FileCalls& calls)
{
    const auto failure = [&path](const QString& reason) {
        return Failure{StoreTexts::tr("“%1” can't be saved: %2").arg(path, reason), reason};
    };
    auto target = followLinks(QFile::encodeName(path).toStdString());
    if (target.failed())
        return failure(target.failure().message);
    Replacement replacement(target.value(), calls);
    if (const int error = replacement.run(produce))
        return failure(replacement.reason(error));
    return Done{};
}

std::optional<QString> obstacleToReplacing(const QString& path)
{
    auto target = followLinks(QFile::encodeName(path).toStdString());
    if (target.failed())
        return target.failure().message;
    const auto calls = FileCalls::ofTheSystem();
    Replacement replacement(target.value(), calls);
    const int error = replacement.examine();
    return error ? std::optional(replacement.reason(error)) : std::nullopt;
}

} // namespace lineara::store
