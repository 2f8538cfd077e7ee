#include "link_walks.h"

namespace lineara::store {

namespace {

/// Lists whose sizes are known before they are filled in any order.
class Buckets
{
public:
    explicit Buckets(const Lists<PersonIndex>& links) : begins_(links.size() + 1), values_(links.total())
    {
        for (std::size_t person = 0; person < links.size(); ++person) {
            for (const auto other : links[person])
                ++begins_[other + 1];
        }
        for (std::size_t person = 0; person < links.size(); ++person)
            begins_[person + 1] += begins_[person];
        auto free = begins_;
        for (std::size_t person = 0; person < links.size(); ++person) {
            for (const auto other : links[person])
                values_[free[other]++] = static_cast<PersonIndex>(person);
        }
    }

    std::span<const PersonIndex> operator[](std::size_t person) const
    {
        return {values_.data() + begins_[person], begins_[person + 1] - begins_[person]};
    }

private:
    std::vector<std::size_t> begins_;
    std::vector<PersonIndex> values_;
};

} // namespace

Lists<PersonIndex> transposed(const Lists<PersonIndex>& links)
{
    const Buckets buckets(links);
    Lists<PersonIndex> result;
    result.reserve(links.size(), links.total());
    for (std::size_t person = 0; person < links.size(); ++person)
        result.append(buckets[person]);
    return result;
}

bool areInverse(const Lists<PersonIndex>& a, const Lists<PersonIndex>& b)
{
    if (a.total() != b.total())
        return false;
    const Buckets expected(a);
    // Who stands in the list of the person at hand is marked with the person's position plus 1.
    std::vector<std::size_t> marks(b.size());
    for (std::size_t person = 0; person < b.size(); ++person) {
        const auto wanted = expected[person];
        if (wanted.size() != b[person].size())
            return false;
        for (const auto other : b[person])
            marks[other] = person + 1;
        for (const auto other : wanted) {
            if (std::exchange(marks[other], 0) != person + 1)
                return false;
        }
    }
    return true;
}

bool isFreeOfCycles(const Lists<PersonIndex>& children, const Lists<PersonIndex>& parents)
{
    std::vector<std::size_t> waitingFor(parents.size());
    std::vector<PersonIndex> ready;
    ready.reserve(parents.size());
    for (std::size_t person = 0; person < parents.size(); ++person) {
        waitingFor[person] = parents[person].size();
        if (waitingFor[person] == 0)
            ready.push_back(static_cast<PersonIndex>(person));
    }
    for (std::size_t done = 0; done < ready.size(); ++done) {
        for (const auto child : children[ready[done]]) {
            if (--waitingFor[child] == 0)
                ready.push_back(child);
        }
    }
    return ready.size() == parents.size();
}

std::vector<std::pair<PersonIndex, PersonIndex>> closingLinks(const Lists<PersonIndex>& children)
{
    enum class State : std::uint8_t
    {
        Unseen,
        OnThePath,
        Done
    };
    struct Step
    {
        PersonIndex person;
        std::size_t nextChild;
    };
    std::vector<std::pair<PersonIndex, PersonIndex>> closing;
    std::vector<State> states(children.size());
    std::vector<Step> path;
    const auto enter = [&](PersonIndex person) {
        states[person] = State::OnThePath;
        path.push_back({person, 0});
    };
    for (std::size_t first = 0; first < children.size(); ++first) {
        if (states[first] == State::Unseen)
            enter(static_cast<PersonIndex>(first));
        while (!path.empty()) {
            auto& step = path.back();
            if (step.nextChild == children[step.person].size()) {
                states[step.person] = State::Done;
                path.pop_back();
                continue;
            }
            const auto child = children[step.person][step.nextChild++];
            if (states[child] == State::OnThePath)
                closing.emplace_back(step.person, child);
            else if (states[child] == State::Unseen)
                enter(child);
        }
    }
    return closing;
}

} // namespace lineara::store
