#include "report_dialog.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QShortcut>
#include <QVBoxLayout>

namespace lineara {

namespace {

struct ReportDialogTexts
{
    Q_DECLARE_TR_FUNCTIONS(ReportDialog)
};

void save(QWidget& owner, const QString& path, const QString& text)
{
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit();
    if (isWritten)
        return;
    auto* const box = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                                      ReportDialogTexts::tr("“%1” can't be written: %2").arg(path, file.errorString()),
                                      QMessageBox::Close, &owner);
    box->setObjectName(QStringLiteral("reportNotSaved"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void chooseAndSave(QWidget& owner, const QString& text)
{
    auto* const chooser = new QFileDialog(&owner, ReportDialogTexts::tr("Save the Report"),
                                          QDir::home().filePath(ReportDialogTexts::tr("Report.txt")),
                                          ReportDialogTexts::tr("Texts (*.txt)"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setAcceptMode(QFileDialog::AcceptSave);
    chooser->setDefaultSuffix(QStringLiteral("txt"));
    QObject::connect(chooser, &QFileDialog::fileSelected, &owner,
                     [&owner, text](const QString& path) { save(owner, path, text); });
    chooser->open();
}

/// Whoever reads the text means the family when pressing the keys that save, export or print it.
void lendKeys(QDialog& dialog, const QMenu& commands)
{
    for (QAction* const command : commands.actions()) {
        if (command->shortcut() != QKeySequence(QKeySequence::Close))
            dialog.addAction(command);
    }
    const auto* const close = new QShortcut(QKeySequence::Close, &dialog);
    QObject::connect(close, &QShortcut::activated, &dialog, &QDialog::close);
}

} // namespace

void showReportDialog(QWidget& owner, const QMenu& commands, const QString& summary, const QString& details)
{
    auto* dialog = new QDialog(&owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("openingReport"));
    dialog->setWindowTitle(ReportDialogTexts::tr("What Was Read"));
    dialog->resize(720, 480);
    lendKeys(*dialog, commands);

    auto* heading = new QLabel(summary);
    heading->setWordWrap(true);
    auto* lines = new QPlainTextEdit(details);
    lines->setObjectName(QStringLiteral("reportLines"));
    lines->setAccessibleName(ReportDialogTexts::tr("What Was Read"));
    lines->setReadOnly(true);
    lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    const QPushButton* const save = buttons->addButton(ReportDialogTexts::tr("&Save…"), QDialogButtonBox::ActionRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    QObject::connect(save, &QPushButton::clicked, dialog,
                     [dialog, text = summary + QStringLiteral("\n\n") + details] { chooseAndSave(*dialog, text); });

    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(heading);
    layout->addWidget(lines);
    layout->addWidget(buttons);
    dialog->show();
}

} // namespace lineara
