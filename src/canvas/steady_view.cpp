#include "canvas/steady_view.h"

#include <algorithm>
#include <utility>

namespace lineara {

void SteadyView::setHold(PointerHold hold)
{
    hold_ = hold;
    yielded_ = 0;
    if (hold_ != PointerHold::None)
        return;
    if (const QPointF owed = std::exchange(owed_, {}); !owed.isNull())
        view_.follow(owed.x(), owed.y());
}

void SteadyView::followShift(double points, ShiftCause cause)
{
    if (hold_ == PointerHold::Canvas)
        owed_.rx() += points;
    else if (hold_ == PointerHold::None)
        view_.follow(points, 0);
    else if (const double followed = points - yieldedOf(points, cause); followed != 0)
        view_.follow(followed, 0);
}

/// How much of a shift under a dragged node the view leaves to be seen.
double SteadyView::yieldedOf(double points, ShiftCause cause)
{
    double yielded = 0;
    if (cause == ShiftCause::Drag)
        yielded = points;
    else if (cause == ShiftCause::Replay)
        yielded = std::clamp(points, -yielded_, 0.0);
    yielded_ += yielded;
    return yielded;
}

bool SteadyView::followRows(double points)
{
    if (hold_ != PointerHold::None) {
        owed_.ry() += points;
        return false;
    }
    view_.follow(0, points);
    return true;
}

} // namespace lineara
