#pragma once

#include <QString>

class QWidget;

namespace lineara {

/// Shows a long text line by line, beside the window it belongs to and without blocking it.
void showReportDialog(QWidget& owner, const QString& summary, const QString& details);

} // namespace lineara
