#include "app/app_delegate.h"

#include "document/document_window.h"
#include "motion_preference.h"
#include "saving.h"
#include "start_window.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoopLocker>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>

namespace lineara {

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("AppDelegate", source);
}

// Where the sample family lies: beside the installed program, or in the tree it was built in.
QString samplePath()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const QString& folder : {QStringLiteral("../share/lineara/samples"), QStringLiteral("../../../samples")}) {
        const QString path = programs.absoluteFilePath(folder + QStringLiteral("/shakespeare.lineara"));
        if (QFileInfo::exists(path))
            return QDir::cleanPath(path);
    }
    return {};
}

} // namespace

AppDelegate::AppDelegate()
    : motion_(std::make_unique<MotionPreference>([this] {
          for (const auto& document : documents_)
              document->setReducedMotion(motion_->isReduced());
      }))
{}

AppDelegate::~AppDelegate() = default;

void AppDelegate::start(const QStringList& paths)
{
    for (const QString& path : paths)
        open(path);
    if (documents_.empty())
        showStartWindow();
}

bool AppDelegate::open(const QString& path)
{
    QWidget* inFront = QApplication::activeWindow();
    auto opened = Document::open(path);
    if (opened.failed()) {
        QMessageBox::warning(inFront, text("Can't Open the Family"), opened.failure().message);
        return false;
    }
    show(std::move(opened.value()));
    return true;
}

void AppDelegate::openNew()
{
    show(Document::create());
}

void AppDelegate::show(std::unique_ptr<Document> made)
{
    QWidget* inFront = QApplication::activeWindow();
    const auto before = std::ranges::find_if(
        documents_, [inFront](const auto& open) { return static_cast<QWidget*>(&open->window()) == inFront; });
    // What is not saved yet stays open.
    const bool isReplaced = inFront && (before == documents_.end() || !(*before)->isModified());
    documents_.push_back(std::move(made));
    Document* document = documents_.back().get();
    document->setReducedMotion(motion_->isReduced());
    DocumentWindow& window = document->window();
    fillFileMenu(*window.fileMenu(), window, document);
    fillHelpMenu(*window.helpMenu());
    window.setClosed([this, document] { closed(document); });
    window.show();
    if (isReplaced)
        inFront->close();
}

void AppDelegate::chooseAndOpen()
{
    const QString path = QFileDialog::getOpenFileName(
        QApplication::activeWindow(), text("Open a Family"), QDir::homePath(),
        text("Families (*.lineara *.ged *.GED);;Family files (*.lineara);;GEDCOM files (*.ged *.GED);;All files (*)"));
    if (!path.isEmpty())
        open(path);
}

void AppDelegate::openSample()
{
    open(samplePath());
}

void AppDelegate::showStartWindow()
{
    startWindow_ = std::make_unique<StartWindow>(
        StartCommands{[this] { openNew(); }, [this] { chooseAndOpen(); },
                      samplePath().isEmpty() ? std::function<void()>() : [this] { openSample(); }});
    fillFileMenu(*startWindow_->fileMenu(), *startWindow_, nullptr);
    fillHelpMenu(*startWindow_->helpMenu());
    startWindow_->show();
}

void AppDelegate::closed(Document* document)
{
    const auto letGo = [this, document] {
        // The window, or the document's queue, is still at work on what leads here.
        QTimer::singleShot(0, qApp, [this, document] {
            std::erase_if(documents_, [document](const auto& open) { return open.get() == document; });
        });
    };
    if (!document->isSaving())
        letGo();
    else // The program goes on without a window until the file is written.
        document->whenSettled([letGo, goOn = std::make_shared<QEventLoopLocker>()] { letGo(); });
}

void AppDelegate::fillFileMenu(QMenu& menu, QMainWindow& window, Document* document)
{
    const auto add = [&](const QString& name, const QKeySequence& shortcut, const std::function<void()>& command) {
        QAction* action = menu.addAction(name);
        action->setShortcut(shortcut);
        QObject::connect(action, &QAction::triggered, &window, command);
    };
    add(text("&New"), QKeySequence::New, [this] { openNew(); });
    add(text("&Open\u2026"), QKeySequence::Open, [this] { chooseAndOpen(); });
    if (document) {
        menu.addSeparator();
        add(text("&Save"), QKeySequence::Save, [document] { saveDocument(*document); });
        add(text("Save &As\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
            [document] { saveDocumentAs(*document); });
    }
    menu.addSeparator();
    add(text("&Close"), QKeySequence::Close, [&window] { window.close(); });
    add(text("&Quit"), QKeySequence::Quit, [] { QApplication::closeAllWindows(); });
}

void AppDelegate::fillHelpMenu(QMenu& menu)
{
    QAction* about = menu.addAction(text("&About Lineara"));
    QObject::connect(about, &QAction::triggered, about, [this] { showAbout(); });
}

void AppDelegate::showAbout()
{
    QMessageBox::about(
        QApplication::activeWindow(), text("About Lineara"),
        text("<h3>Lineara %1</h3><p>A family tree that draws itself.</p>").arg(QCoreApplication::applicationVersion()));
}

} // namespace lineara
