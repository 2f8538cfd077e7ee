#pragma once

#include <QPalette>

namespace lineara {

/// Colours for what stays white in every theme of the desktop, as the canvas does: dark texts on white, and buttons
/// that stand out from it. What is selected keeps the theme's colours.
QPalette lightPalette(const QPalette& theme);

} // namespace lineara
