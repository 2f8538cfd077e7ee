#include "report_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace lineara {

void showReportDialog(QWidget& owner, const QString& summary, const QString& details)
{
    auto* dialog = new QDialog(&owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("openingReport"));
    dialog->setWindowTitle(QDialog::tr("What Was Read"));
    dialog->resize(720, 480);

    auto* heading = new QLabel(summary);
    heading->setWordWrap(true);
    auto* lines = new QPlainTextEdit(details);
    lines->setReadOnly(true);
    lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);

    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(heading);
    layout->addWidget(lines);
    layout->addWidget(buttons);
    dialog->show();
}

} // namespace lineara
