#include "kinship/relatives.h"

namespace lineara::kinship {

namespace {

std::vector<engine::PersonIndex> reachedFrom(engine::PersonIndex person, const engine::Adjacency& links)
{
    std::vector<bool> met(links.persons());
    met[person] = true;
    std::vector<engine::PersonIndex> reached{person};
    for (std::size_t next = 0; next < reached.size(); ++next) {
        for (const engine::PersonIndex other : links[reached[next]]) {
            if (!met[other]) {
                met[other] = true;
                reached.push_back(other);
            }
        }
    }
    reached.erase(reached.begin());
    return reached;
}

} // namespace

std::vector<engine::PersonIndex> ancestorsOf(const engine::FamilyGraph& family, engine::PersonIndex person)
{
    return reachedFrom(person, family.parents);
}

std::vector<engine::PersonIndex> descendantsOf(const engine::FamilyGraph& family, engine::PersonIndex person)
{
    return reachedFrom(person, family.children);
}

} // namespace lineara::kinship
