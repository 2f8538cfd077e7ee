#pragma once

#include "model/pool.h"

#include <optional>
#include <stop_token>

namespace lineara {

/// A run of the engine in three parts, the middle one of which may happen on another thread. What the part before did
/// not prepare, the next one leaves undone.
class EngineRun
{
public:
    void prepare(const Pool& pool) { snapshot_ = pool.snapshot(); }

    void compute(std::stop_token stop)
    {
        if (snapshot_)
            result_ = engine::process(snapshot_->graph, std::move(stop), hurry_.get_token());
    }

    /// Gives up waiting for rows that take long to find; the result may leave partners in different rows.
    void hurry() { hurry_.request_stop(); }

    /// False also if the computation was stopped.
    bool hasResult() const { return result_.has_value(); }

    void apply(Pool& pool) const
    {
        if (result_)
            pool.apply(*snapshot_, *result_);
    }

private:
    std::stop_source hurry_;
    std::optional<FamilySnapshot> snapshot_;
    std::optional<engine::ProcessResult> result_;
};

} // namespace lineara
