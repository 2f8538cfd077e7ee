#pragma once

#include <QPalette>
#include <QString>

class QLabel;
class QPushButton;

namespace lineara {

// What the editor of a person is put together from. Whoever takes a widget owns it.

/// The editor is white in every theme of the desktop.
QPalette lightCellPalette();

QPushButton* makePicButton();
QPushButton* makePicRemoveButton();

/// Looks like a link: it leads somewhere and changes nothing.
QPushButton* makeFactsButton();

/// Stands on one line with a field of one line.
QLabel* makeCaption(const QString& caption);

} // namespace lineara
