#include "kinship/relatives.h"

namespace lineara::kinship {

namespace {

/// Persons in the order in which they are met, each once.
class Met
{
public:
    explicit Met(std::uint32_t persons) : isMet_(persons) {}

    void meet(engine::PersonIndex person)
    {
        if (!isMet_[person])
            persons_.push_back(person);
        isMet_[person] = true;
    }
    void meet(std::span<const engine::PersonIndex> persons)
    {
        for (const engine::PersonIndex person : persons)
            meet(person);
    }
    /// Whoever can be reached over the links from those met so far.
    void meetAllOver(const engine::Adjacency& links)
    {
        for (std::size_t next = 0; next < persons_.size(); ++next)
            meet(links[persons_[next]]);
    }

    const std::vector<engine::PersonIndex>& persons() const { return persons_; }

private:
    std::vector<bool> isMet_;
    std::vector<engine::PersonIndex> persons_;
};

std::vector<engine::PersonIndex> reachedFrom(engine::PersonIndex person, const engine::Adjacency& links)
{
    Met met(static_cast<std::uint32_t>(links.persons()));
    met.meet(person);
    met.meetAllOver(links);
    return {met.persons().begin() + 1, met.persons().end()};
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

std::vector<engine::PersonIndex> withPartners(const engine::FamilyGraph& family,
                                              std::span<const engine::PersonIndex> persons)
{
    Met met(family.persons());
    met.meet(persons);
    for (const engine::PersonIndex person : persons) {
        met.meet(family.partners[person]);
        for (const engine::PersonIndex child : family.children[person])
            met.meet(family.parents[child]);
    }
    return met.persons();
}

} // namespace lineara::kinship
