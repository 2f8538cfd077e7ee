#pragma once

#include "document/application_delegate.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>
#include <utility>

class QAction;
class QMenu;

namespace lineara {

class Document;
class DocumentController;
class MotionPreference;
class RecentTable;
class StartWindow;
class Termination;
struct ProgramCommands;
struct StartCommands;

/// Lives for the whole run: owns the start window, which is there when nothing else is, and gives every window the
/// commands of the whole program.
class AppDelegate : public ApplicationDelegate
{
public:
    AppDelegate();
    ~AppDelegate() override;

    /// Opens the files handed over by the desktop; the start window if there are none or none could be opened.
    void start(const QStringList& paths);

    /// Opens files in windows of their own and closes the window that was in front. What can't be opened is told to the
    /// user and changes nothing.
    void open(const QStringList& paths);

    /// Asks about everything unsaved, and ends the program if nobody says no.
    void quit();

    /// Brings everything unsaved to a safe place and ends the program, for when nobody can be asked.
    void leave();

    void closeMainWindow() override;

    /// For when the user turns to the program anew: the start window comes to the front where no window is visible.
    /// True if there is something to do beyond that.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    /// The start window's table has its rows from here. Which files are recent is read once in a run, so that the list
    /// stays as the user saw it. Every call gives the table its double-click action.
    int numberOfRowsInTableView(RecentTable& table);
    /// What the row shows: the name of the file.
    QString tableViewObjectValueForTableColumn(int row) const;
    /// Opens the file of the row that was clicked last; nothing where there is none.
    void openRecent(const RecentTable& sender);

    /// Shows the help page in the user's browser.
    void openHelp();
    /// Begins a mail to the makers with the command's title as its subject.
    void contact(const QAction& sender);
    /// Who shows addresses, the desktop's own programs unless this is called. False if nobody could.
    void setOpenUrl(std::function<bool(const QUrl&)> openUrl) { openUrl_ = std::move(openUrl); }

    DocumentController& documentController() { return *documents_; }
    StartWindow& window() { return *window_; }

private:
    StartCommands startCommands();
    ProgramCommands commands();
    void furnish(Document& document);
    void recover(const QString& id);
    void chooseAndOpen();
    void chooseAndImport();
    void showStartWindow();
    void startWindowClosed();
    void show(const QUrl& url);
    void showRecentRows();
    void forgetRecent(int row);
    void sessionEnds();
    void showAbout();
    /// Nothing may be left that the user could work in.
    void settled();

    std::unique_ptr<MotionPreference> motion_;
    std::unique_ptr<DocumentController> documents_;
    std::unique_ptr<StartWindow> window_;
    std::unique_ptr<Termination> termination_;
    QList<QUrl> recentUrls_; // filled once
    std::function<bool(const QUrl&)> openUrl_;
    bool isQuitting_ = false;
};

} // namespace lineara
