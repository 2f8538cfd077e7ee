#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>

#include <deque>
#include <memory>
#include <vector>

namespace lineara {

/// Holds what is typed for a field that is not open yet. Between the command that adds somebody and the field for the
/// name lies the work on the family, which takes a moment where that is large; who types on without looking up loses
/// no letter. Main thread only.
class TypeAhead : public QObject
{
public:
    /// `window` is the one whose keys are meant. It must live longer.
    explicit TypeAhead(QWidget& window) : window_(window) {}

    /// Keys of the window are held from now on for one more field, but for commands. Escape takes back what is held; a
    /// press of the mouse or a field that gets the focus means that what is typed after it is for something else.
    void hold();
    /// Gives what was held for the field that is due next to whoever has the focus, and holds no longer if it was the
    /// last one.
    void releaseToField();
    /// The same where the field could not be opened: the text that would stand in it.
    QString releaseAsText();
    /// Whether further fields are due.
    bool isHolding() const { return !held_.empty(); }

private:
    using Keys = std::vector<std::unique_ptr<QKeyEvent>>;

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool isHeld(const QKeyEvent& key) const;
    void holdKey(const QKeyEvent& key);
    Keys takeNext();
    void goOn();
    void stop();

    QWidget& window_;
    std::deque<Keys> held_; // for each field that is due, the next one first
};

} // namespace lineara
