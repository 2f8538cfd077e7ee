#pragma once

#include <QString>

class QMenu;
class QWidget;

namespace lineara {

/// Shows a long text line by line, beside the window it belongs to and without blocking it. The keys of `commands`,
/// which are the window's, work from here, too, but for those that would close the window: they close the text.
void showReportDialog(QWidget& owner, const QMenu& commands, const QString& summary, const QString& details);

} // namespace lineara
