#include "shortest_path.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

namespace lineara::kinship {

namespace {

using engine::PersonIndex;

/// The persons around one end of a path, ring by ring.
class Rings
{
public:
    Rings(const engine::FamilyGraph& family, PersonIndex middle)
        : family_(family), distances_(family.persons(), unreached), cameFrom_(family.persons()), outermost_{middle}
    {
        distances_[middle] = 0;
    }

    static constexpr std::uint32_t unreached = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t distance(PersonIndex person) const { return distances_[person]; }
    const std::vector<PersonIndex>& outermost() const { return outermost_; }

    void widen()
    {
        std::vector<PersonIndex> next;
        for (const PersonIndex person : outermost_) {
            for (const auto* links : {&family_.parents, &family_.partners, &family_.children}) {
                for (const PersonIndex other : (*links)[person]) {
                    if (distances_[other] != unreached)
                        continue;
                    distances_[other] = distances_[person] + 1;
                    cameFrom_[other] = person;
                    next.push_back(other);
                }
            }
        }
        outermost_ = std::move(next);
    }

    /// From a person who has been reached to the middle.
    std::vector<PersonIndex> wayBack(PersonIndex person) const
    {
        std::vector<PersonIndex> way{person};
        while (distances_[way.back()] > 0)
            way.push_back(cameFrom_[way.back()]);
        return way;
    }

private:
    const engine::FamilyGraph& family_;
    std::vector<std::uint32_t> distances_;
    std::vector<PersonIndex> cameFrom_;
    std::vector<PersonIndex> outermost_;
};

/// Among the outermost persons of the one those whom the other has reached; of them the nearest.
std::optional<PersonIndex> meeting(const Rings& widened, const Rings& other)
{
    std::optional<PersonIndex> nearest;
    for (const PersonIndex person : widened.outermost()) {
        if (other.distance(person) < (nearest ? other.distance(*nearest) : Rings::unreached))
            nearest = person;
    }
    return nearest;
}

} // namespace

std::vector<PersonIndex> shortestPath(const engine::FamilyGraph& family, PersonIndex from, PersonIndex to)
{
    Rings ofFrom(family, from);
    Rings ofTo(family, to);
    std::optional<PersonIndex> met = meeting(ofFrom, ofTo);
    while (!met) {
        if (ofFrom.outermost().empty() || ofTo.outermost().empty())
            return {};
        const bool fewerFrom = ofFrom.outermost().size() <= ofTo.outermost().size();
        Rings& widened = fewerFrom ? ofFrom : ofTo;
        widened.widen();
        met = meeting(widened, fewerFrom ? ofTo : ofFrom);
    }
    std::vector<PersonIndex> path = ofFrom.wayBack(*met);
    std::ranges::reverse(path);
    const std::vector<PersonIndex> rest = ofTo.wayBack(*met);
    path.insert(path.end(), rest.begin() + 1, rest.end());
    return path;
}

} // namespace lineara::kinship
