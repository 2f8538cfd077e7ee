#include "bring_up_to_date.h"

#include "progressive_migration.h"
#include "store/family_file.h"
#include "store/migration_manager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace lineara {

namespace {

struct BringUpToDateTexts
{
    Q_DECLARE_TR_FUNCTIONS(BringUpToDate)
};

Outcome<std::optional<StoreMetadata>> metadataOf(const QString& path)
{
    const auto metadata = metadataForPersistentStore(path);
    return metadata.failed() ? Outcome<std::optional<StoreMetadata>>(metadata.failure())
                             : std::optional(metadata.value());
}

/// A family that can't be read after the last step must not take the place of the one before.
Outcome<Done> checkReadable(const MigrationStep& step)
{
    if (step.destination.version != currentModelVersion)
        return Done{};
    const auto family = readFamilyFile(step.to);
    if (family)
        return Done{};
    auto reason = family.failure().message;
    return Failure{reason.replace(step.to, step.from)};
}

bool migrateStore(const MigrationStep& step, store::FileCalls calls, const Progress& progress, MigrationNote& note,
                  ErrorSlot& error)
{
    calls.rename = [&note, &step, rename = calls.rename](const char* from, const char* to) {
        note.setTemporary(step.to, QFile::decodeName(from));
        return rename(from, to);
    };
    const MigrationManager manager(step.source, step.destination);
    auto done = manager.migrateStore(step.from, step.to, step.mapping, calls, progress);
    if (done)
        done = checkReadable(step);
    if (done.failed())
        error = done.failure();
    return !done.failed();
}

/// Makes the folder where there is none; why that, or making a file in it, can't be done.
std::optional<QString> obstacleToFilesIn(const QString& folder)
{
    const std::filesystem::path path = QFile::encodeName(folder).toStdString();
    std::error_code error;
    if (std::filesystem::create_directories(path, error); error)
        return store::reasonOf(error.value());
    // As who the program acts, and not as who has started it.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return store::reasonOf(errno);
    return std::nullopt;
}

Outcome<QString> freeFile(const QString& folder, const QString& fileName)
{
    if (const auto obstacle = obstacleToFilesIn(folder))
        return Failure{*obstacle};
    return store::createFreeFile(folder, fileName);
}

Outcome<QString> keptOriginal(const QString& path, const QString& folder, const store::FileCalls& calls,
                              MigrationNote& note)
{
    auto kept = freeFile(folder, QFileInfo(path).fileName());
    if (kept.failed())
        return Failure{
            BringUpToDateTexts::tr("“%1” is not brought up to date, because no copy of it can be kept in “%2”: %3")
                .arg(path, folder, kept.failure().message)};
    note.addOriginal(kept.value());
    const auto copied = store::copyOver(path, kept.value(), calls);
    if (!copied.failed())
        return kept;
    QFile::remove(kept.value());
    note.forgetOriginal(kept.value());
    return copied.failure();
}

/// Why no mapping leads on from the version that the file has.
QString refusal(const QString& path)
{
    const auto metadata = metadataForPersistentStore(path);
    if (metadata.failed())
        return metadata.failure().message;
    const int version = metadata.value().modelVersion;
    if (version > currentModelVersion)
        return BringUpToDateTexts::tr(
                   "“%1” was written by a newer version of Lineara (data model %2); this version reads data "
                   "models up to %3. The file was not changed.")
            .arg(path)
            .arg(version)
            .arg(currentModelVersion);
    return BringUpToDateTexts::tr(
               "“%1” can't be brought up to date: this version of Lineara knows no way from data model %2 to %3.")
        .arg(path)
        .arg(version)
        .arg(currentModelVersion);
}

QStringList temporaryFolders(const QString& homeFolder)
{
    const auto others = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    return homeFolder.isEmpty() ? QStringList{others} : QStringList{homeFolder, others};
}

StoreSurroundings surroundings(const ResourceBundle& bundle, const MigrationPlaces& places, const Progress& progress,
                               UpToDateFile& file)
{
    const auto& calls = places.calls;
    const auto keepOriginal = [&places, &file](const QString& path) -> Outcome<Done> {
        if (places.originalsFolder.isEmpty())
            return Done{};
        auto kept = keptOriginal(path, places.originalsFolder, places.calls, file.note);
        if (kept.failed())
            return kept.failure();
        file.original = kept.value();
        return Done{};
    };
    return {bundle, bundle.currentModel(), temporaryFolders(places.homeFolder), metadataOf,
            [](const QString&) { return std::nullopt; },
            [&calls, &progress, &file](const MigrationStep& step, ErrorSlot& error) {
                return migrateStore(step, calls, progress, file.note, error);
            },
            [&calls](const QString& from, const QString& to) { return store::copyOver(from, to, calls); }, keepOriginal,
            [](const StoreRequest&, ErrorSlot&) { return true; },
            // Noted before it is there: whoever is killed in between leaves no file that nobody knows of.
            [&file](const QString& folder, const QString& fileName) {
                return store::createFreeFile(folder, fileName,
                                             [&file](const QString& path) { file.note.announceTemporary(path); });
            }};
}

/// Neither follows links nor shortens the path, which may lead over one.
QUrl urlOf(const QString& path)
{
    auto absolute = QDir::isAbsolutePath(path) ? path : QDir::currentPath() + u'/' + path;
    // Two slashes in front would name a host.
    while (absolute.startsWith(u"//"))
        absolute.remove(0, 1);
    return QUrl::fromLocalFile(absolute);
}

/// The failure, and where the file as it was is kept; not kept any longer if the file was not replaced after all.
Failure failureOf(const QString& path, const QString& reason, UpToDateFile& file, int versionBefore)
{
    // What could not take the file's place goes when the file is opened the next time.
    if (!file.note.hasTemporary())
        file.note.forgetTemporary();
    if (!file.original)
        return Failure{reason};
    file.note.forgetOriginal(*file.original);
    const auto metadata = metadataForPersistentStore(path);
    if (metadata && metadata.value().modelVersion == versionBefore) {
        QFile::remove(*file.original);
        return Failure{reason};
    }
    return Failure{BringUpToDateTexts::tr("%1 The file as it was is kept in “%2”.").arg(reason, *file.original)};
}

} // namespace

