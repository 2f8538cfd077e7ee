#include "store/model_bundle.h"

#include "store/family_file.h"

#include <QFile>

// The resources of a static library are linked only where they are asked for, and that outside of any namespace.
static void registerModels()
{
    Q_INIT_RESOURCE(models);
}

namespace lineara {

namespace {

QString resourcePath(const QString& path)
{
    return u":/models/"_qs + path;
}

Outcome<QByteArray> readResource(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure{u"“%1” is missing."_qs.arg(path)};
    return file.readAll();
}

template<class Model>
Outcome<Model> readFrom(const QString& resource)
{
    const auto text = readResource(resource);
    if (text.failed())
        return text.failure();
    auto model = Model::read(text.value());
    return model.failed() ? Failure{u"“%1”: %2"_qs.arg(resource, model.failure().message)} : model;
}

} // namespace

ResourceBundle::ResourceBundle()
{
    registerModels();
}

QStringList ResourceBundle::resources(const QString& extension, const QString& subdirectory) const
{
    const auto folder = resourcePath(subdirectory) + u'/';
    const auto order = readResource(folder + u"order.txt"_qs);
    QStringList result;
    if (order.failed())
        return result;
    for (const auto& line : QString::fromUtf8(order.value()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.endsWith(u'.' + extension))
            result += folder + line;
    }
    return result;
}

Outcome<ModelVersion> ResourceBundle::model(const QString& resource) const
{
    return readFrom<ModelVersion>(resource);
}

std::optional<ModelVersion> ResourceBundle::modelFor(const StoreMetadata& metadata) const
{
    for (const auto& resource : resources(u"mom"_qs, u"Document.momd"_qs)) {
        auto found = model(resource);
        if (found && found.value().version == metadata.modelVersion)
            return std::move(found.value());
    }
    return std::nullopt;
}

std::optional<MappingModel> ResourceBundle::mappingModel(const ModelVersion& source,
                                                         const ModelVersion& destination) const
{
    for (const auto& resource : resources(u"mapping"_qs, u"mappings"_qs)) {
        auto mapping = readFrom<MappingModel>(resource);
        if (mapping && mapping.value().sourceVersion == source.version &&
            mapping.value().destinationVersion == destination.version)
            return std::move(mapping.value());
    }
    return std::nullopt;
}

ModelVersion ResourceBundle::currentModel() const
{
    StoreMetadata current;
    current.modelVersion = currentModelVersion;
    return modelFor(current).value_or(ModelVersion{currentModelVersion, {}, {}});
}

} // namespace lineara
