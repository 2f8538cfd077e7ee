#pragma once

#include <QMainWindow>

#include <functional>

class QLabel;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace lineara {

class TreeView;

/// The window of one family file: the canvas, the hint shown while the family is empty, and the menus that concern
/// what is shown. Its owner adds the menus of the whole program.
class DocumentWindow : public QMainWindow
{
public:
    DocumentWindow();

    /// Puts the canvas into the window, which owns it from then on, and brings the View menu to life.
    void showCanvas(TreeView* canvas);

    /// The canvas, or nullptr before there is one.
    TreeView* canvas() const { return canvas_; }

    /// The hint covers the canvas while it is shown.
    void setOnboardingVisible(bool visible);
    bool isOnboardingVisible() const;

    /// Tells in the status bar what came out of opening the file; `details` opens behind a button where not empty.
    void showOpeningReport(const QString& summary, const QString& details);

    /// Called when the user closes the window.
    void setClosed(std::function<void()> closed) { closed_ = std::move(closed); }

    QMenu* fileMenu() const { return fileMenu_; }
    QMenu* helpMenu() const { return helpMenu_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeViewMenu();

    QStackedWidget* pages_ = nullptr;
    QWidget* waitingPage_ = nullptr;
    QLabel* onboardingView_ = nullptr;
    TreeView* canvas_ = nullptr;
    QMenu* fileMenu_ = nullptr;
    QMenu* viewMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
    QToolButton* details_ = nullptr;
    bool onboarding_ = false;
    std::function<void()> closed_;
};

} // namespace lineara
