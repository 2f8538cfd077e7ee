#pragma once

#include <QMainWindow>

#include <functional>

class QMenu;

namespace lineara {

/// What the start window's buttons do. `openSample` is empty where the sample family is not installed.
struct StartCommands
{
    std::function<void()> openNew;
    std::function<void()> open;
    std::function<void()> openSample;
};

/// The window of a program without an open family: the ways to get one.
class StartWindow : public QMainWindow
{
public:
    explicit StartWindow(const StartCommands& commands);

    QMenu* fileMenu() const { return fileMenu_; }
    QMenu* helpMenu() const { return helpMenu_; }

private:
    QWidget* makeContent(const StartCommands& commands);

    QMenu* fileMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
};

} // namespace lineara
