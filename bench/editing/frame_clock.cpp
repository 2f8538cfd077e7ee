#include "frame_clock.h"

#include <QEvent>
#include <QWidget>

namespace lineara::bench {

void FrameClock::watch(QWidget& widget)
{
    watched_ = &widget;
    frames_.clear();
    lastPaint_.reset();
    work_ = 0;
    painted_ = false;
}

bool FrameClock::notify(QObject* receiver, QEvent* event)
{
    painted_ = painted_ || (receiver == watched_ && event->type() == QEvent::Paint);
    ++depth_;
    const auto start = Clock::now();
    const bool handled = QApplication::notify(receiver, event);
    const auto end = Clock::now();
    if (--depth_ > 0)
        return handled;
    work_ += std::chrono::duration<double, std::milli>(end - start).count();
    if (painted_) {
        frames_.push_back(work_);
        lastPaint_ = end;
        work_ = 0;
        painted_ = false;
    }
    return handled;
}

} // namespace lineara::bench
