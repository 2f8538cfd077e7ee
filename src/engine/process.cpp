#include "engine/process.h"

#include "ancestor_lines.h"
#include "assignment.h"
#include "decimal_order.h"
#include "graph_queries.h"
#include "push_up.h"

#include <algorithm>
#include <utility>

namespace lineara::engine {

namespace {

/// One run, step by step.
class Run
{
public:
    Run(const FamilyGraph& family, std::stop_token stop, std::stop_token hurry)
        : family_(family), stop_(stop), hurry_(std::move(hurry)), assignment_(family, result_.log, stop),
          generations_(assignment_.generations())
    {}

    std::optional<ProcessResult> complete()
    {
        if (family_.members > 0) {
            seed();
            raiseBy(1 - lowest(1));
            raiseBy(reachTheRest());
            equalisePartners();
            pushUp(family_, generations_, result_.log, stop_, hurry_);
            if (!stop_.stop_requested())
                buildRows();
        }
        if (stop_.stop_requested())
            return std::nullopt;
        result_.generations = std::move(generations_);
        result_.willWalk = std::move(assignment_.willWalk());
        return std::move(result_);
    }

private:
    /// The person with the longest line of ancestors stands in row 1; everyone connected follows from it.
    void seed()
    {
        const std::vector<std::int32_t> lines = ancestorLines(family_);
        const auto longest = std::max_element(lines.begin(), lines.begin() + family_.members);
        founderGeneration_ = *longest;
        result_.maxGenerationOf = static_cast<PersonIndex>(longest - lines.begin());
        assignment_.assignGeneration(1, *result_.maxGenerationOf);
    }

    Generation lowest(Generation start) const
    {
        for (PersonIndex member = 0; member < family_.members; ++member) {
            if (generations_[member] != noGeneration)
                start = std::min(start, generations_[member]);
        }
        return start;
    }

    void raiseBy(Generation shift)
    {
        if (shift == 0)
            return;
        for (PersonIndex member = 0; member < family_.members; ++member) {
            if (generations_[member] != noGeneration)
                generations_[member] += shift;
        }
    }

    /// Returns the shift that puts everyone found here into row 1 or above. An unlinked person counts as found at 0.
    Generation reachTheRest()
    {
        result_.partners.reserve(family_.partners.links() / 2);
        result_.offspring.reserve(family_.children.links());
        Generation shift = 0;
        for (PersonIndex member = 0; member < family_.members && !stop_.stop_requested(); ++member) {
            if (generations_[member] == noGeneration) {
                const Generation found = assignment_.getGeneration(member, founderGeneration_);
                shift = std::max(shift, 1 - valueOrZero(found));
            }
            collectLinks(member);
        }
        return shift;
    }

    void collectLinks(PersonIndex member)
    {
        for (const PersonIndex partner : family_.partners[member]) {
            if (precedesAsText(family_.numbers[member], family_.numbers[partner]))
                result_.partners.push_back({member, partner});
        }
        for (const PersonIndex child : family_.children[member])
            result_.offspring.push_back({member, child});
    }

    void equalisePartners()
    {
        for (const auto [source, target] : result_.partners) {
            Generation& first = generations_[source];
            Generation& second = generations_[target];
            if (first == second)
                continue;
            if (first == noGeneration)
                first = second;
            else if (second == noGeneration)
                second = first;
            else if (isLoose(family_, source))
                first = second;
            else if (isLoose(family_, target))
                second = first;
            else
                first = second = std::max(first, second);
        }
    }

    void buildRows()
    {
        if (const Generation least = lowest(1); least < 1)
            result_.log.push_back({LogEntry::Kind::BelowFirstRow, 0, least});
        Rows rows = arrangeGenerations(family_, generations_);
        result_.rowsBuilt = true;
        result_.maxGeneration = rows.maxGeneration;
        result_.maxGenerationSize = rows.maxGenerationSize;
        result_.rows = std::move(rows.rows);
    }

    const FamilyGraph& family_;
    std::stop_token stop_;
    std::stop_token hurry_;
    ProcessResult result_;
    Assignment assignment_;
    std::vector<Generation>& generations_;
    Generation founderGeneration_ = 0;
};

} // namespace

std::optional<ProcessResult> process(const FamilyGraph& family, std::stop_token stop, std::stop_token hurry)
{
    return Run(family, std::move(stop), std::move(hurry)).complete();
}

std::string logLine(const LogEntry& entry)
{
    switch (entry.kind) {
    case LogEntry::Kind::RefusedGeneration:
        return "Failed to assign generation " + std::to_string(entry.wanted) + " to person with existing generation " +
               std::to_string(entry.existing);
    case LogEntry::Kind::StillImbalanced:
        return "Pushing still required after trying to push up without partners. Tree imbalanced";
    case LogEntry::Kind::EndlessPush:
        return "Pushing up with partners would never end. Pushing up without partners instead";
    case LogEntry::Kind::PushCutShort:
        return "Pushing up with partners was cut short. Pushing up without partners instead";
    case LogEntry::Kind::BelowFirstRow:
        return "Persons below the first row, down to generation " + std::to_string(entry.existing) +
               ", are kept in row 0";
    }
    return {};
}

} // namespace lineara::engine
