#include "opening_notices.h"

#include "document/document.h"
#include "document/document_window.h"
#include "saving.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace lineara {

namespace {

struct OpeningNoticeTexts
{
    Q_DECLARE_TR_FUNCTIONS(OpeningNotices)
};

void offerToSave(Document& document, const QString& text)
{
    DocumentWindow& window = document.window();
    const auto settled = [&document, text](bool isSaved) {
        if (!isSaved)
            offerToSave(document, text);
    };
    QWidget& notice = window.offer(text, OpeningNoticeTexts::tr("Save As…"),
                                   [&document, settled] { saveDocumentAs(document, settled); });
    // With a file of its own, the family has another title.
    QObject::connect(&window, &QWidget::windowTitleChanged, &notice, &QObject::deleteLater);
}

QString fileName(const Document& document)
{
    return QFileInfo(document.path()).fileName();
}

} // namespace

void tellThatOutOfDate(Document& document, const QString& obstacle)
{
    offerToSave(document,
                OpeningNoticeTexts::tr("This is an up-to-date copy of “%1”. The file itself is of an older version of "
                                       "Lineara and stays as it is: %2")
                    .arg(fileName(document), obstacle));
}

void tellThatInUse(Document& document)
{
    offerToSave(document, OpeningNoticeTexts::tr(
                              "“%1” is being worked on in another window of Lineara, so these unsaved changes of "
                              "it can't be saved there. They become a file of their own.")
                              .arg(fileName(document)));
}

} // namespace lineara
