#pragma once

#include <QKeyEvent>
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

    /// There is nothing to wait for any more: what was typed until now goes to whom it was meant for.
    void end(QWidget& waitedFor);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* content_;
    std::vector<std::unique_ptr<QKeyEvent>> typed_;
    bool hasEnded_ = false;
};

} // namespace lineara
