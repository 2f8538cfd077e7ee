#pragma once

#include <QMainWindow>

#include <functional>

class QLabel;
class QMenu;
class QSplitter;
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

    /// Puts the list of persons beside the canvas; the window owns it from then on.
    void showList(QWidget* list);

    /// Shows the commands as buttons above the family.
    void showButtons(const QList<QAction*>& commands);

    /// Called when the window is about to close, while everything in it is still there.
    void setAboutToClose(std::function<void()> aboutToClose) { aboutToClose_ = std::move(aboutToClose); }
    /// Called when the user closes the window.
    void setClosed(std::function<void()> closed) { closed_ = std::move(closed); }
    /// Called when the window becomes the one that the user works in.
    void setActivated(std::function<void()> activated) { activated_ = std::move(activated); }

    QMenu* fileMenu() const { return fileMenu_; }
    QMenu* editMenu() const { return editMenu_; }
    QMenu* helpMenu() const { return helpMenu_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeViewMenu();

    QSplitter* panes_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    QWidget* waitingPage_ = nullptr;
    QLabel* onboardingView_ = nullptr;
    TreeView* canvas_ = nullptr;
    QMenu* fileMenu_ = nullptr;
    QMenu* editMenu_ = nullptr;
    QMenu* viewMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
    QToolButton* details_ = nullptr;
    bool onboarding_ = false;
    std::function<void()> aboutToClose_;
    std::function<void()> closed_;
    std::function<void()> activated_;
};

} // namespace lineara
