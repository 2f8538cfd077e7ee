#include "migration_plan.h"

#include "model/convert.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lineara::store {

namespace {

constexpr std::array<std::pair<std::string_view, DateFunction>, 3> dateFunctions{{
    {"dateToDay_12_14", &PersonMigrationPolicy::dateToDay_12_14},
    {"dateToMonth_12_14", &PersonMigrationPolicy::dateToMonth_12_14},
    {"dateToYear_12_14", &PersonMigrationPolicy::dateToYear_12_14},
}};

Failure unfit(const EntityPlan& entity, const std::string& property, const QString& reason)
{
    return Failure{u"the mapping of “%1” of “%2” does not fit: %3"_qs.arg(QString::fromStdString(property),
                                                                          QString::fromStdString(entity.name), reason)};
}

/// All properties of the older version, with nothing coming out of them yet.
EntityPlan bareEntity(const EntityDescription& source, const EntityDescription& destination)
{
    EntityPlan plan{&destination, source.name, {}};
    for (const auto& attribute : source.attributes)
        plan.properties.push_back({attribute.name, false, attribute.type, {}, false, {}});
    for (const auto& relationship : source.relationships)
        plan.properties.push_back({relationship.name, true, {}, relationship.destination, relationship.isToMany, {}});
    return plan;
}

bool canBeTakenOver(const PropertyPlan& property, const EntityDescription& destination, const std::string& name)
{
    if (property.isRelationship) {
        const auto* const target = destination.relationship(name);
        return target && target->destination == property.destination && target->isToMany == property.isToMany;
    }
    const auto* const target = destination.attribute(name);
    return target && target->type == property.type;
}

bool canBeComputed(const PropertyPlan& property, const EntityDescription& destination, const std::string& name)
{
    const auto* const target = destination.attribute(name);
    return !property.isRelationship && property.type == AttributeType::Date && target &&
           target->type == AttributeType::Int32;
}

Outcome<Product> productOf(const EntityPlan& entity, const PropertyPlan& property, const PropertyMapping& mapped)
{
    if (mapped.function.empty()) {
        if (!canBeTakenOver(property, *entity.destination, mapped.to))
            return unfit(entity, mapped.from, u"the newer version has nothing like it."_qs);
        return Product{mapped.to, nullptr};
    }
    const auto* const function = std::find_if(dateFunctions.begin(), dateFunctions.end(),
                                              [&](const auto& known) { return known.first == mapped.function; });
    if (function == dateFunctions.end())
        return unfit(entity, mapped.from, u"there is no such function."_qs);
    if (!canBeComputed(property, *entity.destination, mapped.to))
        return unfit(entity, mapped.from, u"a number is worked out from a date and from nothing else."_qs);
    return Product{mapped.to, function->second};
}

/// Attributes and relationships of one entity never share a name in a mapping.
PropertyPlan* propertyNamed(EntityPlan& entity, const std::string& name)
{
    const auto found = std::find_if(entity.properties.begin(), entity.properties.end(),
                                    [&name](const auto& property) { return property.name == name; });
    return found == entity.properties.end() ? nullptr : &*found;
}

Outcome<Done> fill(EntityPlan& entity, const EntityMapping& mapping)
{
    std::vector<std::string> made;
    std::vector<const PropertyPlan*> mentioned;
    for (const auto& mapped : mapping.properties) {
        auto* const property = propertyNamed(entity, mapped.from);
        if (!property)
            return unfit(entity, mapped.from, u"the older version does not know it."_qs);
        mentioned.push_back(property);
        if (mapped.to.empty())
            continue;
        if (std::find(made.begin(), made.end(), mapped.to) != made.end())
            return unfit(entity, mapped.from, u"it is not the only one that becomes this."_qs);
        made.push_back(mapped.to);
        auto product = productOf(entity, *property, mapped);
        if (product.failed())
            return product.failure();
        property->products.push_back(std::move(product.value()));
    }
    for (const auto& property : entity.properties) {
        if (std::find(mentioned.begin(), mentioned.end(), &property) == mentioned.end())
            return unfit(entity, property.name, u"nothing is said about it."_qs);
    }
    return Done{};
}

} // namespace

std::optional<std::size_t> EntityPlan::find(std::string_view property, bool isRelationship) const
{
    for (std::size_t at = 0; at < properties.size(); ++at) {
        if (properties[at].isRelationship == isRelationship && properties[at].name == property)
            return at;
    }
    return std::nullopt;
}

bool EntityPlan::isKnownLater(std::string_view property, bool isRelationship) const
{
    return isRelationship ? destination->relationship(property) != nullptr
                          : destination->attribute(property) != nullptr;
}

Outcome<MigrationPlan> MigrationPlan::make(const ModelVersion& source, const ModelVersion& destination,
                                           const MappingModel& mapping)
{
    if (mapping.sourceVersion != source.version || mapping.destinationVersion != destination.version)
        return Failure{u"the mapping leads between other versions."_qs};
    MigrationPlan plan(source, destination);
    for (const auto& entity : source.entities) {
        if (auto added = plan.add(entity, mapping); added.failed())
            return added.failure();
    }
    return plan;
}

Outcome<Done> MigrationPlan::add(const EntityDescription& entity, const MappingModel& mapping)
{
    const auto* const target = destination_->entity(entity.name);
    if (!target)
        return Failure{u"the newer version has no “%1”."_qs.arg(QString::fromStdString(entity.name))};
    const auto mapped = std::find_if(mapping.entities.begin(), mapping.entities.end(),
                                     [&entity](const auto& one) { return one.entity == entity.name; });
    EntityPlan plan = bareEntity(entity, *target);
    auto filled = fill(plan, mapped == mapping.entities.end() ? EntityMapping{} : *mapped);
    if (filled.failed())
        return filled;
    entities_.push_back(std::move(plan));
    return Done{};
}

const EntityPlan* MigrationPlan::entity(std::string_view name) const
{
    const auto found =
        std::find_if(entities_.begin(), entities_.end(), [name](const auto& entity) { return entity.name == name; });
    return found == entities_.end() ? nullptr : &*found;
}

} // namespace lineara::store
