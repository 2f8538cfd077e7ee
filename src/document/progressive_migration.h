#pragma once

#include "platform/outcome.h"
#include "store/atomic_file.h"
#include "store/model_bundle.h"
#include "store/store_metadata.h"

#include <QCoreApplication>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace lineara {

/// Where an error goes; empty while there is none.
using ErrorSlot = std::optional<Failure>;

/// What a store is attached by. All but the place is passed on as it came.
struct StoreRequest
{
    QUrl url;
    QString type;
    std::optional<QString> configuration; ///< absent for the whole model
    QVariantMap options;
};

/// One step of a file from one version to another, into another file.
struct MigrationStep
{
    const ModelVersion& source;
    const ModelVersion& destination;
    const MappingModel& mapping;
    QString from;
    QString to;
};

/// What opening a store leans on; paths are those of local files.
struct StoreSurroundings
{
    const ModelBundle& bundle;
    ModelVersion currentModel;
    /// Where the migrated file is made, the best place first: the home folder, then where else one may write.
    QStringList temporaryFolders;

    /// No value without a failure if the file says nothing about itself.
    std::function<Outcome<std::optional<StoreMetadata>>(const QString& path)> readMetadata;
    /// Of a store that is attached already.
    std::function<std::optional<StoreMetadata>(const QString& path)> attachedMetadata;
    /// False if the step was not done; why is told in the slot, or not at all.
    std::function<bool(const MigrationStep& step, ErrorSlot& error)> migrateStore;
    /// Puts a copy of the one file in the place of the other.
    std::function<Outcome<Done>(const QString& from, const QString& to)> replaceFile;
    /// Called once, before the file is replaced for the first time.
    std::function<Outcome<Done>(const QString& path)> keepOriginal;
    /// Attaches the store as it is, and comes back with whether that went well.
    std::function<bool(const StoreRequest& request, ErrorSlot& error)> attach;
    /// Makes an empty file of that name, or of a similar one that is free, in the folder.
    std::function<Outcome<QString>(const QString& folder, const QString& fileName)> createTemporary =
        [](const QString& folder, const QString& fileName) { return store::createFreeFile(folder, fileName); };
};

/// Brings a store up to the current model before it is attached, by way of other versions where no mapping leads there
/// directly, and logs each step.
class ProgressiveMigration
{
    Q_DECLARE_TR_FUNCTIONS(ProgressiveMigration)

public:
    explicit ProgressiveMigration(StoreSurroundings surroundings);

    /// What attaching gives, or false if the file could not be brought up to date; then the slot tells why, or is empty
    /// if no mapping leads on. The slot is cleared on entry. The file is the old or a newer one, but always a whole
    /// one.
    bool configurePersistentStoreCoordinator(const QUrl& url, const QString& type,
                                             const std::optional<QString>& configuration, const QVariantMap& options,
                                             ErrorSlot& error);

private:
    /// Where a file stands on its way.
    struct Journey
    {
        StoreRequest request;
        StoreMetadata metadata;
        std::vector<ModelVersion> candidates; ///< loaded when first needed
        std::set<int> visited;                ///< no step leads back to these, or the way might never end
        bool isOriginalKept = false;
    };

    struct Route
    {
        ModelVersion source;
        ModelVersion destination;
        MappingModel mapping;
    };

    bool climb(Journey& journey, ErrorSlot& error) const;
    std::optional<Route> findRoute(Journey& journey) const;
    std::optional<Route> routeTo(const ModelVersion& destination, const Journey& journey) const;
    void loadCandidates(Journey& journey) const;
    bool pass(Journey& journey, const Route& route, ErrorSlot& error) const;
    bool migrate(const Route& route, const QString& from, const QString& to, ErrorSlot& error) const;
    bool replace(Journey& journey, const QString& temporary, ErrorSlot& error) const;
    bool readMetadataAgain(Journey& journey, ErrorSlot& error) const;
    Outcome<QString> temporaryFile(const QUrl& url) const;

    StoreSurroundings surroundings_;
};

} // namespace lineara
