#include "knots.h"

#include <algorithm>
#include <limits>

namespace lineara::engine {

namespace {

/// Tarjan's walk for strongly connected components, with a stack of its own.
class KnotWalk
{
public:
    explicit KnotWalk(const FamilyGraph& family)
        : family_(family), entered_(family.persons(), never), earliest_(family.persons(), never)
    {}

    void from(PersonIndex start)
    {
        enter(start);
        while (!walk_.empty())
            step();
    }

    std::vector<Knot> take() { return std::move(knots_); }

private:
    static constexpr auto never = std::numeric_limits<std::uint32_t>::max();
    static constexpr auto settled = never - 1;

    struct Step
    {
        PersonIndex person = 0;
        std::size_t next = 0;
        std::vector<PersonIndex> driving;
    };

    void enter(PersonIndex person)
    {
        if (entered_[person] != never)
            return;
        entered_[person] = earliest_[person] = count_++;
        open_.push_back(person);
        Step step{person, 0, {}};
        forEachDrivingOn(family_, person, [&](PersonIndex driving) { step.driving.push_back(driving); });
        walk_.push_back(std::move(step));
    }

    void step()
    {
        Step& step = walk_.back();
        if (step.next < step.driving.size())
            return enter(step.driving[step.next++]);
        const PersonIndex person = step.person;
        for (const PersonIndex driving : step.driving) {
            if (earliest_[driving] != settled)
                earliest_[person] = std::min(earliest_[person], earliest_[driving]);
        }
        walk_.pop_back();
        if (earliest_[person] == entered_[person])
            close(person);
    }

    /// The persons entered since `first`, and still open, drive on each other.
    void close(PersonIndex first)
    {
        const auto begin = std::ranges::find(open_.rbegin(), open_.rend(), first).base() - 1;
        for (auto person = begin; person != open_.end(); ++person)
            earliest_[*person] = settled;
        if (open_.end() - begin > 1)
            knots_.emplace_back(begin, open_.end());
        open_.erase(begin, open_.end());
    }

    const FamilyGraph& family_;
    std::vector<std::uint32_t> entered_;  ///< when
    std::vector<std::uint32_t> earliest_; ///< the earliest entered of the open ones that drive this one on
    std::uint32_t count_ = 0;
    std::vector<PersonIndex> open_;
    std::vector<Step> walk_;
    std::vector<Knot> knots_;
};

} // namespace

std::vector<Knot> knotsDriving(const FamilyGraph& family, const std::vector<PersonIndex>& persons)
{
    KnotWalk walk(family);
    for (const PersonIndex person : persons)
        walk.from(person);
    return walk.take();
}

} // namespace lineara::engine
