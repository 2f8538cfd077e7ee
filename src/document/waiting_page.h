#pragma once

#include "watched_work.h"

#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace lineara {

/// Stands where the canvas will. If that takes longer than a moment, it says so and lets the user give up.
class WaitingPage : public QWidget
{
public:
    explicit WaitingPage(std::function<void()> giveUp);

    /// Shows how far that is which is waited for; `text` says what it is.
    void watch(const QString& text, const WatchedWork& work);

    /// There is nothing to wait for any more: what was typed until now goes to whom it was meant for.
    void end(QWidget& waitedFor);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* content_;
    QLabel* text_;
    QProgressBar* bar_;
    QTimer looks_;
    std::vector<std::unique_ptr<QKeyEvent>> typed_;
    bool hasEnded_ = false;
};

} // namespace lineara
