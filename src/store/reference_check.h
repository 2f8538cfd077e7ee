#pragma once

#include "migration_plan.h"
#include "platform/outcome.h"
#include "raw_family.h"

#include <vector>

namespace lineara::store {

/// Collects the objects of a file and what refers to them, and tells in the end whether everything is there.
class ReferenceCheck
{
public:
    /// `entity` is null if it is not known.
    void addObject(Number number, const EntityPlan* entity) { objects_.push_back({number, entity}); }
    void addReference(Number owner, const PropertyPlan& relationship, Number target)
    {
        references_.push_back({owner, target, &relationship});
    }

    /// The failure names the object that is there twice, or the reference that leads nowhere or to another entity.
    Outcome<Done> finish();

private:
    struct Object
    {
        Number number;
        const EntityPlan* entity;
    };

    struct Reference
    {
        Number owner;
        Number target;
        const PropertyPlan* relationship;
    };

    const Object* find(Number number) const;

    std::vector<Object> objects_;
    std::vector<Reference> references_;
};

} // namespace lineara::store
