#include "store/model_version.h"

#include "resource_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lineara {

namespace {

using store::resourceFailure;

constexpr std::array<std::pair<std::string_view, AttributeType>, 4> typeNames{{
    {"string", AttributeType::String},
    {"int32", AttributeType::Int32},
    {"date", AttributeType::Date},
    {"binary", AttributeType::Binary},
}};

template<class Described>
const Described* named(const std::vector<Described>& all, std::string_view name)
{
    const auto found = std::find_if(all.begin(), all.end(), [name](const auto& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

Outcome<AttributeDescription> readAttribute(pugi::xml_node node)
{
    const std::string_view typeName = node.attribute("type").value();
    const auto* const type = std::find_if(typeNames.begin(), typeNames.end(),
                                          [typeName](const auto& known) { return known.first == typeName; });
    if (type == typeNames.end())
        return resourceFailure(node, u"there is no such type."_qs);
    return AttributeDescription{node.attribute("name").value(), type->second};
}

Outcome<EntityDescription> readEntity(pugi::xml_node node)
{
    EntityDescription entity{node.attribute("name").value(), {}, {}};
    for (const auto child : node.children("attribute")) {
        auto attribute = readAttribute(child);
        if (attribute.failed())
            return attribute.failure();
        entity.attributes.push_back(std::move(attribute.value()));
    }
    for (const auto child : node.children("relationship"))
        entity.relationships.push_back({child.attribute("name").value(), child.attribute("destination").value(),
                                        child.attribute("toMany").as_bool()});
    return entity;
}

/// Links must lead to entities of the same model.
Outcome<Done> checkDestinations(const ModelVersion& model)
{
    for (const auto& entity : model.entities) {
        for (const auto& relationship : entity.relationships) {
            if (!model.entity(relationship.destination))
                return Failure{u"relationship “%1” leads nowhere."_qs.arg(QString::fromStdString(relationship.name))};
        }
    }
    return Done{};
}

} // namespace

const AttributeDescription* EntityDescription::attribute(std::string_view attributeName) const
{
    return named(attributes, attributeName);
}

const RelationshipDescription* EntityDescription::relationship(std::string_view relationshipName) const
{
    return named(relationships, relationshipName);
}

Outcome<ModelVersion> ModelVersion::read(const QByteArray& mom)
{
    pugi::xml_document document;
    if (auto parsed = store::parseResource(mom, "model", document); parsed.failed())
        return parsed.failure();
    const auto root = document.document_element();
    ModelVersion model{store::versionIn(root, "version"), {}, {}};
    if (model.version < 1)
        return Failure{u"it does not say its version."_qs};
    for (const auto child : root.children("entity")) {
        auto entity = readEntity(child);
        if (entity.failed())
            return entity.failure();
        model.entities.push_back(std::move(entity.value()));
    }
    for (const auto child : root.children("configuration"))
        model.configurations += QString::fromUtf8(child.attribute("name").value());
    if (auto checked = checkDestinations(model); checked.failed())
        return checked.failure();
    return model;
}

const EntityDescription* ModelVersion::entity(std::string_view entityName) const
{
    return named(entities, entityName);
}

bool ModelVersion::isCompatible(const std::optional<QString>& configuration, const StoreMetadata& metadata) const
{
    return metadata.modelVersion == version && (!configuration || configurations.contains(*configuration));
}

} // namespace lineara
