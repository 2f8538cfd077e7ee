#include "exporting.h"

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "interchange/gedcom_export.h"
#include "paper/paper_dialogs.h"

#include <QCoreApplication>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QMessageBox>
#include <QUrl>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace lineara {

namespace {

struct ExportingTexts
{
    Q_DECLARE_TR_FUNCTIONS(Exporting)
};

struct Kind
{
    GedcomFormat format;
    QString filter;
    QString suffix;
};

/// The first is what most programs read.
std::array<Kind, 3> kinds()
{
    return {{{GedcomFormat::Gedcom551, ExportingTexts::tr("GEDCOM 5.5.1 (*.ged)"), QStringLiteral("ged")},
             {GedcomFormat::Gedcom70, ExportingTexts::tr("GEDCOM 7.0 (*.ged)"), QStringLiteral("ged")},
             {GedcomFormat::Gedzip, ExportingTexts::tr("GEDCOM 7.0 with pictures (*.gdz)"), QStringLiteral("gdz")}}};
}

Kind kindOf(const QString& filter)
{
    const auto all = kinds();
    const auto* const found = std::ranges::find(all, filter, &Kind::filter);
    return found == all.end() ? all.front() : *found;
}

QString familyName(const Document& document)
{
    return document.path().isEmpty() ? Document::defaultDraftName() : QFileInfo(document.path()).completeBaseName();
}

/// Beside the family's own file, if something can be put there.
QString proposedFolder(const Document& document)
{
    const QString folder = QFileInfo(document.path()).path();
    const bool isBeside = !document.path().isEmpty() && QFileInfo(folder).isWritable();
    return isBeside ? folder : QDir::homePath();
}

/// A name that no genealogy there has yet: the one that the family may have been imported from has to stay.
QString proposedName(const Document& document)
{
    const QDir folder(proposedFolder(document));
    const QString name = familyName(document);
    const auto isTaken = [&](const QString& proposed) {
        return folder.exists(proposed + QStringLiteral(".ged")) || folder.exists(proposed + QStringLiteral(".gdz"));
    };
    QString proposed = name;
    for (int number = 2; isTaken(proposed); ++number)
        proposed = QStringLiteral("%1 %2").arg(name).arg(number);
    return folder.filePath(proposed);
}

/// Shows a dialog about the family as it stands once everything that was begun is done.
void showPaper(Document& document, void (*show)(QWidget*, PaperSubject))
{
    if (!document.treeView())
        return;
    document.whenSettled([&document, show] {
        document.commit();
        PaperSubject subject;
        subject.scene = &document.treeView()->scene();
        subject.parts = partsOf(document.selectionPerson());
        subject.title = familyName(document);
        subject.footer = QLocale().toString(QDate::currentDate(), QLocale::LongFormat);
        subject.folder = proposedFolder(document);
        show(&document.window(), std::move(subject));
    });
}

/// What a file is called decides before what was chosen beside its name.
GedcomFormat formatOf(const QString& path, GedcomFormat chosen)
{
    if (QFileInfo(path).suffix().compare(QLatin1String("gdz"), Qt::CaseInsensitive) == 0)
        return GedcomFormat::Gedzip;
    return chosen == GedcomFormat::Gedzip ? GedcomFormat::Gedcom70 : chosen;
}

void tell(Document& document, const QString& failure)
{
    // An export outlives a window that is closed meanwhile.
    QWidget* const parent = document.window().isVisible() ? &document.window() : nullptr;
    auto* const box = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), failure,
                                      QMessageBox::Close, parent);
    box->setObjectName(QStringLiteral("exportFailed"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void showLeftOut(Document& document, const QString& what)
{
    auto* const box = new QMessageBox(QMessageBox::Information, QGuiApplication::applicationDisplayName(),
                                      ExportingTexts::tr("This is not in the exported file."), QMessageBox::Close,
                                      &document.window());
    box->setObjectName(QStringLiteral("leftOut"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(what.section(u'\n', 0, 0));
    box->setDetailedText(what);
    box->open();
}

/// The export that was the last is told of, and no earlier one.
const QString exportedNotice = QStringLiteral("exported");

/// Says above the family that its export is done, and offers what there is to know about it.
void offerExported(Document& document, const QString& path, const QString& leftOut)
{
    const QFileInfo file(path);
    if (!leftOut.isEmpty()) {
        document.window().offerOfKind(
            exportedNotice, ExportingTexts::tr("“%1” was exported, but not everything is in it.").arg(file.fileName()),
            ExportingTexts::tr("Details…"), [&document, leftOut] { showLeftOut(document, leftOut); });
        return;
    }
    document.window().offerOfKind(exportedNotice, ExportingTexts::tr("“%1” was exported.").arg(file.fileName()),
                                  ExportingTexts::tr("Show Folder"), [folder = file.absolutePath()] {
                                      QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
                                  });
}

void exportTo(Document& document, const QString& path, GedcomFormat format)
{
    const QFileInfo file(path);
    // A link counts as what it leads to.
    const QFileInfo reached(file.exists() ? file.canonicalFilePath() : path);
    if (reached.suffix().compare(QLatin1String("lineara"), Qt::CaseInsensitive) == 0) {
        tell(document, ExportingTexts::tr("“%1” is a name for a family file. Choose one that ends in .ged or .gdz.")
                           .arg(reached.fileName()));
        return;
    }
    const auto report = std::make_shared<ExportReport>();
    const auto write = [path, format, report](const FamilyContent& family, const Progress& progress) -> Outcome<Done> {
        const auto exported = exportGedcomFile(family, path, format, progress);
        if (exported.failed())
            return exported.failure();
        *report = exported.value();
        return Done{};
    };
    document.exportFamily(ExportingTexts::tr("Exporting “%1”…").arg(file.fileName()), write,
                          [&document, path, report](const Outcome<Done>& written) {
                              if (written.failed())
                                  tell(document, written.failure().message);
                              else
                                  offerExported(document, path, exportSummary(*report));
                          });
}

} // namespace

void exportGedcom(Document& document)
{
    auto* const dialog =
        new QFileDialog(&document.window(), ExportingTexts::tr("Export the Family"), proposedName(document));
    dialog->setObjectName(QStringLiteral("exportDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const Kind& kind : kinds())
        filters << kind.filter;
    dialog->setNameFilters(filters);
    const auto followFilter = [dialog](const QString& filter) { dialog->setDefaultSuffix(kindOf(filter).suffix); };
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, followFilter);
    followFilter(filters.front());
    QObject::connect(dialog, &QFileDialog::accepted, &document.window(), [dialog, &document] {
        const QString path = dialog->selectedFiles().value(0);
        exportTo(document, path, formatOf(path, kindOf(dialog->selectedNameFilter()).format));
    });
    dialog->open();
}

void exportPicture(Document& document)
{
    showPaper(document, &showExportPicture);
}

void printFamily(Document& document)
{
    showPaper(document, &showPrint);
}

} // namespace lineara
