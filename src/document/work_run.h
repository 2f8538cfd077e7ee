#pragma once

#include "engine_run.h"
#include "family_work.h"
#include "model/journal.h"

#include <memory>

namespace lineara {

/// One piece of work on its way through the queue. Its steps share it and never run at the same time.
struct WorkRun
{
    FamilyWork work;
    StepId of; ///< the step of the history that the work follows from
    /// Set where the work is done again because an undo took its changes back. Whether it is still wanted is known only
    /// when its turn comes.
    std::shared_ptr<const bool> repetitionWanted = nullptr;
    EngineRun engine = {};
    std::optional<RecordId> concerned = std::nullopt; ///< who is to be in view once it is done

    bool isRepeated() const { return repetitionWanted != nullptr; }
    bool isWanted() const { return !isRepeated() || *repetitionWanted; }
};

} // namespace lineara
