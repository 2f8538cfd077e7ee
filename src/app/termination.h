#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace lineara {

/// Hears when the system wants the program to end: by a signal, or because the session ends. There is one at a time.
class Termination : public QObject
{
public:
    /// `asked` is called, from the event loop, when a signal asks the program to end; `sessionEnds` when the session
    /// does, which waits until it returns.
    Termination(std::function<void()> asked, std::function<void()> sessionEnds);
    ~Termination() override;

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace lineara
