#pragma once

#include <QStringList>

#include <functional>

class QAction;
class QMainWindow;
class QMenu;

namespace lineara {

class Document;

/// What the commands of the whole program do, from whatever window they are given.
struct ProgramCommands
{
    std::function<void()> openNew;
    std::function<void()> open;
    std::function<void()> import;
    std::function<void(const QString& path)> openPath;
    std::function<QStringList()> recentPaths;
    std::function<void()> forgetRecent;
    std::function<void(Document&)> revert;
    std::function<void()> quit;
    std::function<void()> showStartWindow;
    std::function<QList<QMainWindow*>()> windows;
    std::function<void()> openHelp;
    std::function<void(const QAction&)> contact;
    std::function<void()> showAbout;
};

/// Fills the menus that every window has. `document` is nullptr for a window without one; both outlive the menus.
void fillFileMenu(QMenu& menu, QMainWindow& window, Document* document, const ProgramCommands& commands);
void fillWindowMenu(QMenu& menu, QMainWindow& window, const ProgramCommands& commands);
void fillHelpMenu(QMenu& menu, const ProgramCommands& commands);

} // namespace lineara
