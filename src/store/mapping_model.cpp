#include "store/mapping_model.h"

#include "resource_text.h"

#include <optional>

namespace lineara {

namespace {

/// No value if the element means nothing.
std::optional<PropertyMapping> readProperty(pugi::xml_node node)
{
    const std::string_view kind = node.name();
    const std::string name = node.attribute("name").value();
    const std::string from = node.attribute("from").value();
    if (kind == "copy")
        return PropertyMapping{name, name, {}};
    if (kind == "rename")
        return PropertyMapping{from, name, {}};
    if (kind == "compute")
        return PropertyMapping{from, name, node.attribute("function").value()};
    if (kind == "drop")
        return PropertyMapping{name, {}, {}};
    return std::nullopt;
}

Outcome<EntityMapping> readEntityMapping(pugi::xml_node node)
{
    EntityMapping entity{node.attribute("name").value(), {}};
    for (const auto child : node.children()) {
        auto property = readProperty(child);
        if (!property || property->from.empty())
            return store::resourceFailure(child, u"it says nothing that is understood."_qs);
        entity.properties.push_back(*std::move(property));
    }
    return entity;
}

} // namespace

Outcome<MappingModel> MappingModel::read(const QByteArray& mapping)
{
    pugi::xml_document document;
    if (auto parsed = store::parseResource(mapping, "mapping", document); parsed.failed())
        return parsed.failure();
    const auto root = document.document_element();
    MappingModel model{store::versionIn(root, "from"), store::versionIn(root, "to"), {}};
    if (model.sourceVersion < 1 || model.destinationVersion < 1)
        return Failure{u"it does not say its versions."_qs};
    for (const auto child : root.children("entity")) {
        auto entity = readEntityMapping(child);
        if (entity.failed())
            return entity.failure();
        model.entities.push_back(std::move(entity.value()));
    }
    return model;
}

} // namespace lineara
