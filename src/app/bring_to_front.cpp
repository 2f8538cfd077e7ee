#include "bring_to_front.h"

#include <QWidget>

namespace lineara {

void bringToFront(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace lineara
