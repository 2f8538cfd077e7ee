#include "saving.h"

#include "document/document.h"
#include "document/document_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace lineara {

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("Saving", source);
}

/// Beside the file that the family came from, under its name.
QString proposedPath(const Document& document)
{
    const QFileInfo origin(document.path());
    const bool hasOrigin = !document.path().isEmpty();
    const QDir folder = hasOrigin ? origin.dir() : QDir::home();
    const QString name = hasOrigin ? origin.completeBaseName() : Document::defaultDraftName();
    return folder.filePath(name + QStringLiteral(".lineara"));
}

void saveTo(Document& document, const QString& path)
{
    document.save(path, [&document](const Outcome<Done>& outcome) {
        if (!outcome.failed())
            return;
        auto* const message =
            new QMessageBox(QMessageBox::Warning, text("Can't Save the Family"), outcome.failure().message,
                            QMessageBox::Ok, document.window().isVisible() ? &document.window() : nullptr);
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->open();
    });
}

} // namespace

void saveDocument(Document& document)
{
    if (document.hasOwnFile())
        saveTo(document, document.path());
    else
        saveDocumentAs(document);
}

void saveDocumentAs(Document& document)
{
    auto* const dialog =
        new QFileDialog(&document.window(), text("Save the Family"), QString(), text("Family files (*.lineara)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("lineara"));
    dialog->selectFile(proposedPath(document));
    // Belongs to the document's window, so the document is there as long as the dialog is.
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [&document](const QString& path) { saveTo(document, path); });
    dialog->open();
}

} // namespace lineara
