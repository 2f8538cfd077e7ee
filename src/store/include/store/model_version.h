#pragma once

#include "platform/outcome.h"
#include "store/store_metadata.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lineara {

/// The types that attributes of a family file have, in any version.
enum class AttributeType
{
    String,
    Int32,
    Date,
    Binary
};

struct AttributeDescription
{
    std::string name;
    AttributeType type = AttributeType::String;
};

struct RelationshipDescription
{
    std::string name;
    std::string destination; ///< an entity
    bool isToMany = false;
};

struct EntityDescription
{
    std::string name;
    std::vector<AttributeDescription> attributes;
    std::vector<RelationshipDescription> relationships;

    /// Null if there is none of that name.
    const AttributeDescription* attribute(std::string_view attributeName) const;
    const RelationshipDescription* relationship(std::string_view relationshipName) const;
};

/// One version of the data model: which entities its files hold, with which attributes and relationships.
struct ModelVersion
{
    int version = 0;
    std::vector<EntityDescription> entities;
    /// Names of parts of the model that a store may be attached under; the whole model needs none.
    QStringList configurations;

    /// Takes a model out of the text of a "mom" file. The failure is the reason alone.
    static Outcome<ModelVersion> read(const QByteArray& mom);

    /// Null if there is none of that name.
    const EntityDescription* entity(std::string_view entityName) const;

    /// Whether a file with this metadata can be used under the configuration as it is; absent is the whole model.
    bool isCompatible(const std::optional<QString>& configuration, const StoreMetadata& metadata) const;
};

} // namespace lineara
