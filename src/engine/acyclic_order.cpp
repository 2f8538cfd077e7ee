#include "acyclic_order.h"

#include <algorithm>

namespace lineara::engine {

namespace {

Adjacency childrenWished(std::uint32_t persons, std::span<const OffspringWish> wishes)
{
    std::vector<OffspringWish> byParent(wishes.begin(), wishes.end());
    std::ranges::stable_sort(byParent, {}, &OffspringWish::parent);
    Adjacency children;
    children.reserve(persons, wishes.size());
    auto wish = byParent.begin();
    for (PersonIndex parent = 0; parent < persons; ++parent) {
        for (; wish != byParent.end() && wish->parent == parent; ++wish)
            children.add(wish->child);
        children.endPerson();
    }
    return children;
}

/// Ranks by the reverse of the order in which a depth-first walk leaves the persons.
class DepthFirstRanks
{
public:
    explicit DepthFirstRanks(const Adjacency& children)
        : children_(children), ranks_(children.persons()), entered_(children.persons(), false),
          toRank_(static_cast<std::uint32_t>(children.persons()))
    {}

    std::vector<std::uint32_t> all()
    {
        for (PersonIndex person = 0; person < ranks_.size(); ++person) {
            enter(person);
            while (!walk_.empty())
                step();
        }
        return std::move(ranks_);
    }

private:
    struct Step
    {
        PersonIndex person = 0;
        std::uint32_t next = 0;
    };

    void enter(PersonIndex person)
    {
        if (entered_[person])
            return;
        entered_[person] = true;
        walk_.push_back({person, 0});
    }

    void step()
    {
        Step& step = walk_.back();
        const auto children = children_[step.person];
        if (step.next < children.size())
            return enter(children[step.next++]);
        ranks_[step.person] = --toRank_;
        walk_.pop_back();
    }

    const Adjacency& children_;
    std::vector<std::uint32_t> ranks_;
    std::vector<bool> entered_;
    std::vector<Step> walk_;
    std::uint32_t toRank_;
};

} // namespace

AcyclicOrder::AcyclicOrder(std::uint32_t persons, std::span<const OffspringWish> wishes)
    : ranks_(DepthFirstRanks(childrenWished(persons, wishes)).all()), children_(persons), parents_(persons),
      found_(persons, false)
{}

bool AcyclicOrder::link(PersonIndex parent, PersonIndex child)
{
    if (ranks_[parent] > ranks_[child]) {
        const bool closesCycle = collectDescendants(child, parent);
        if (!closesCycle) {
            collectAncestors(parent, ranks_[child]);
            putAncestorsFirst();
        }
        for (const PersonIndex person : descendants_)
            found_[person] = false;
        for (const PersonIndex person : ancestors_)
            found_[person] = false;
        descendants_.clear();
        ancestors_.clear();
        if (closesCycle)
            return false;
    }
    children_[parent].push_back(child);
    parents_[child].push_back(parent);
    return true;
}

/// True if the parent is among the descendants of the child.
bool AcyclicOrder::collectDescendants(PersonIndex child, PersonIndex parent)
{
    found_[child] = true;
    descendants_.push_back(child);
    for (std::size_t next = 0; next < descendants_.size(); ++next) {
        for (const PersonIndex descendant : children_[descendants_[next]]) {
            if (descendant == parent)
                return true;
            if (ranks_[descendant] > ranks_[parent] || found_[descendant])
                continue;
            found_[descendant] = true;
            descendants_.push_back(descendant);
        }
    }
    return false;
}

void AcyclicOrder::collectAncestors(PersonIndex parent, std::uint32_t leastRank)
{
    found_[parent] = true;
    ancestors_.push_back(parent);
    for (std::size_t next = 0; next < ancestors_.size(); ++next) {
        for (const PersonIndex ancestor : parents_[ancestors_[next]]) {
            if (ranks_[ancestor] < leastRank || found_[ancestor])
                continue;
            found_[ancestor] = true;
            ancestors_.push_back(ancestor);
        }
    }
}

/// Hands the ranks of all collected out anew: the ancestors first, in their order, then the descendants in theirs.
void AcyclicOrder::putAncestorsFirst()
{
    const auto rankOf = [this](PersonIndex person) { return ranks_[person]; };
    std::ranges::sort(ancestors_, {}, rankOf);
    std::ranges::sort(descendants_, {}, rankOf);
    std::vector<PersonIndex> collected = ancestors_;
    collected.insert(collected.end(), descendants_.begin(), descendants_.end());
    std::vector<std::uint32_t> ranks(collected.size());
    std::ranges::transform(collected, ranks.begin(), rankOf);
    std::ranges::sort(ranks);
    for (std::size_t at = 0; at < collected.size(); ++at)
        ranks_[collected[at]] = ranks[at];
}

} // namespace lineara::engine
