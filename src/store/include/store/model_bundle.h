#pragma once

#include "store/mapping_model.h"
#include "store/model_version.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace lineara {

/// Where the versions of the data model and the mappings between them are found.
class ModelBundle
{
public:
    virtual ~ModelBundle() = default;

    /// The resources with the extension ("mom") in the subdirectory ("Document.momd"), in the order that decides which
    /// way a file takes from version to version.
    virtual QStringList resources(const QString& extension, const QString& subdirectory) const = 0;

    virtual Outcome<ModelVersion> model(const QString& resource) const = 0;

    /// The model that files with this metadata are written against; no value if it is not known.
    virtual std::optional<ModelVersion> modelFor(const StoreMetadata& metadata) const = 0;

    /// No value if there is no mapping from the one right to the other.
    virtual std::optional<MappingModel> mappingModel(const ModelVersion& source,
                                                     const ModelVersion& destination) const = 0;
};

/// The models and mappings built into the program.
class ResourceBundle : public ModelBundle
{
public:
    ResourceBundle();

    QStringList resources(const QString& extension, const QString& subdirectory) const override;
    Outcome<ModelVersion> model(const QString& resource) const override;
    std::optional<ModelVersion> modelFor(const StoreMetadata& metadata) const override;
    std::optional<MappingModel> mappingModel(const ModelVersion& source,
                                             const ModelVersion& destination) const override;

    /// The model that this program's records have.
    ModelVersion currentModel() const;
};

} // namespace lineara
