#include "literal_rules.h"

#include <algorithm>
#include <string>

namespace lineara::engine {

namespace {

class LiteralRules
{
public:
    LiteralRules(const FamilyGraph& family, std::int64_t greatestSweeps)
        : family_(family), greatestSweeps_(greatestSweeps)
    {
        result_.generations.assign(family.persons(), noGeneration);
        result_.willWalk = family.willWalk;
    }

    std::optional<ProcessResult> process()
    {
        if (family_.members == 0)
            return result_;
        for (PersonIndex p = 0; p < family_.members; ++p) {
            const std::int32_t path = maxPathLiterally(family_, p);
            if (path > result_.maxGeneration) {
                result_.maxGeneration = path;
                result_.maxGenerationOf = p;
            }
        }
        assign(1, *result_.maxGenerationOf);
        normaliseUpward();
        const Generation shift = reachTheRest();
        if (shift != 0)
            addToAll(shift);
        equalise();
        if (!balance())
            return std::nullopt;
        arrange();
        return result_;
    }

private:
    Generation& generation(PersonIndex p) { return result_.generations[p]; }
    bool has(PersonIndex p) { return generation(p) != noGeneration; }
    Generation number(PersonIndex p) { return has(p) ? generation(p) : 0; }

    void assign(Generation g, PersonIndex p)
    {
        if (has(p) && generation(p) == g)
            return;
        if (has(p)) {
            result_.log.push_back({LogEntry::Kind::RefusedGeneration, g, generation(p)});
            return;
        }
        if (family_.children[p].empty() && family_.parents[p].empty() && family_.partners[p].empty()) {
            generation(p) = noGeneration;
            return;
        }
        generation(p) = g;
        if (!result_.willWalk.empty())
            result_.willWalk[p] = false;
        for (const PersonIndex q : family_.parents[p]) {
            if (result_.willWalk.empty() || !result_.willWalk[q])
                assign(g + 1, q);
        }
        for (const PersonIndex c : family_.children[p])
            assign(g - 1, c);
        for (const PersonIndex r : family_.partners[p]) {
            if (!has(r))
                assign(g, r);
        }
    }

    Generation getGeneration(PersonIndex p)
    {
        if (has(p))
            return generation(p);
        if (!family_.parents[p].empty()) {
            for (const PersonIndex q : family_.parents[p]) {
                Generation h = getGeneration(q);
                if (h == noGeneration)
                    h = 0;
                if (h != 0)
                    assign(h - 1, p);
            }
            return generation(p);
        }
        if (!family_.partners[p].empty() || !family_.children[p].empty())
            generation(p) = result_.maxGeneration;
        return generation(p);
    }

    void normaliseUpward()
    {
        Generation minimum = 1;
        for (PersonIndex p = 0; p < family_.members; ++p) {
            if (has(p) && generation(p) < minimum)
                minimum = generation(p);
        }
        if (minimum < 1)
            addToAll(1 - minimum);
    }

    void addToAll(Generation shift)
    {
        for (PersonIndex p = 0; p < family_.members; ++p) {
            if (has(p))
                generation(p) += shift;
        }
    }

    Generation reachTheRest()
    {
        Generation shift = 0;
        for (PersonIndex p = 0; p < family_.members; ++p) {
            if (!has(p)) {
                Generation g = getGeneration(p);
                if (g == noGeneration)
                    g = 0;
                if (g < 1 && 1 - g > shift)
                    shift = 1 - g;
            }
            for (const PersonIndex q : family_.partners[p]) {
                if (std::to_string(family_.numbers[p]) < std::to_string(family_.numbers[q]))
                    result_.partners.push_back({p, q});
            }
            for (const PersonIndex c : family_.children[p])
                result_.offspring.push_back({p, c});
        }
        return shift;
    }

    bool isLoose(PersonIndex p) { return family_.children[p].empty() && family_.parents[p].empty(); }

    void equalise()
    {
        for (const auto& [s, t] : result_.partners) {
            if (generation(s) == generation(t))
                continue;
            if (!has(s))
                generation(s) = generation(t);
            else if (!has(t))
                generation(t) = generation(s);
            else if (isLoose(s))
                generation(s) = generation(t);
            else if (isLoose(t))
                generation(t) = generation(s);
            else
                generation(s) = generation(t) = std::max(generation(s), generation(t));
        }
    }

    void pushUp(PersonIndex p, Generation levels, bool withPartners)
    {
        generation(p) = number(p) + levels;
        if (withPartners) {
            for (const PersonIndex q : family_.partners[p])
                generation(q) = generation(p);
        }
    }

    bool balance()
    {
        bool withPartners = true;
        std::vector<PersonIndex> previous;
        for (std::int64_t sweep = 0; sweep < greatestSweeps_; ++sweep) {
            std::vector<PersonIndex> pushed;
            for (PersonIndex p = 0; p < family_.members; ++p) {
                Generation levels = 0;
                for (const PersonIndex c : family_.children[p]) {
                    if (number(c) >= number(p) && levels <= number(c) - number(p))
                        levels = number(c) - number(p) + 1;
                }
                if (levels != 0) {
                    pushUp(p, levels, withPartners);
                    pushed.push_back(p);
                }
            }
            if (pushed.empty())
                return true;
            if (pushed != previous) {
                previous = std::move(pushed);
                continue;
            }
            if (!withPartners) {
                result_.log.push_back({LogEntry::Kind::StillImbalanced});
                return true;
            }
            withPartners = false;
            previous.clear();
        }
        return false;
    }

    void arrange()
    {
        result_.maxGeneration = 0;
        for (PersonIndex p = 0; p < family_.members; ++p)
            result_.maxGeneration = std::max(result_.maxGeneration, number(p));
        result_.rows.assign(static_cast<std::size_t>(result_.maxGeneration) + 1, {});
        for (PersonIndex p = 0; p < family_.members; ++p) {
            const Generation row = std::max(number(p), 0);
            result_.rows[static_cast<std::size_t>(row)].push_back(p);
        }
        for (const auto& row : result_.rows)
            result_.maxGenerationSize = std::max(result_.maxGenerationSize, static_cast<std::int32_t>(row.size()));
        result_.rowsBuilt = true;
    }

    const FamilyGraph& family_;
    std::int64_t greatestSweeps_;
    ProcessResult result_;
};

} // namespace

std::optional<ProcessResult> processLiterally(const FamilyGraph& family, std::int64_t greatestSweeps)
{
    return LiteralRules(family, greatestSweeps).process();
}

std::int32_t maxPathLiterally(const FamilyGraph& family, PersonIndex person)
{
    std::int32_t longest = 0;
    for (const PersonIndex parent : family.parents[person])
        longest = std::max(longest, maxPathLiterally(family, parent));
    return 1 + longest;
}

bool isDescendedFromLiterally(const std::vector<std::vector<PersonIndex>>& childrenOf, PersonIndex a, PersonIndex b)
{
    return std::ranges::any_of(
        childrenOf[b], [&](PersonIndex child) { return child == a || isDescendedFromLiterally(childrenOf, a, child); });
}

} // namespace lineara::engine
