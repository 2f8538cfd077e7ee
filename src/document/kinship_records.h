#pragma once

#include "kinship/checks.h"
#include "model/changes.h"
#include "model/pool.h"

#include <optional>
#include <span>
#include <vector>

namespace lineara {

/// A family's links, dates and sexes as the room of kinship wants them, and the way back from its indices to the
/// records.
class KinshipRecords
{
public:
    explicit KinshipRecords(const Pool& pool);

    /// Whether a change makes another one of what was taken.
    static bool concerns(const Change& change);

    const engine::FamilyGraph& graph() const { return snapshot_.graph; }
    std::span<const kinship::LifeDates> dates() const { return dates_; }
    /// As far as the files tell them that persons were imported from.
    std::span<const kinship::Sex> sexes() const { return sexes_; }
    kinship::CheckedFamily checked() const { return {snapshot_.graph, dates_, sexes_}; }

    RecordId idOf(kinship::PersonIndex person) const { return snapshot_.persons[person]; }
    std::vector<RecordId> idsOf(std::span<const kinship::PersonIndex> persons) const
    {
        return snapshot_.idsOf(persons);
    }
    /// No value for somebody who was not there.
    std::optional<kinship::PersonIndex> indexOf(RecordId person) const { return snapshot_.indexOf(person); }

private:
    FamilySnapshot snapshot_;
    std::vector<kinship::LifeDates> dates_;
    std::vector<kinship::Sex> sexes_;
};

} // namespace lineara
