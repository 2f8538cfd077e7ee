#include "repetition.h"

#include "graph_queries.h"
#include "ordered_worklist.h"

#include <algorithm>

namespace lineara::engine {

namespace {

/// A generation in all periods at once: `start` in the first, and `rise` more in each later one.
struct Course
{
    std::int64_t start = 0;
    std::int64_t rise = 0;

    Course oneUp() const { return {start + 1, rise}; }
    friend auto operator<=>(const Course&, const Course&) = default;
};

/// Number of periods running, from the first, in which `lower` is not above `upper`; in the first it is not.
std::int64_t periodsNotAbove(const Course& lower, const Course& upper)
{
    if (lower.rise <= upper.rise)
        return Repetition::forever;
    return (upper.start - lower.start) / (lower.rise - upper.rise) + 1;
}

/// The sweeps of one period over courses, as they go in the first period.
class PeriodOfCourses
{
public:
    PeriodOfCourses(const FamilyGraph& family, SweepMode mode, const std::vector<Course>& courses,
                    const std::vector<PersonIndex>& previous)
        : family_(family), mode_(mode), courses_(courses), due_(family.members), previous_(previous)
    {
        for (PersonIndex member = 0; member < family.members; ++member)
            due_.insert(member);
    }

    /// False if one of the sweeps, or the first of the next period, would be the last one, or if stopped.
    bool run(std::size_t sweeps, const std::stop_token& stop)
    {
        std::vector<PersonIndex> first;
        for (std::size_t sweep = 0; sweep < sweeps; ++sweep) {
            if (stop.stop_requested())
                return false;
            pushed_.clear();
            for (auto member = due_.takeFrom(0); member; member = due_.takeFrom(*member + 1))
                lookAt(*member);
            if (pushed_.empty() || pushed_ == previous_)
                return false;
            if (sweep == 0)
                first = pushed_;
            std::swap(previous_, pushed_);
        }
        return previous_ != first;
    }

    const std::vector<Course>& courses() const { return courses_; }
    std::int64_t periodsAlike() const { return periodsAlike_; }
    const std::vector<PersonIndex>& lastPushed() const { return previous_; }

private:
    void lookAt(PersonIndex member)
    {
        const auto children = family_.children[member];
        if (children.empty())
            return;
        const Course own = courses_[member];
        Course highest = courses_[children.front()];
        for (const PersonIndex child : children)
            highest = std::max(highest, courses_[child]);
        if (highest.start < own.start) {
            for (const PersonIndex child : children)
                expectNotAbove(courses_[child].oneUp(), own);
            return;
        }
        expectNotAbove(own, highest);
        for (const PersonIndex child : children)
            expectNotAbove(courses_[child], highest);
        push(member, highest.oneUp());
    }

    void expectNotAbove(const Course& lower, const Course& upper)
    {
        periodsAlike_ = std::min(periodsAlike_, periodsNotAbove(lower, upper));
    }

    void push(PersonIndex member, const Course& course)
    {
        pushed_.push_back(member);
        move(member, course);
        if (mode_ == SweepMode::WithPartners) {
            for (const PersonIndex partner : family_.partners[member])
                move(partner, course);
        }
    }

    void move(PersonIndex person, const Course& course)
    {
        if (courses_[person] == course)
            return;
        courses_[person] = course;
        becomeDue(person);
        for (const PersonIndex parent : family_.parents[person])
            becomeDue(parent);
    }

    void becomeDue(PersonIndex person)
    {
        if (person < family_.members)
            due_.insert(person);
    }

    const FamilyGraph& family_;
    SweepMode mode_;
    std::vector<Course> courses_;
    OrderedWorklist due_;
    std::vector<PersonIndex> previous_;
    std::vector<PersonIndex> pushed_;
    std::int64_t periodsAlike_ = Repetition::forever;
};

std::vector<Course> standingStill(const std::vector<Generation>& generations)
{
    std::vector<Course> courses(generations.size());
    std::ranges::transform(generations, courses.begin(), [](Generation generation) {
        return Course{valueOrZero(generation), 0};
    });
    return courses;
}

} // namespace

std::optional<Repetition> findRepetition(const FamilyGraph& family, SweepMode mode,
                                         const std::vector<Generation>& generations,
                                         const std::vector<PersonIndex>& previous, std::size_t sweeps,
                                         const std::stop_token& stop)
{
    std::vector<Course> courses = standingStill(generations);
    PeriodOfCourses alone(family, mode, courses, previous);
    if (!alone.run(sweeps, stop))
        return std::nullopt;
    for (std::size_t person = 0; person < courses.size(); ++person)
        courses[person].rise = alone.courses()[person].start - courses[person].start;

    PeriodOfCourses period(family, mode, courses, previous);
    if (!period.run(sweeps, stop) || !std::ranges::equal(courses, period.courses(), {}, &Course::rise, &Course::rise))
        return std::nullopt;
    Repetition repetition{period.periodsAlike(), std::vector<std::int64_t>(courses.size()), period.lastPushed()};
    std::ranges::transform(courses, repetition.rises.begin(), &Course::rise);
    return repetition;
}

} // namespace lineara::engine
