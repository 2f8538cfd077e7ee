#pragma once

#include "platform/log.h"
#include "progressive_migration.h"
#include "store/atomic_file.h"
#include "store/family_file.h"
#include "store/migration_manager.h"
#include "test_files.h"

#include <QDir>
#include <QStringList>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace lineara {

/// Versions that differ in nothing but their number, and mappings between some of them.
class MadeUpBundle : public ModelBundle
{
public:
    using Pairs = std::set<std::pair<int, int>>;

    MadeUpBundle(std::vector<int> versions, Pairs mappings)
        : versions_(std::move(versions)), mappings_(std::move(mappings))
    {}

    QStringList resources(const QString& extension, const QString& subdirectory) const override
    {
        QStringList result;
        for (const int version : versions_)
            result += QString::number(version);
        const bool areAsked = extension == u"mom" && subdirectory == u"Document.momd";
        return areAsked ? result : QStringList();
    }

    Outcome<ModelVersion> model(const QString& resource) const override { return modelOf(resource.toInt()); }

    std::optional<ModelVersion> modelFor(const StoreMetadata& metadata) const override
    {
        for (const int version : versions_) {
            if (version == metadata.modelVersion)
                return modelOf(version);
        }
        return std::nullopt;
    }

    std::optional<MappingModel> mappingModel(const ModelVersion& source, const ModelVersion& destination) const override
    {
        if (!mappings_.contains({source.version, destination.version}))
            return std::nullopt;
        MappingModel mapping{source.version, destination.version, {}};
        for (const auto& entity : source.entities) {
            mapping.entities.push_back({entity.name, {}});
            for (const auto& attribute : entity.attributes)
                mapping.entities.back().properties.push_back({attribute.name, attribute.name, {}});
            for (const auto& relationship : entity.relationships)
                mapping.entities.back().properties.push_back({relationship.name, relationship.name, {}});
        }
        return mapping;
    }

    ModelVersion modelOf(int version) const
    {
        static const auto current = ResourceBundle().currentModel();
        auto model = current;
        model.version = version;
        return model;
    }

private:
    std::vector<int> versions_;
    Pairs mappings_;
};

/// The family of three generations as the text of a file of that version.
inline QByteArray familyOfVersion(int version)
{
    static const QByteArray text = textOf(*threeGenerations());
    return QByteArray(text).replace("modelVersion\">14", "modelVersion\">" + QByteArray::number(version));
}

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// The system's calls without waiting for the disk.
inline store::FileCalls quickCalls()
{
    auto calls = store::FileCalls::ofTheSystem();
    calls.sync = [](int) { return 0; };
    return calls;
}

/// Everything around an opening, as it is in the program but for the bundle; each part can be replaced.
class MigrationStage
{
public:
    MigrationStage(const ModelBundle& bundle, ModelVersion current)
        : surroundings{bundle,
                       std::move(current),
                       {home()},
                       [](const QString& path) -> Outcome<std::optional<StoreMetadata>> {
                           const auto metadata = metadataForPersistentStore(path);
                           if (metadata.failed())
                               return metadata.failure();
                           return std::optional(metadata.value());
                       },
                       [](const QString&) { return std::nullopt; },
                       [](const MigrationStep& step, ErrorSlot& slot) {
                           const MigrationManager manager(step.source, step.destination);
                           const auto done = manager.migrateStore(step.from, step.to, step.mapping, quickCalls());
                           if (done.failed())
                               slot = done.failure();
                           return !done.failed();
                       },
                       [](const QString& from, const QString& to) { return store::copyOver(from, to, quickCalls()); },
                       [this](const QString&) -> Outcome<Done> {
                           ++originalsKept;
                           return Done{};
                       },
                       [this](const StoreRequest& request, ErrorSlot&) {
                           attached.push_back(request);
                           return true;
                       }}
    {}

    QString home() const
    {
        QDir(files.path({})).mkpath(u"home"_qs);
        return files.path(u"home"_qs);
    }

    QStringList filesAtHome() const { return QDir(home()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    bool open(const QString& path, const std::optional<QString>& configuration = std::nullopt)
    {
        const LogCapture capture;
        const bool isOpen = ProgressiveMigration(surroundings)
                                .configurePersistentStoreCoordinator(QUrl::fromLocalFile(path), u"XML"_qs,
                                                                     configuration, {{u"key"_qs, 7}}, error);
        log = std::string(capture.text());
        return isOpen;
    }

    TestFiles files;
    int originalsKept = 0;
    std::vector<StoreRequest> attached;
    ErrorSlot error;
    std::string log;
    StoreSurroundings surroundings;
};

} // namespace lineara
