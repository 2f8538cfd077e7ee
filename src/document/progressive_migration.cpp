#include "progressive_migration.h"

#include "platform/log.h"
#include "store/atomic_file.h"

#include <QFile>

#include <utility>

namespace lineara {

namespace {

void log(const QString& line)
{
    writeLog((line + u'\n').toStdString());
}

} // namespace

ProgressiveMigration::ProgressiveMigration(StoreSurroundings surroundings) : surroundings_(std::move(surroundings)) {}

bool ProgressiveMigration::configurePersistentStoreCoordinator(const QUrl& url, const QString& type,
                                                               const std::optional<QString>& configuration,
                                                               const QVariantMap& options, ErrorSlot& error)
{
    error.reset();
    Journey journey{{url, type, configuration, options}, {}, {}, {}, false};
    const auto handOver = [&] { return surroundings_.attach(journey.request, error); };
    log(u"Checking if migration needed for file: "_qs + url.toString(QUrl::FullyEncoded));
    const auto metadata = surroundings_.readMetadata(url.toLocalFile());
    if (metadata.failed()) {
        error = metadata.failure();
        return handOver();
    }
    const auto known = metadata.value() ? metadata.value() : surroundings_.attachedMetadata(url.toLocalFile());
    if (!known || surroundings_.currentModel.isCompatible(configuration, *known))
        return handOver();
    journey.metadata = *known;
    log(u"Migration needed, migrating data to latest version"_qs);
    return climb(journey, error) && handOver();
}

bool ProgressiveMigration::climb(Journey& journey, ErrorSlot& error) const
{
    while (!surroundings_.currentModel.isCompatible(journey.request.configuration, journey.metadata)) {
        journey.visited.insert(journey.metadata.modelVersion);
        const auto route = findRoute(journey);
        if (!route) {
            log(u"Fatal Error: Unable to find any suitable mapping model for migration of data"_qs);
            return false;
        }
        journey.visited.insert(route->destination.version);
        if (!pass(journey, *route, error))
            return false;
    }
    return true;
}

std::optional<ProgressiveMigration::Route> ProgressiveMigration::findRoute(Journey& journey) const
{
    if (auto direct = routeTo(surroundings_.currentModel, journey))
        return direct;
    log(u"Progressive migration required"_qs);
    if (journey.candidates.empty())
        loadCandidates(journey);
    for (const auto& candidate : journey.candidates) {
        if (auto route = routeTo(candidate, journey))
            return route;
    }
    return std::nullopt;
}

std::optional<ProgressiveMigration::Route> ProgressiveMigration::routeTo(const ModelVersion& destination,
                                                                         const Journey& journey) const
{
    const auto source = surroundings_.bundle.modelFor(journey.metadata);
    if (!source || journey.visited.contains(destination.version))
        return std::nullopt;
    auto mapping = surroundings_.bundle.mappingModel(*source, destination);
    if (!mapping)
        return std::nullopt;
    return Route{*source, destination, *std::move(mapping)};
}

void ProgressiveMigration::loadCandidates(Journey& journey) const
{
    log(u"Loading all available models"_qs);
    for (const auto& resource : surroundings_.bundle.resources(u"mom"_qs, u"Document.momd"_qs)) {
        if (auto model = surroundings_.bundle.model(resource))
            journey.candidates.push_back(std::move(model.value()));
    }
}

bool ProgressiveMigration::pass(Journey& journey, const Route& route, ErrorSlot& error) const
{
    log(u"Performing migration"_qs);
    const auto temporary = temporaryFile(journey.request.url);
    if (temporary.failed()) {
        error = temporary.failure();
        return false;
    }
    const auto from = journey.request.url.toLocalFile();
    if (!migrate(route, from, temporary.value(), error)) {
        QFile::remove(temporary.value());
        return false;
    }
    return replace(journey, temporary.value(), error) && readMetadataAgain(journey, error);
}

bool ProgressiveMigration::migrate(const Route& route, const QString& from, const QString& to, ErrorSlot& error) const
{
    const bool isDone = surroundings_.migrateStore({route.source, route.destination, route.mapping, from, to}, error);
    if (!isDone && !error)
        log(u"Unable to perform migration"_qs);
    return isDone && !error;
}

bool ProgressiveMigration::replace(Journey& journey, const QString& temporary, ErrorSlot& error) const
{
    const auto path = journey.request.url.toLocalFile();
    if (!journey.isOriginalKept) {
        if (const auto kept = surroundings_.keepOriginal(path); kept.failed()) {
            error = kept.failure();
            QFile::remove(temporary);
            return false;
        }
        journey.isOriginalKept = true;
    }
    log(u"Successfully migrated to temporary file, overwriting original data"_qs);
    if (const auto replaced = surroundings_.replaceFile(temporary, path); replaced.failed()) {
        error = Failure{
            tr("%1 The family as brought up to date is kept in “%2”.").arg(replaced.failure().message, temporary)};
        return false;
    }
    QFile::remove(temporary);
    return true;
}

bool ProgressiveMigration::readMetadataAgain(Journey& journey, ErrorSlot& error) const
{
    const auto metadata = surroundings_.readMetadata(journey.request.url.toLocalFile());
    if (metadata.failed())
        error = metadata.failure();
    if (metadata.failed() || !metadata.value())
        return false;
    journey.metadata = *metadata.value();
    return true;
}

Outcome<QString> ProgressiveMigration::temporaryFile(const QUrl& url) const
{
    QString reason;
    for (const auto& folder : surroundings_.temporaryFolders) {
        auto created = surroundings_.createTemporary(folder, url.fileName(QUrl::FullyDecoded));
        if (created)
            return created;
        reason = created.failure().message;
    }
    return Failure{tr("“%1” can't be brought up to date, because no temporary file can be made: %2")
                       .arg(url.toLocalFile(), reason)};
}

} // namespace lineara
