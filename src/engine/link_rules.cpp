#include "engine/link_rules.h"

#include "acyclic_order.h"

#include <array>

namespace lineara::engine {

namespace {

/// The parents a child was given so far.
class ParentPair
{
public:
    bool isFull() const { return count_ == parents_.size(); }
    bool has(PersonIndex parent) const { return count_ > 0 && parents_[0] == parent; }
    void add(PersonIndex parent) { parents_[count_++] = parent; }

private:
    std::array<PersonIndex, 2> parents_{};
    std::size_t count_ = 0;
};

} // namespace

std::vector<LinkVerdict> judgeOffspring(std::uint32_t persons, std::span<const OffspringWish> wishes)
{
    std::vector<ParentPair> parentsOf(persons);
    AcyclicOrder order(persons, wishes);
    std::vector<LinkVerdict> verdicts;
    verdicts.reserve(wishes.size());
    for (const auto [parent, child] : wishes) {
        if (parent == child) {
            verdicts.push_back(LinkVerdict::SamePerson);
        } else if (parentsOf[child].isFull()) {
            verdicts.push_back(LinkVerdict::TwoParents);
        } else if (parentsOf[child].has(parent)) {
            verdicts.push_back(LinkVerdict::Allowed);
        } else if (order.link(parent, child)) {
            parentsOf[child].add(parent);
            verdicts.push_back(LinkVerdict::Allowed);
        } else {
            verdicts.push_back(LinkVerdict::Cycle);
        }
    }
    return verdicts;
}

} // namespace lineara::engine
