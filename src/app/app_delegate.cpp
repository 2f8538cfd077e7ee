#include "app/app_delegate.h"

#include "about_dialog.h"
#include "document/document_window.h"
#include "document_controller.h"
#include "motion_preference.h"
#include "program_files.h"
#include "program_menus.h"
#include "recent_documents.h"
#include "recent_table.h"
#include "start_window.h"
#include "termination.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace lineara {

namespace {

const QString usesKey = QStringLiteral("uses");

struct AppDelegateTexts
{
    Q_DECLARE_TR_FUNCTIONS(AppDelegate)
};

void countUse()
{
    QSettings settings;
    settings.setValue(usesKey, settings.value(usesKey, 0).toInt() + 1);
}

QStringList choosePaths(const QString& title, const QString& kinds)
{
    return QFileDialog::getOpenFileNames(QApplication::activeWindow(), title, QDir::homePath(), kinds);
}

RecoveryOffer offerOf(const LeftWork& work)
{
    const QString folder = work.path.isEmpty() ? QString() : QFileInfo(work.path).path();
    return {work.name, work.isDamaged ? AppDelegateTexts::tr("unknown folder") : folder, work.changed, work.id};
}

} // namespace

AppDelegate::AppDelegate()
    : motion_(std::make_unique<MotionPreference>([this] {
          for (const auto& document : documents_->documents())
              document->setReducedMotion(motion_->isReduced());
      })),
      documents_(std::make_unique<DocumentController>(DocumentController::Surroundings{
          [this](Document& document) { furnish(document); }, [](const QString& path) { RecentDocuments::note(path); },
          [this] { settled(); }})),
      termination_(std::make_unique<Termination>([this] { leave(); }, [this] { sessionEnds(); })),
      openUrl_(&QDesktopServices::openUrl)
{
    // The last window to close may be one that makes room for another.
    QApplication::setQuitOnLastWindowClosed(false);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::start(const QStringList& paths)
{
    window_ = std::make_unique<StartWindow>(startCommands());
    fillFileMenu(*window_->fileMenu(), *window_, nullptr, commands());
    fillWindowMenu(*window_->windowMenu(), *window_, commands());
    fillHelpMenu(*window_->helpMenu(), commands());
    window_->recentTable().setForget([this](int row) { forgetRecent(row); });
    showRecentRows();
    documents_->track(*window_);
    countUse();
    open(paths);
}

void AppDelegate::open(const QStringList& paths)
{
    documents_->open(paths);
}

StartCommands AppDelegate::startCommands()
{
    StartCommands all;
    all.openNew = [this] { documents_->openNew(); };
    all.open = [this] { chooseAndOpen(); };
    all.import = [this] { chooseAndImport(); };
    if (const QString sample = sampleFamily(); !sample.isEmpty())
        all.openSample = [this, sample] { documents_->openCopy(sample); };
    all.openFiles = [this](const QStringList& paths) { open(paths); };
    all.recover = [this](const QString& id) { recover(id); };
    all.discard = &RecoveryCopy::discard;
    all.closed = [this] { startWindowClosed(); };
    return all;
}

ProgramCommands AppDelegate::commands()
{
    ProgramCommands all;
    all.openNew = [this] { documents_->openNew(); };
    all.open = [this] { chooseAndOpen(); };
    all.import = [this] { chooseAndImport(); };
    all.openPath = [this](const QString& path) { open({path}); };
    all.recentPaths = [] {
        QStringList paths;
        for (const QUrl& url : RecentDocuments::recentDocumentUrls())
            paths << url.toLocalFile();
        return paths;
    };
    all.forgetRecent = &RecentDocuments::clear;
    all.revert = [this](Document& document) { documents_->revert(document); };
    all.quit = [this] { quit(); };
    all.showStartWindow = [this] { showStartWindow(); };
    all.windows = [this] {
        QList<QMainWindow*> windows;
        for (const auto& document : documents_->documents())
            windows << &document->window();
        return windows;
    };
    all.openHelp = [this] { openHelp(); };
    all.contact = [this](const QAction& sender) { contact(sender); };
    all.showAbout = [this] { showAbout(); };
    return all;
}

void AppDelegate::furnish(Document& document)
{
    document.setReducedMotion(motion_->isReduced());
    DocumentWindow& window = document.window();
    fillFileMenu(*window.fileMenu(), window, &document, commands());
    fillWindowMenu(*window.windowMenu(), window, commands());
    fillHelpMenu(*window.helpMenu(), commands());
    window.setImport([this] { chooseAndImport(); });
    window.setOpenFiles([this](const QStringList& paths) { open(paths); });
}

void AppDelegate::recover(const QString& id)
{
    const auto left = RecoveryCopy::left();
    const auto work = std::ranges::find(left, id, &LeftWork::id);
    if (work != left.end())
        documents_->recover(*work);
    else
        showStartWindow();
}

void AppDelegate::chooseAndOpen()
{
    open(choosePaths(AppDelegateTexts::tr("Open a Family"),
                     AppDelegateTexts::tr("Families (*.lineara *.ged *.GED *.gdz *.GDZ);;Family files (*.lineara);;"
                                          "GEDCOM files (*.ged *.GED *.gdz *.GDZ);;All files (*)")));
}

void AppDelegate::chooseAndImport()
{
    open(choosePaths(AppDelegateTexts::tr("Import a Family"),
                     AppDelegateTexts::tr("GEDCOM files (*.ged *.GED *.gdz *.GDZ);;All files (*)")));
}

void AppDelegate::showStartWindow()
{
    QList<RecoveryOffer> offers;
    for (const LeftWork& work : RecoveryCopy::left())
        offers << offerOf(work);
    window_->setRecoveryOffers(offers);
    showRecentRows();
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void AppDelegate::startWindowClosed()
{
    isQuitting_ = documents_->documents().empty() && !documents_->isOpening();
    settled();
}

void AppDelegate::settled()
{
    // A family whose changes found no safe place has come back.
    isQuitting_ = isQuitting_ && documents_->documents().empty();
    if (isQuitting_ && !documents_->isLeaving())
        // Windows have been asked, and some may be of another mind by now.
        QCoreApplication::exit();
    else if (!isQuitting_ && documents_->documents().empty() && !documents_->isOpening())
        showStartWindow();
}

void AppDelegate::closeMainWindow()
{
    documents_->closeMainWindow();
}

void AppDelegate::quit()
{
    documents_->closeAll([this] {
        isQuitting_ = true;
        documents_->stopOpening();
        window_->hide();
        settled();
    });
}

void AppDelegate::leave()
{
    documents_->stopOpening();
    // To quit would ask every window to close, and each of them may say no.
    documents_->keepUnsaved([] { QCoreApplication::exit(); });
}

void AppDelegate::sessionEnds()
{
    // May be told late, when nobody waits any more.
    const auto untilKept = std::make_shared<QEventLoop>();
    const auto isKept = std::make_shared<bool>(false);
    documents_->keepUnsaved([untilKept, isKept] {
        *isKept = true;
        untilKept->quit();
    });
    if (!*isKept)
        untilKept->exec(QEventLoop::ExcludeUserInputEvents);
}

void AppDelegate::showAbout()
{
    auto* const dialog = new AboutDialog(documents_->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

} // namespace lineara
