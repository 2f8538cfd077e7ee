#include "canvas/steady_view.h"

#include <utility>

namespace lineara {

void SteadyView::setHold(PointerHold hold)
{
    hold_ = hold;
    if (hold_ != PointerHold::None)
        return;
    if (const QPointF owed = std::exchange(owed_, {}); !owed.isNull())
        view_.follow(owed.x(), owed.y());
}

void SteadyView::followShift(double points)
{
    if (hold_ == PointerHold::Canvas)
        owed_.rx() += points;
    else if (hold_ == PointerHold::None)
        view_.follow(points, 0);
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
