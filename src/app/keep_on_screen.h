#pragma once

class QWidget;

namespace lineara {

/// Sees to it that a window that is about to be shown does not hang over the edge of its screen, by moving it if that
/// is enough, and by making it smaller otherwise. One that fills the screen anyway is left alone.
void keepOnScreen(QWidget& window);

} // namespace lineara
