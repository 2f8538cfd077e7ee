#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <stop_token>
#include <vector>

namespace lineara::engine {

/// Hands out generations along the links, in the order of a depth-first recursion but on stacks of its own, so that
/// the depth of a family is bounded by memory alone. Every person is given a generation at most once.
///
/// When `stop` is requested every operation returns early and leaves the rest undone.
class Assignment
{
public:
    Assignment(const FamilyGraph& family, std::vector<LogEntry>& log, std::stop_token stop);

    /// Gives the person this generation and spreads it: parents one higher with all theirs first, then children one
    /// lower, then partners without a generation. An existing generation stands; a different wish is logged.
    void assignGeneration(Generation generation, PersonIndex person);

    /// The generation of a person, found first if the spreading did not reach it: from its parents, or
    /// `founderGeneration` if it has none but is linked. `noGeneration` if it is unlinked.
    Generation getGeneration(PersonIndex person, Generation founderGeneration);

    std::vector<Generation>& generations() { return generations_; }
    std::vector<bool>& willWalk() { return willWalk_; }

private:
    /// A person being worked on, and how many of its links are done.
    struct Step
    {
        PersonIndex person = 0;
        std::uint32_t next = 0;
    };

    void place(Generation generation, PersonIndex person);
    void spreadNext();
    void visit(PersonIndex person, Generation founderGeneration);

    const FamilyGraph& family_;
    std::vector<LogEntry>& log_;
    std::stop_token stop_;
    std::vector<Generation> generations_;
    std::vector<bool> willWalk_;
    std::vector<bool> asked_;
    std::vector<Step> spreading_;
    std::vector<Step> reaching_;
};

} // namespace lineara::engine
