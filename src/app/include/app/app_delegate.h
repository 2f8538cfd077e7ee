#pragma once

#include "document/application_delegate.h"
#include "document/document.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QMainWindow;
class QMenu;

namespace lineara {

class MotionPreference;
class StartWindow;

/// Lives for the whole run: opens and closes documents, shows the start window when there is nothing else, and gives
/// every window the commands of the whole program.
class AppDelegate : public ApplicationDelegate
{
public:
    AppDelegate();
    ~AppDelegate();

    /// Opens the files handed over by the desktop; the start window if there are none or none could be opened.
    void start(const QStringList& paths);

    /// Opens a file in a window of its own and closes the window that was in front, unless that holds changes that are
    /// not saved. A file that can't be opened is reported to the user and changes nothing. True if it was opened.
    bool open(const QString& path);

private:
    void openNew();
    void show(std::unique_ptr<Document> made);
    void chooseAndOpen();
    void openSample();
    void showStartWindow();
    void showAbout();
    void closed(Document* document);
    void fillFileMenu(QMenu& menu, QMainWindow& window, Document* document);
    void fillHelpMenu(QMenu& menu);

    std::unique_ptr<MotionPreference> motion_;
    std::vector<std::unique_ptr<Document>> documents_;
    std::unique_ptr<StartWindow> startWindow_;
};

} // namespace lineara
