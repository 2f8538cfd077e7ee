#include "blood_lines.h"

#include <algorithm>
#include <tuple>

namespace lineara::kinship {

namespace {

constexpr PersonIndex nobody = std::numeric_limits<PersonIndex>::max();

/// A child of a common ancestor by whom a shortest line of one of the two persons, or of both, leads up.
struct LineChild
{
    PersonIndex otherParent = nobody;
    PersonIndex child = 0;
    bool ofFirst = false;
    bool ofSecond = false;
};

/// Two different children of one ancestor, the first of whom leads to the first person.
struct ChildPair
{
    PersonIndex first = 0;
    PersonIndex second = 0;
};

std::optional<ChildPair> firstPair(std::span<const LineChild> children)
{
    const auto secondBut = [&](PersonIndex child) {
        return std::ranges::find_if(children,
                                    [&](const LineChild& other) { return other.ofSecond && other.child != child; });
    };
    if (std::ranges::none_of(children, &LineChild::ofSecond))
        return std::nullopt;
    // Only who is the one child of the second person may be passed over, so that this ends soon.
    for (const LineChild& child : children) {
        if (!child.ofFirst)
            continue;
        if (const auto second = secondBut(child.child); second != children.end())
            return ChildPair{child.child, second->child};
    }
    return std::nullopt;
}

/// One line, or the two of a couple, with what decides which is the closest.
struct Candidate
{
    std::uint32_t up = 0;
    std::uint32_t down = 0;
    Shared shared = Shared::BothParents;
    PersonIndex ancestor = 0;
    PersonIndex otherAncestor = nobody;
    std::optional<ChildPair> children;

    auto key() const
    {
        const bool isDirect = up == 0 || down == 0;
        const std::uint32_t difference = up < down ? down - up : up - down;
        return std::tuple(up + down, !isDirect, shared, difference, up, ancestor, otherAncestor);
    }
};

class LineSearch
{
public:
    LineSearch(const engine::FamilyGraph& family, const Ascent& first, const Ascent& second)
        : family_(family), first_(first), second_(second)
    {}

    std::optional<BloodLines> run()
    {
        const bool fewerFirst = first_.reached().size() <= second_.reached().size();
        const Ascent& fewer = fewerFirst ? first_ : second_;
        for (const PersonIndex person : fewer.reached()) {
            if (first_.reaches(person) && second_.reaches(person))
                lookAt(person);
        }
        if (!closest_)
            return std::nullopt;
        return BloodLines{lineOf(*closest_), lines_ - 1, pathOf(*closest_)};
    }

private:
    void lookAt(PersonIndex ancestor)
    {
        const std::uint32_t up = first_.height(ancestor);
        const std::uint32_t down = second_.height(ancestor);
        if (up == 0 || down == 0) {
            add({up, down, Shared::BothParents, ancestor, nobody, std::nullopt});
            return;
        }
        gatherChildren(ancestor);
        const auto pair = firstPair(children_);
        // All lines lead through one and the same child: they have met there already.
        if (!pair)
            return;
        if (!addCouples(ancestor, up, down))
            add(alone(ancestor, up, down, *pair));
    }

    void gatherChildren(PersonIndex ancestor)
    {
        children_.clear();
        for (const PersonIndex child : family_.children[ancestor]) {
            const bool ofFirst = first_.reaches(child) && first_.height(child) + 1 == first_.height(ancestor);
            const bool ofSecond = second_.reaches(child) && second_.height(child) + 1 == second_.height(ancestor);
            if (ofFirst || ofSecond)
                children_.push_back({otherParent(child, ancestor), child, ofFirst, ofSecond});
        }
        std::ranges::sort(children_, {}, &LineChild::child);
    }

    PersonIndex otherParent(PersonIndex child, PersonIndex parent) const
    {
        const auto parents = family_.parents[child];
        const auto other = std::ranges::find_if(parents, [&](PersonIndex one) { return one != parent; });
        return other == parents.end() ? nobody : *other;
    }

    /// Lines that begin at full siblings. They are found twice, once at each of their parents, and counted at one.
    bool addCouples(PersonIndex ancestor, std::uint32_t up, std::uint32_t down)
    {
        byParent_ = children_;
        std::ranges::stable_sort(byParent_, {}, &LineChild::otherParent);
        bool isOfCouple = false;
        for (auto begin = byParent_.begin(); begin != byParent_.end();) {
            const PersonIndex other = begin->otherParent;
            const auto end = std::find_if(begin, byParent_.end(),
                                          [&](const LineChild& child) { return child.otherParent != other; });
            const auto pair = firstPair({begin, end});
            begin = end;
            if (other == nobody || first_.height(other) != up || second_.height(other) != down || !pair)
                continue;
            isOfCouple = true;
            if (ancestor < other)
                add({up, down, Shared::BothParents, ancestor, other, pair});
        }
        return isOfCouple;
    }

    Candidate alone(PersonIndex ancestor, std::uint32_t up, std::uint32_t down, const ChildPair& pair) const
    {
        if (const auto unsure = unsurePair())
            return {up, down, Shared::Unknown, ancestor, nobody, unsure};
        return {up, down, Shared::OneParent, ancestor, nobody, pair};
    }

    /// Two children who may be full siblings, because of one of them no other parent is known.
    std::optional<ChildPair> unsurePair() const
    {
        for (const LineChild& unsure : children_) {
            if (unsure.otherParent != nobody)
                continue;
            for (const LineChild& other : children_) {
                if (other.child == unsure.child)
                    continue;
                if (unsure.ofFirst && other.ofSecond)
                    return ChildPair{unsure.child, other.child};
                if (unsure.ofSecond && other.ofFirst)
                    return ChildPair{other.child, unsure.child};
            }
        }
        return std::nullopt;
    }

    void add(const Candidate& line)
    {
        ++lines_;
        if (!closest_ || line.key() < closest_->key())
            closest_ = line;
    }

    static BloodLine lineOf(const Candidate& line)
    {
        std::vector<PersonIndex> ancestors{line.ancestor};
        if (line.otherAncestor != nobody)
            ancestors.push_back(line.otherAncestor);
        return {line.up, line.down, line.shared, std::move(ancestors)};
    }

    std::vector<PersonIndex> pathOf(const Candidate& line) const
    {
        if (line.up == 0)
            return second_.lineDownFrom(line.ancestor);
        std::vector<PersonIndex> path = first_.lineDownFrom(line.children ? line.children->first : line.ancestor);
        std::ranges::reverse(path);
        if (line.down == 0)
            return path;
        path.push_back(line.ancestor);
        const std::vector<PersonIndex> rest = second_.lineDownFrom(line.children->second);
        path.insert(path.end(), rest.begin(), rest.end());
        return path;
    }

    const engine::FamilyGraph& family_;
    const Ascent& first_;
    const Ascent& second_;
    std::vector<LineChild> children_; // of the ancestor being looked at
    std::vector<LineChild> byParent_; // the same, by their other parent
    std::optional<Candidate> closest_;
    std::uint32_t lines_ = 0;
};

} // namespace

std::optional<BloodLines> bloodLines(const engine::FamilyGraph& family, const Ascent& first, const Ascent& second)
{
    return LineSearch(family, first, second).run();
}

} // namespace lineara::kinship
