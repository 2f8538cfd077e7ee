#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

namespace lineara {

class DocumentWindow;

/// Tells above the family that the engine is at work for long, and lets the user go on with rows that are found at
/// once. Whatever waits for the engine, a save or an undo, then goes on as well. Where the window goes, nobody is left
/// to be told, and the engine is hurried instead. Main thread only.
class EngineWait
{
public:
    explicit EngineWait(DocumentWindow& window);

    /// The engine begins; `hurry` is called where the user does not want to wait any longer.
    void begin(std::chrono::milliseconds patience, std::function<void()> hurry);
    void end();

    /// Whether the engine is hurried where the user would be told.
    void setHurried(bool hurried);

private:
    void patienceEnded();
    void tell();

    DocumentWindow& window_;
    std::function<void()> hurry_;
    QTimer timer_;
    QPointer<QWidget> bar_; // nullptr while there is nothing to tell
    bool isHurried_ = false;
};

} // namespace lineara
