#pragma once

#include "model/journal.h"
#include "model/record.h"

#include <map>
#include <utility>
#include <vector>

namespace lineara {

class Person;
class Pool;

/// Where persons without a row hang. No record tells it, so it is kept beside the steps of the history that give such a
/// person a row, or take it away.
class FreeHeights
{
public:
    enum class Side
    {
        Before, ///< as it was before the step
        After
    };
    /// The vertical constant of a person's node.
    struct Height
    {
        RecordId person;
        double constant = 0;
    };
    using Heights = std::vector<Height>;

    /// The present heights of all members who have no row and a node.
    static Heights of(const Pool& pool);
    /// Those of `heights` whose person has a row by now, or is no member any more.
    static Heights changed(const Heights& heights, const Pool& pool);

    void add(StepId step, Side side, const Heights& heights);
    void replace(StepId step, Side side, Heights heights);
    /// In the order in which they were added; of two for one person the later one holds.
    const Heights& at(StepId step, Side side) const;

private:
    std::map<std::pair<StepId, Side>, Heights> kept_;
};

} // namespace lineara
