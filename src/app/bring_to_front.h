#pragma once

class QWidget;

namespace lineara {

/// Shows the window, also where it was minimized, and gives it the keyboard.
void bringToFront(QWidget& window);

} // namespace lineara
