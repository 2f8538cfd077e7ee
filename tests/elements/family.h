#pragma once

#include "elements/leaf_nursery.h"
#include "elements/leaf_view.h"
#include "elements/random_source.h"
#include "model/object_context.h"

#include <QString>

namespace lineara::tests {

inline PersonValues named(std::optional<QString> name)
{
    PersonValues values;
    values.name = std::move(name);
    return values;
}

/// A family without a file or a canvas: one pool, and persons that have their nodes.
class Family
{
public:
    Person& add(const QString& name = u"Ann"_qs)
    {
        Person& person = context.insertPerson(named(name));
        pool.addPerson(person);
        return person;
    }

    /// A person whose node has its centre at the given point.
    Person& addAt(CanvasPoint centre)
    {
        Person& person = add();
        moveTo(person, centre);
        return person;
    }

    static void moveTo(Person& person, CanvasPoint centre)
    {
        LeafView& node = *person.leafView();
        const Frame frame = node.frame();
        node.setXConstraint({centre.x - frame.width / 2, horizontalPlacementPriority});
        node.setYConstraint({-(centre.y - frame.height / 2), requiredPriority});
    }

    ObjectContext context;
    SeededRandom random{20};
    LeafNursery nursery{context, random};
    Pool& pool = context.insertPool();
};

} // namespace lineara::tests
