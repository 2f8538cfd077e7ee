#pragma once

#include "model/object_context.h"
#include "platform/outcome.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace lineara {

/// Something that is drawn bit by bit.
class PaperWork
{
public:
    PaperWork() = default;
    virtual ~PaperWork();
    PaperWork(const PaperWork&) = delete;
    PaperWork& operator=(const PaperWork&) = delete;

    /// True while something is left.
    virtual bool step() = 0;
    virtual double part() const = 0;
    /// Brings what was drawn to where it belongs.
    virtual Outcome<Done> finish() = 0;
};

/// Does a work between the events of the program, so that its windows stay alive. What the family's change makes
/// untrue is begun anew.
class PaperRunner
{
public:
    using Begin = std::function<Outcome<std::unique_ptr<PaperWork>>()>;

    /// `progress` is told ascending parts from 0 to 1, after a new beginning from 0 again; `ended` is told the outcome,
    /// and may destroy the runner. The family must outlive the runner.
    PaperRunner(ObjectContext& family, Begin begin, std::function<void(double)> progress,
                std::function<void(Outcome<Done>)> ended);

private:
    void start();
    void step();
    void end(Outcome<Done> outcome);

    Begin begin_;
    std::function<void(double)> progress_;
    std::function<void(Outcome<Done>)> ended_;
    std::unique_ptr<PaperWork> work_; // none while the family has changed and nothing has been begun anew
    QTimer timer_;
    Subscription changes_;
};

} // namespace lineara
