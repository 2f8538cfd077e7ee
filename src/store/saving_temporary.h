#pragma once

#include <filesystem>
#include <utility>

#include <sys/types.h>

namespace lineara::store {

/// A new file in a folder, which takes the place of another one once it is written. Gone with this object until then.
///
/// While the object lives, it holds a lock on the file. So a file of such a name without a lock was left by a program
/// that was killed, and removeStale() may remove it.
class SavingTemporary
{
public:
    explicit SavingTemporary(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~SavingTemporary();
    SavingTemporary(const SavingTemporary&) = delete;
    SavingTemporary& operator=(const SavingTemporary&) = delete;

    /// Removes what killed programs of the same user have left in the folder.
    void removeStale() const;

    /// The error number, or 0.
    int create(mode_t mode);
    const std::filesystem::path& path() const { return path_; }
    /// For writing; valid until closed.
    int file() const { return file_; }
    /// Ends the writing: the error number, or 0. The lock is held on.
    int close();
    /// Somebody else's now: the file has another name.
    void release() { path_.clear(); }

private:
    bool take(const std::filesystem::path& candidate, mode_t mode);

    std::filesystem::path folder_;
    std::filesystem::path path_;
    int file_ = -1;
    int lock_ = -1; // the same file once more, and with it the lock
};

} // namespace lineara::store
