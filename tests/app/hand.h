#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace lineara {

/// A hand at the display's mouse and keyboard. What it does goes the whole way through the window system, and the
/// program lives on meanwhile. Points are pixels of the screen. A test whose hand can't move fails.
class Hand
{
public:
    static void moveTo(QPoint point);
    static void click(QPoint point);
    static void doubleClick(QPoint point);
    /// Presses at the one point and releases at the other; the pointer passes what lies between.
    static void drag(QPoint from, QPoint to);
    static void press(QPoint point);
    static void pull(QPoint from, QPoint to);
    static void release();
    /// One notch of the wheel toward the user.
    static void wheelDown(QPoint point);

    /// Presses keys together, as in "ctrl+shift+n".
    static void key(const QString& keys);
    static void type(const QString& text);

    /// Gives a window the keyboard, as a window manager does for one that has just come up; there is none here.
    static void bringToFront(QWidget& window);

    /// The same for a window of another program, as soon as there is one of that title.
    static void focus(const QString& title);

private:
    static void act(const QStringList& commands);
};

/// Lets the program live until the condition holds; false if it takes longer than anybody would wait.
bool waitUntil(const std::function<bool()>& condition);

} // namespace lineara
