#include "autoscroll.h"

#include <algorithm>

namespace lineara {

namespace {

constexpr int tickMilliseconds = 16;
constexpr double edge = 20; // pixels within the view that count as its edge
constexpr double slowest = 2;
constexpr double fastest = 40;
constexpr double growth = 0.6; // of the speed, for each pixel farther out

double speed(double depth)
{
    return depth > 0 ? std::clamp(slowest + depth * growth, slowest, fastest) : 0;
}

double stepAlong(double place, double length)
{
    return speed(place - (length - edge)) - speed(edge - place);
}

} // namespace

Autoscroll::Autoscroll(std::function<void(QPointF)> scroll) : scroll_(std::move(scroll))
{
    timer_.setInterval(tickMilliseconds);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { scroll_(step_); });
}

QPointF Autoscroll::step(QPointF pointer, QSizeF view)
{
    return {stepAlong(pointer.x(), view.width()), stepAlong(pointer.y(), view.height())};
}

void Autoscroll::follow(QPointF pointer, QSizeF view)
{
    step_ = step(pointer, view);
    if (step_.isNull())
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start();
}

} // namespace lineara
