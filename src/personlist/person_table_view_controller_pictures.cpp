// Pictures of persons that the user chooses or removes.

#include "model/object_context.h"
#include "person_edit.h"
#include "personlist/person_table_view_controller.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QImageReader>
#include <QMessageBox>

namespace lineara {

namespace {

/// The files that a picture can be read from.
QString pictureFilter()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    return QCoreApplication::translate("PersonList", "Pictures (%1)").arg(patterns.join(QLatin1Char(' ')));
}

} // namespace

void PersonTableViewController::choosePicture(Person& person)
{
    if (view_)
        setPic(person.recordId());
}

void PersonTableViewController::removePicture(Person& person)
{
    removePic(person.recordId());
}

/// The dialog does not block, so the family may change behind it.
void PersonTableViewController::setPic(RecordId person)
{
    commitEditing();
    auto* const dialog = new QFileDialog(view_, QCoreApplication::translate("PersonList", "Choose a Picture"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({pictureFilter(), QCoreApplication::translate("PersonList", "All files (*)")});
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [this, person](const QString& file) { takePic(person, file); });
    dialog->open();
}

void PersonTableViewController::takePic(RecordId person, const QString& file)
{
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) {
        auto* const message = new QMessageBox(
            QMessageBox::Warning, QCoreApplication::translate("PersonList", "Can't Set the Picture"),
            QCoreApplication::translate("PersonList", "\u201c%1\u201d is not a picture that can be read. "
                                                      "Choose another file, such as a PNG or JPEG picture.")
                .arg(file),
            QMessageBox::Ok, view_);
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->open();
        return;
    }
    PersonEdit(pool_.context(), person)
        .change(QCoreApplication::translate("PersonList", "Set Picture"),
                [&](Person& shown) { shown.changePic(file); });
}

void PersonTableViewController::removePic(RecordId person)
{
    commitEditing();
    PersonEdit(pool_.context(), person)
        .change(QCoreApplication::translate("PersonList", "Remove Picture"), [](Person& shown) { shown.removePic(); });
}

} // namespace lineara
