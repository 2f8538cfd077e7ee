#pragma once

#include <QDialog>

namespace lineara {

/// What the program is, in which version, and whose work it stands on.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);
};

} // namespace lineara
