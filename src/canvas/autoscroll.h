#pragma once

#include <QPointF>
#include <QSizeF>
#include <QTimer>

#include <functional>

namespace lineara {

/// Keeps scrolling while something is dragged at an edge of the view, or beyond it: the farther out, the faster.
class Autoscroll
{
public:
    /// `scroll` is called with the pixels to move on by, right and down.
    explicit Autoscroll(std::function<void(QPointF)> scroll);

    /// Where the pointer is now, in a view of that size.
    void follow(QPointF pointer, QSizeF view);
    void stop() { timer_.stop(); }
    bool isRunning() const { return timer_.isActive(); }

    /// How far one tick of the clock scrolls; (0, 0) in the middle of the view.
    static QPointF step(QPointF pointer, QSizeF view);

private:
    std::function<void(QPointF)> scroll_;
    QPointF step_;
    QTimer timer_;
};

} // namespace lineara
