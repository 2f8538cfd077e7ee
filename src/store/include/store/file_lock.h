#pragma once

#include <QString>

#include <memory>

namespace lineara {

/// The right to something that at most one holder among all running programs has. The system takes it back when the
/// holder's process ends, however that happens.
class FileLock
{
public:
    /// Takes the right that the file at `path` stands for; the file is made, with its folder, and goes with the lock.
    /// Nullptr if somebody else has it, in this program or another one. Where no such file can be made, the right is
    /// given to everybody who asks.
    static std::unique_ptr<FileLock> tryTake(const QString& path);

    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    FileLock(QByteArray path, int file);

    QByteArray path_;
    int file_; // negative where there is none
};

} // namespace lineara
