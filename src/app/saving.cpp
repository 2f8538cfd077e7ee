#include "saving.h"

#include "document/document.h"
#include "document/document_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

namespace lineara {

namespace {

struct SavingTexts
{
    Q_DECLARE_TR_FUNCTIONS(Saving)
};

/// Beside the file that the family came from, if a new one can be made there.
QString proposedPath(const Document& document, const QString& name)
{
    const QFileInfo folder(QFileInfo(document.path()).path());
    const QDir place = document.path().isEmpty() || !folder.isWritable() ? QDir::home() : QDir(folder.filePath());
    return place.filePath(name + QStringLiteral(".lineara"));
}

QString baseName(const Document& document)
{
    return document.path().isEmpty() ? Document::defaultDraftName() : QFileInfo(document.path()).completeBaseName();
}

QString nameOfCopy(const Document& document)
{
    return SavingTexts::tr("%1 copy").arg(baseName(document));
}

/// Belongs to the document's window, so the document is there as long as the box is.
QMessageBox* makeBox(Document& document, const QString& message, const QString& details)
{
    auto* const box = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), message,
                                      QMessageBox::NoButton, &document.window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(details);
    return box;
}

void tellFailure(Document& document, const QString& reason, const Settled& settled)
{
    QMessageBox* const box = makeBox(document, reason, SavingTexts::tr("The family stays open, with all its changes."));
    box->setObjectName(QStringLiteral("savingFailed"));
    const QPushButton* const saveAs = box->addButton(SavingTexts::tr("Save As…"), QMessageBox::AcceptRole);
    box->addButton(QMessageBox::Close);
    QObject::connect(box, &QMessageBox::finished, &document.window(), [&document, box, saveAs, settled] {
        if (box->clickedButton() == saveAs)
            saveDocumentAs(document, settled);
        else
            settled(false);
    });
    box->open();
}

void saveTo(Document& document, const QString& path, const Settled& settled, Document::Overwriting overwriting);

void askAboutChange(Document& document, const QString& path, const Settled& settled)
{
    QMessageBox* const box =
        makeBox(document, SavingTexts::tr("“%1” was changed by another program since it was opened here.").arg(path),
                SavingTexts::tr("Saving overwrites what the other program wrote."));
    box->setObjectName(QStringLiteral("fileHasChanged"));
    const QPushButton* const overwrite = box->addButton(SavingTexts::tr("Save Anyway"), QMessageBox::DestructiveRole);
    QPushButton* const saveAs = box->addButton(SavingTexts::tr("Save As…"), QMessageBox::AcceptRole);
    box->setDefaultButton(saveAs);
    box->setEscapeButton(box->addButton(QMessageBox::Cancel));
    QObject::connect(box, &QMessageBox::finished, &document.window(),
                     [&document, box, overwrite, saveAs, path, settled] {
                         if (box->clickedButton() == overwrite)
                             saveTo(document, path, settled, Document::Overwriting::Anything);
                         else if (box->clickedButton() == saveAs)
                             saveDocumentAs(document, settled);
                         else
                             settled(false);
                     });
    box->open();
}

void saveTo(Document& document, const QString& path, const Settled& settled, Document::Overwriting overwriting)
{
    const auto saved = [&document, path, settled](const Outcome<SaveEnd>& outcome) {
        if (outcome.failed())
            tellFailure(document, outcome.failure().message, settled);
        else if (outcome.value() == SaveEnd::FileHasChanged)
            askAboutChange(document, path, settled);
        else
            settled(true);
    };
    document.save(path, saved, overwriting);
}

/// `chosen` is called with an empty path if none was chosen.
void choosePath(Document& document, const QString& title, const QString& proposed,
                const std::function<void(const QString&)>& chosen)
{
    auto* const dialog =
        new QFileDialog(&document.window(), title, QString(), SavingTexts::tr("Family files (*.lineara)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("lineara"));
    dialog->selectFile(proposed);
    QObject::connect(dialog, &QFileDialog::finished, &document.window(), [dialog, chosen](int result) {
        chosen(result == QDialog::Accepted ? dialog->selectedFiles().value(0) : QString());
    });
    dialog->open();
}

} // namespace

void saveDocument(Document& document, const Settled& settled)
{
    // Which file is the document's own, and what is not in it, is known once that is done.
    if (document.isSaving() || document.isBusy()) {
        document.whenSettled([&document, settled] { saveDocument(document, settled); });
        return;
    }
    if (!document.hasOwnFile()) {
        saveDocumentAs(document, settled);
        return;
    }
    document.commit();
    if (!document.isModified() && !document.isMended() && QFileInfo::exists(document.path()))
        settled(true);
    else
        saveTo(document, document.path(), settled, Document::Overwriting::AsLeft);
}

void saveDocumentAs(Document& document, const Settled& settled)
{
    choosePath(document, SavingTexts::tr("Save the Family"),
               proposedPath(document, document.origin().isCopy ? nameOfCopy(document) : baseName(document)),
               [&document, settled](const QString& path) {
                   if (path.isEmpty())
                       settled(false);
                   else
                       saveTo(document, path, settled, Document::Overwriting::Anything);
               });
}

void saveDocumentCopy(Document& document)
{
    choosePath(document, SavingTexts::tr("Save a Copy of the Family"), proposedPath(document, nameOfCopy(document)),
               [&document](const QString& path) {
                   if (path.isEmpty())
                       return;
                   document.saveCopy(path, [&document](const Outcome<Done>& outcome) {
                       if (outcome.failed())
                           makeBox(document, outcome.failure().message, {})->open();
                   });
               });
}

} // namespace lineara