MigrationPlaces MigrationPlaces::ofTheUser()
{
    // Without a home, the toolkit would name the root of all folders.
    const auto home = qEnvironmentVariable("HOME");
    const auto data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return {home, data + u"/originals"_qs, store::FileCalls::ofTheSystem(), data + u"/migrations"_qs};
}

void UpToDateFile::forgetOriginal()
{
    if (original)
        QFile::remove(*original);
    note.removeOriginals();
}

Outcome<UpToDateFile> bringUpToDate(const QString& path, const MigrationPlaces& places, const Progress& progress)
{
    const auto before = metadataForPersistentStore(path);
    const int versionBefore = before ? before.value().modelVersion : 0;
    const ResourceBundle bundle;
    UpToDateFile file{std::nullopt, MigrationNote(places.notesFolder, path)};
    file.note.removeTemporary();
    ErrorSlot error;
    ProgressiveMigration migration(surroundings(bundle, places, progress, file));
    if (migration.configurePersistentStoreCoordinator(urlOf(path), u"XML"_qs, std::nullopt, {}, error)) {
        file.note.forgetTemporary();
        return file;
    }
    return failureOf(path, error ? error->message : refusal(path), file, versionBefore);
}

std::optional<QString> obstacleToUpdating(const QString& path, const QString& originalsFolder)
{
    const auto metadata = metadataForPersistentStore(path);
    const bool isOld = metadata && metadata.value().modelVersion < currentModelVersion;
    if (!isOld)
        return std::nullopt;
    if (auto obstacle = store::obstacleToReplacing(path))
        return obstacle;
    const auto obstacle = originalsFolder.isEmpty() ? std::nullopt : obstacleToFilesIn(originalsFolder);
    return obstacle ? std::optional(BringUpToDateTexts::tr("no copy of it as it was can be kept in “%1”: %2")
                                        .arg(originalsFolder, *obstacle))
                    : std::nullopt;
}

Outcome<ReadableFile> readableCopy(const QString& path, const Progress& progress)
{
    const auto metadata = metadataForPersistentStore(path);
    if (metadata.failed() || metadata.value().modelVersion == currentModelVersion)
        return ReadableFile{path, nullptr};
    ReadableFile copy{path, std::make_unique<QTemporaryDir>()};
    copy.path = copy.folder->filePath(QFileInfo(path).fileName());
    if (const auto copied = store::copyOver(path, copy.path); copied.failed()) {
        const auto& failure = copied.failure();
        return Failure{BringUpToDateTexts::tr("“%1” can't be opened, because no copy of it can be made: %2")
                           .arg(path, failure.reason.isEmpty() ? failure.message : failure.reason)};
    }
    const auto current = bringUpToDate(copy.path, {copy.folder->path(), {}}, progress);
    if (current.failed()) {
        auto reason = current.failure().message;
        return Failure{reason.replace(copy.path, path)};
    }
    return copy;
}

} // namespace lineara
