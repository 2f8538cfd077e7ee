#pragma once

#include "store/file_mark.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace lineara {

/// What bringing one family file up to date has put elsewhere. It is written down in a folder of the program's, so that
/// the next one who opens the file finds and removes it even if this program is killed. One at a time for a file.
class MigrationNote
{
public:
    /// Of nothing, and written nowhere.
    MigrationNote() = default;
    /// What is written down about the file in that folder.
    MigrationNote(const QString& folder, const QString& path);

    void addOriginal(const QString& path);
    /// Removes all the files as they were.
    void removeOriginals();
    /// That one is gone, or the user's from now on.
    void forgetOriginal(const QString& path);

    /// An empty file may be made at `path`.
    void announceTemporary(const QString& path);
    /// The file at `path` will hold what the one at `content` holds, or does so already.
    void setTemporary(const QString& path, const QString& content);
    /// Whether the temporary file is there and is what was noted.
    bool hasTemporary() const;
    /// Removes the temporary file, but only if nothing is in it or what was noted, and nobody works on it.
    void removeTemporary();
    /// It is gone, or the user's from now on.
    void forgetTemporary();

private:
    void read();
    void write() const;

    QString notePath_; // empty where nothing is written down
    QStringList originals_;
    QString temporary_;
    std::optional<FileMark> mark_; // of the temporary file
};

} // namespace lineara
