#include "paper_work.h"

#include <utility>

namespace lineara {

PaperWork::~PaperWork() = default;

PaperRunner::PaperRunner(ObjectContext& family, Begin begin, std::function<void(double)> progress,
                         std::function<void(Outcome<Done>)> ended)
    : begin_(std::move(begin)), progress_(std::move(progress)), ended_(std::move(ended)),
      changes_(family.observe([this](const Change&) { work_.reset(); }))
{
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { step(); });
    timer_.start(0);
}

void PaperRunner::start()
{
    auto begun = begin_();
    if (begun.failed())
        end(begun.failure());
    else
        work_ = std::move(begun.value());
}

void PaperRunner::step()
{
    if (!work_) {
        start();
        return;
    }
    const bool isLeft = work_->step();
    progress_(work_->part());
    if (!isLeft)
        end(work_->finish());
}

void PaperRunner::end(Outcome<Done> outcome)
{
    timer_.stop();
    changes_ = {};
    // Whoever is told may destroy this, and the function with it.
    const auto ended = std::move(ended_);
    ended(std::move(outcome));
}

} // namespace lineara
