#pragma once

#include "migration_note.h"
#include "platform/outcome.h"
#include "platform/progress.h"
#include "store/atomic_file.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace lineara {

/// Where files are put while a family is brought up to date.
struct MigrationPlaces
{
    /// For the migrated file, until it takes the old one's place; empty if there is none.
    QString homeFolder;
    /// For the file as it was, until the family is open; empty if it need not be kept.
    QString originalsFolder;
    store::FileCalls calls = store::FileCalls::ofTheSystem();
    /// For what is put into the two above, so that it can be removed after a crash; empty if nothing is written down.
    QString notesFolder = {};

    /// The user's home, and the folders "originals" and "migrations" in that of the program's data.
    static MigrationPlaces ofTheUser();
};

/// A family file that is of the current version now, or was no old one to begin with.
struct UpToDateFile
{
    std::optional<QString> original; ///< where the file as it was is kept, if it was replaced
    MigrationNote note;              ///< of that one, and of those that programs which were killed have left

    /// The family was opened; nobody needs the files as they were any more.
    void forgetOriginal();
};

/// Brings the family file at `path` up to the current version of the data model, in its place. Leaves other files, and
/// files that can't be read, as they are: whoever reads them says what is wrong. The failure names the file, the
/// version if that is why, and where a copy is kept, if there is one.
Outcome<UpToDateFile> bringUpToDate(const QString& path, const MigrationPlaces& places = MigrationPlaces::ofTheUser(),
                                    const Progress& progress = {});

/// Why a file of an older version can't be brought up to date in its place, ready to follow a colon. No value for other
/// files, and if nothing is known beforehand. The folder for originals is made, if the file could be replaced
/// otherwise.
std::optional<QString> obstacleToUpdating(const QString& path, const QString& originalsFolder);

/// A file to read instead of another, which is not to be changed.
struct ReadableFile
{
    QString path;
    std::unique_ptr<QTemporaryDir> folder; ///< holds it, if it is a copy
};

/// The file itself, or a copy that is brought up to date where it is of an older version.
Outcome<ReadableFile> readableCopy(const QString& path, const Progress& progress = {});

} // namespace lineara
