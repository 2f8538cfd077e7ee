#pragma once

#include <QApplication>

#include <chrono>
#include <optional>
#include <vector>

namespace lineara::bench {

/// An application that knows what each picture of one widget has cost: all work on the main thread since the picture
/// before, waiting left out.
class FrameClock : public QApplication
{
public:
    using QApplication::QApplication;
    using Clock = std::chrono::steady_clock;

    /// Forgets the frames noted so far and notes those of this widget from now on.
    void watch(QWidget& widget);
    /// Milliseconds of each frame since then.
    const std::vector<double>& frames() const { return frames_; }
    /// When the latest picture was finished.
    std::optional<Clock::time_point> lastPaint() const { return lastPaint_; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    QWidget* watched_ = nullptr;
    int depth_ = 0;
    bool painted_ = false;
    double work_ = 0;
    std::vector<double> frames_;
    std::optional<Clock::time_point> lastPaint_;
};

} // namespace lineara::bench
