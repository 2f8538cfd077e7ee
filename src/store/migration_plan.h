#pragma once

#include "platform/outcome.h"
#include "store/mapping_model.h"
#include "store/model_version.h"

#include <QDateTime>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lineara::store {

using DateFunction = std::optional<std::int32_t> (*)(const std::optional<QDateTime>&);

/// A property of the newer version that comes out of one of the older.
struct Product
{
    std::string name;
    DateFunction function = nullptr; ///< null if the value is taken over as it is
};

/// What becomes of one property of the older version.
struct PropertyPlan
{
    std::string name;
    bool isRelationship = false;
    AttributeType type = AttributeType::String; ///< of an attribute
    std::string destination;                    ///< of a relationship
    bool isToMany = false;
    std::vector<Product> products;
};

/// What becomes of the objects of one entity.
struct EntityPlan
{
    const EntityDescription* destination = nullptr;
    std::string name;
    std::vector<PropertyPlan> properties;

    /// The position of the property; no value if the older version does not know it.
    std::optional<std::size_t> find(std::string_view property, bool isRelationship) const;
    /// Whether the newer version knows a property of that name.
    bool isKnownLater(std::string_view property, bool isRelationship) const;
};

/// A mapping laid out for use, and proven to fit the versions that it leads between.
class MigrationPlan
{
public:
    /// Both models must outlive the plan. The failure says what does not fit.
    static Outcome<MigrationPlan> make(const ModelVersion& source, const ModelVersion& destination,
                                       const MappingModel& mapping);

    int sourceVersion() const { return source_->version; }
    int destinationVersion() const { return destination_->version; }

    /// Null for an entity that the older version does not know.
    const EntityPlan* entity(std::string_view name) const;
    bool isKnownLater(std::string_view entity) const { return destination_->entity(entity) != nullptr; }

private:
    MigrationPlan(const ModelVersion& source, const ModelVersion& destination)
        : source_(&source), destination_(&destination)
    {}

    Outcome<Done> add(const EntityDescription& entity, const MappingModel& mapping);

    const ModelVersion* source_;
    const ModelVersion* destination_;
    std::vector<EntityPlan> entities_;
};

} // namespace lineara::store
