#include "document/family_opening.h"

#include "bring_up_to_date.h"
#include "canvas/tidying.h"
#include "store/family_file.h"

#include <QFile>
#include <QFileInfo>

namespace lineara {

namespace {

/// A family file whatever its name, and whatever genealogy its notes quote. Opening a pipe would wait for its other
/// end.
bool isXml(const QString& path)
{
    constexpr int longestBlank = 4096;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    QByteArray beginning = file.read(longestBlank);
    if (beginning.startsWith("\xEF\xBB\xBF"))
        beginning.remove(0, 3);
    const QByteArray start = beginning.trimmed().toLower();
    return start.startsWith('<') && !start.startsWith("<!doctype html") && !start.startsWith("<html");
}

Outcome<OpenedFamily> importFamily(const QString& path, const Progress& progress)
{
    auto imported = importGedcomFile(path, progress);
    if (imported.failed())
        return imported.failure();
    OpenedFamily family;
    family.context = std::move(imported.value().context);
    family.importReport = std::move(imported.value().report);
    return family;
}

Outcome<OpenedFamily> readOwnFamily(const QString& path, const Progress& progress)
{
    const auto places = MigrationPlaces::ofTheUser();
    if (const auto obstacle = obstacleToUpdating(path, places.originalsFolder)) {
        auto copy = openFamilyCopy(path, progress);
        if (copy) {
            copy.value().obstacle = obstacle;
            copy.value().origin.isStandIn = true;
        }
        return copy;
    }
    constexpr double stageOfOldFiles = 0.5;
    auto current = bringUpToDate(path, places, progress.stage(0, stageOfOldFiles));
    if (current.failed())
        return current.failure();
    // A change that comes while the file is read is one that was not seen.
    const auto mark = FileMark::of(path);
    auto loaded = readFamilyFile(path, progress.stage(current.value().original ? stageOfOldFiles : 0, 1));
    if (loaded.failed())
        return loaded.failure();
    current.value().forgetOriginal();
    OpenedFamily family;
    family.context = std::move(loaded.value().context);
    family.repairs = std::move(loaded.value().repairs);
    family.origin.isOwn = true;
    family.origin.mark = mark;
    return family;
}

} // namespace

bool isNamedLikeGenealogy(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QStringLiteral("ged") || suffix == QStringLiteral("gdz");
}

/// What is neither, but is said to be a genealogy, is refused as such.
bool isToBeImported(const QString& path)
{
    return !isXml(path) && (isGenealogy(path) || isNamedLikeGenealogy(path));
}

Outcome<OpenedFamily> openFamily(const QString& path, const Progress& progress)
{
    auto opened = isToBeImported(path) ? importFamily(path, progress) : readOwnFamily(path, progress);
    if (opened.failed())
        return opened;
    OpenedFamily& family = opened.value();
    family.origin.path = QFileInfo(path).absoluteFilePath();
    const auto pools = family.context->allPools();
    family.pool = pools.empty() ? &family.context->insertPool() : pools.front();
    return opened;
}

Outcome<OpenedFamily> openFamilyCopy(const QString& path, const Progress& progress)
{
    const auto readable = readableCopy(path, progress);
    if (readable.failed())
        return readable.failure();
    auto opened = openFamily(readable.value().path, progress);
    if (opened)
        opened.value().origin = {QFileInfo(path).absoluteFilePath(), false, std::nullopt, nullptr, true};
    return opened;
}

bool isUpdateStuck(const QString& path)
{
    return MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).hasTemporary();
}

void completeFamily(OpenedFamily& family)
{
    for (Person* const person : family.context->allPersons()) {
        if (!person->pool())
            family.pool->addPerson(*person);
    }
}

OpenedFamily newFamily()
{
    OpenedFamily family;
    family.context = std::make_unique<ObjectContext>();
    family.pool = &family.context->insertPool();
    return family;
}

Outcome<OpenedFamily> openSettledFamily(const QString& path)
{
    auto opened = openFamilyCopy(path);
    if (opened.failed())
        return opened;
    opened.value().pool->process();
    giveFirstPlaces(*opened.value().pool);
    return opened;
}

} // namespace lineara
