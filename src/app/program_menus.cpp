#include "program_menus.h"

#include "bring_to_front.h"
#include "document/document.h"
#include "document/document_window.h"
#include "exporting.h"
#include "saving.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace lineara {

namespace {

struct ProgramMenuTexts
{
    Q_DECLARE_TR_FUNCTIONS(ProgramMenus)
};

QAction* add(QMenu& menu, const QString& name, const QKeySequence& shortcut, std::function<void()> command)
{
    QAction* const action = menu.addAction(name);
    action->setShortcut(shortcut);
    QObject::connect(action, &QAction::triggered, &menu, std::move(command));
    return action;
}

/// A name that stands in a menu as it is.
QString plain(QString name)
{
    return name.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void showRecent(QMenu& menu, const ProgramCommands& commands)
{
    menu.clear();
    const QStringList paths = commands.recentPaths();
    for (const QString& path : paths) {
        QAction* const action =
            add(menu, plain(QFileInfo(path).fileName()), {}, [commands, path] { commands.openPath(path); });
        action->setToolTip(path);
        action->setEnabled(QFileInfo::exists(path));
    }
    if (!paths.isEmpty())
        menu.addSeparator();
    add(menu, ProgramMenuTexts::tr("&Clear Menu"), {}, commands.forgetRecent)->setEnabled(!paths.isEmpty());
}

void addRecentMenu(QMenu& menu, const ProgramCommands& commands)
{
    QMenu* const recent = menu.addMenu(ProgramMenuTexts::tr("Open &Recent"));
    recent->setToolTipsVisible(true);
    QObject::connect(recent, &QMenu::aboutToShow, recent, [recent, commands] { showRecent(*recent, commands); });
}

void askToRevert(Document& document, const std::function<void(Document&)>& revert)
{
    auto* const box = new QMessageBox(
        QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
        ProgramMenuTexts::tr("Do you want to open “%1” again as it is in the file?").arg(document.name()),
        QMessageBox::Cancel, &document.window());
    box->setObjectName(QStringLiteral("revertQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(ProgramMenuTexts::tr("Everything that was changed since it was saved is lost."));
    const QPushButton* const sure = box->addButton(ProgramMenuTexts::tr("Revert"), QMessageBox::DestructiveRole);
    QObject::connect(box, &QMessageBox::finished, &document.window(), [&document, box, sure, revert] {
        if (box->clickedButton() == sure)
            revert(document);
    });
    box->open();
}

void addSaving(QMenu& menu, Document& document, const ProgramCommands& commands)
{
    menu.addSeparator();
    add(menu, ProgramMenuTexts::tr("&Save"), QKeySequence::Save, [&document] { saveDocument(document); });
    add(menu, ProgramMenuTexts::tr("Save &As…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [&document] { saveDocumentAs(document); });
    add(menu, ProgramMenuTexts::tr("Save a Cop&y…"), {}, [&document] { saveDocumentCopy(document); });
    QAction* const revert = add(menu, ProgramMenuTexts::tr("Re&vert…"), {},
                                [&document, commands] { askToRevert(document, commands.revert); });
    QObject::connect(&menu, &QMenu::aboutToShow, revert, [revert, &document] {
        revert->setEnabled(document.hasOwnFile() && document.isModified() && QFileInfo::exists(document.path()));
    });
}

void addExport(QMenu& menu, Document& document)
{
    menu.addSeparator();
    QMenu* const exporting = menu.addMenu(ProgramMenuTexts::tr("&Export"));
    exporting->setObjectName(QStringLiteral("exportMenu"));
    add(*exporting, ProgramMenuTexts::tr("&GEDCOM…"), QKeySequence(Qt::CTRL | Qt::Key_E),
        [&document] { exportGedcom(document); });
    document.window().addCanvasCommand(*add(*exporting, ProgramMenuTexts::tr("&Picture…"),
                                            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
                                            [&document] { exportPicture(document); }));
    document.window().addCanvasCommand(
        *add(menu, ProgramMenuTexts::tr("&Print…"), QKeySequence::Print, [&document] { printFamily(document); }));
}

void showWindows(QMenu& menu, QMainWindow& window, const ProgramCommands& commands)
{
    menu.clear();
    add(menu, ProgramMenuTexts::tr("&Minimize"), QKeySequence(Qt::CTRL | Qt::Key_M),
        [&window] { window.showMinimized(); });
    add(menu, ProgramMenuTexts::tr("&Zoom"), {},
        [&window] { window.setWindowState(window.windowState() ^ Qt::WindowMaximized); });
    menu.addSeparator();
    add(menu, ProgramMenuTexts::tr("&Start Window"), {}, commands.showStartWindow);
    menu.addSeparator();
    int number = 0;
    for (const QPointer<QMainWindow> other : commands.windows()) {
        const QString title = plain(other->windowTitle().remove(QStringLiteral("[*]")));
        QAction* const action = add(menu, QStringLiteral("&%1 %2").arg(++number).arg(title), {}, [other] {
            // One that has made room since the menu was filled must not come back.
            if (other && other->isVisible())
                bringToFront(*other);
        });
        action->setCheckable(true);
        action->setChecked(other == &window);
    }
}

} // namespace

void fillFileMenu(QMenu& menu, QMainWindow& window, Document* document, const ProgramCommands& commands)
{
    add(menu, ProgramMenuTexts::tr("&New"), QKeySequence::New, commands.openNew);
    add(menu, ProgramMenuTexts::tr("&Open…"), QKeySequence::Open, commands.open);
    addRecentMenu(menu, commands);
    add(menu, ProgramMenuTexts::tr("&Import…"), {}, commands.import);
    if (document) {
        addSaving(menu, *document, commands);
        addExport(menu, *document);
    }
    menu.addSeparator();
    add(menu, ProgramMenuTexts::tr("&Close"), QKeySequence::Close, [&window] { window.close(); });
    add(menu, ProgramMenuTexts::tr("&Quit"), QKeySequence::Quit, commands.quit);
}

void fillWindowMenu(QMenu& menu, QMainWindow& window, const ProgramCommands& commands)
{
    // Filled at once as well: shortcuts work before the menu was opened for the first time.
    showWindows(menu, window, commands);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu,
                     [&menu, &window, commands] { showWindows(menu, window, commands); });
}

void fillHelpMenu(QMenu& menu, const ProgramCommands& commands)
{
    add(menu, ProgramMenuTexts::tr("Lineara &Help"), QKeySequence::HelpContents, commands.openHelp);
    menu.addSeparator();
    for (const QString& title : {ProgramMenuTexts::tr("Send &Feedback"), ProgramMenuTexts::tr("Report a &Problem")}) {
        QAction* const action = menu.addAction(title);
        QObject::connect(action, &QAction::triggered, action, [action, commands] { commands.contact(*action); });
    }
    menu.addSeparator();
    add(menu, ProgramMenuTexts::tr("&About Lineara"), {}, commands.showAbout);
}

} // namespace lineara
