#include "platform/progress.h"

#include <cmath>
#include <utility>

namespace lineara {

struct Progress::Listening
{
    std::function<void(double)> listener;
    int percentTold = -1;
};

Progress::Progress(std::function<void(double)> listener, std::stop_token stop)
    : listening_(std::make_shared<Listening>(Listening{std::move(listener)})), stop_(std::move(stop))
{}

void Progress::report(double part) const
{
    if (!listening_ || isStopped())
        return;
    const double whole = std::lerp(begin_, end_, part);
    const int percent = static_cast<int>(100 * whole);
    if (percent <= listening_->percentTold)
        return;
    listening_->percentTold = percent;
    listening_->listener(whole);
}

Progress Progress::stage(double begin, double end) const
{
    Progress result = *this;
    result.begin_ = std::lerp(begin_, end_, begin);
    result.end_ = std::lerp(begin_, end_, end);
    return result;
}

} // namespace lineara
