#include "closing.h"

#include "document/document.h"
#include "document/document_window.h"
#include "saving.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMessageBox>

#include <algorithm>

namespace lineara {

namespace {

struct ClosingTexts
{
    Q_DECLARE_TR_FUNCTIONS(Closing)
};

bool isAsking(Document& document)
{
    const auto boxes = document.window().findChildren<QMessageBox*>();
    return std::ranges::any_of(boxes, &QMessageBox::isVisible);
}

void saveAndAskAgain(Document& document, const std::function<void(bool)>& answered)
{
    saveDocument(document, [&document, answered](bool isSaved) {
        if (isSaved)
            askToClose(document, answered); // something may have been typed meanwhile
        else
            answered(false);
    });
}

void ask(Document& document, const std::function<void(bool)>& answered)
{
    auto* const box =
        new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                        ClosingTexts::tr("Do you want to save the changes to “%1”?").arg(document.name()),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &document.window());
    box->setObjectName(QStringLiteral("closeQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(ClosingTexts::tr("They are lost otherwise."));
    box->setDefaultButton(QMessageBox::Save);
    box->setEscapeButton(QMessageBox::Cancel);
    QObject::connect(box, &QMessageBox::finished, &document.window(), [&document, answered](int answer) {
        if (answer == QMessageBox::Save)
            saveAndAskAgain(document, answered);
        else
            answered(answer == QMessageBox::Discard);
    });
    box->open();
}

} // namespace

void askToClose(Document& document, const std::function<void(bool)>& answered)
{
    // Who asks for closing twice, or could not save, has one question to answer.
    if (isAsking(document)) {
        answered(false);
        return;
    }
    document.commit();
    // An undo that waits for its turn, say, is a change as well.
    if (document.isSaving() || document.isBusy())
        document.whenSettled([&document, answered] { askToClose(document, answered); });
    else if (document.isModified())
        ask(document, answered);
    else
        answered(true);
}

} // namespace lineara
