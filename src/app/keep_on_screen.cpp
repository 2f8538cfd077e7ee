#include "keep_on_screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace lineara {

namespace {

/// Where on a screen the inside of a window can lie. How high a title the desktop gives it is known only once it is
/// shown.
QRect roomOn(const QScreen& screen, const QWidget& window)
{
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return screen.availableGeometry().adjusted(0, title, 0, 0);
}

/// How far a stretch from `at` must move to lie between the two edges.
int wayInto(int from, int to, int at, int length)
{
    return qBound(from, at, to - length) - at;
}

} // namespace

void keepOnScreen(QWidget& window)
{
    if (window.isMaximized() || window.isFullScreen())
        return;
    QRect place = window.geometry();
    const QScreen* const at = QGuiApplication::screenAt(place.center());
    const QRect room = roomOn(at ? *at : *window.screen(), window);
    place.setSize(place.size().boundedTo(room.size()));
    window.resize(place.size());
    // One that was never placed is placed by the desktop.
    if (!window.testAttribute(Qt::WA_Moved))
        return;
    place.translate(wayInto(room.left(), room.left() + room.width(), place.left(), place.width()),
                    wayInto(room.top(), room.top() + room.height(), place.top(), place.height()));
    window.setGeometry(place);
}

} // namespace lineara
