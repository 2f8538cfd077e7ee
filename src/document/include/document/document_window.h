#pragma once

#include <QCoreApplication>
#include <QMainWindow>

#include <functional>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QSplitter;
class QStackedWidget;
class QToolButton;
class QVBoxLayout;

namespace lineara {

class OnboardingView;
class TreeView;
class WaitingPage;
class WatchedWork;

/// The window of one family file: the canvas, the hint shown while the family is empty, and the menus that concern
/// what is shown. Its owner adds the menus of the whole program.
class DocumentWindow : public QMainWindow
{
    Q_DECLARE_TR_FUNCTIONS(DocumentWindow)

public:
    DocumentWindow();

    /// How wide a canvas of that height can be without being wider than what the window shows of it.
    int roomForCanvas(int height) const;

    /// Shows how far the work is that the canvas waits for.
    void showWaiting(const QString& text, const WatchedWork& work);

    /// Puts the canvas into the window, which owns it from then on, and brings the View menu to life.
    void showCanvas(TreeView* canvas);

    /// The canvas, or nullptr before there is one.
    TreeView* canvas() const { return canvas_; }

    /// A command of another menu that can't be given before there is a canvas; it must live as long as the window.
    void addCanvasCommand(QAction& command);

    /// The hint covers the canvas while it is shown.
    void setOnboardingVisible(bool visible);
    bool isOnboardingVisible() const;
    /// What the hint's buttons do; the command to add a person must live as long as the window.
    void setAddPerson(QAction& command);
    void setImport(std::function<void()> import);
    /// What is done with files that are dropped onto the window.
    void setOpenFiles(std::function<void(const QStringList& paths)> open) { openFiles_ = std::move(open); }

    /// Tells in the status bar what came out of opening the file; `details` opens behind a button where not empty.
    void showOpeningReport(const QString& summary, const QString& details);

    /// Offers something above the family, until it is taken or waved away, or what stands there is deleted. What was
    /// offered before stays.
    QWidget& offer(const QString& text, const QString& command, std::function<void()> taken);
    /// Likewise, in the place of the last offer of that kind, if that still stands there.
    QWidget& offerOfKind(const QString& kind, const QString& text, const QString& command, std::function<void()> taken);

    /// Puts something above the family, until it is deleted.
    void showAbove(QWidget& told);

    /// Puts the list of persons beside the canvas; the window owns it from then on.
    void showList(QWidget* list);

    /// Shows the commands as buttons above the family.
    void showButtons(const QList<QAction*>& commands);

    /// Puts a bar beneath the family; the window owns it from then on.
    void addStrip(QWidget* strip);

    /// Tells beneath the family what its user should know until it changes; an empty text for nothing.
    void showWarning(const QString& warning);

    /// Called when the window is about to close, while everything in it is still there.
    void setAboutToClose(std::function<void()> aboutToClose) { aboutToClose_ = std::move(aboutToClose); }
    /// Called when the user wants to close the window, which stays until leave() is called.
    void setCloseRequested(std::function<void()> requested) { closeRequested_ = std::move(requested); }
    /// Closes the window without a question.
    void leave();
    /// Called when the window becomes the one that the user works in.
    void setActivated(std::function<void()> activated) { activated_ = std::move(activated); }

    QMenu* fileMenu() const { return fileMenu_; }
    QMenu* editMenu() const { return editMenu_; }
    QMenu* personMenu() const { return personMenu_; }
    QMenu* familyMenu() const { return familyMenu_; }
    QMenu* windowMenu() const { return windowMenu_; }
    QMenu* helpMenu() const { return helpMenu_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeViewMenu();
    void restorePlace();
    void keepPlace() const;
    void letGo();

    QVBoxLayout* rows_ = nullptr;
    QSplitter* panes_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    WaitingPage* waitingPage_ = nullptr;
    OnboardingView* onboardingView_ = nullptr;
    TreeView* canvas_ = nullptr;
    QMenu* fileMenu_ = nullptr;
    QMenu* editMenu_ = nullptr;
    QMenu* viewMenu_ = nullptr;
    QMenu* personMenu_ = nullptr;
    QMenu* familyMenu_ = nullptr;
    QMenu* windowMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
    std::vector<QAction*> canvasCommands_;
    QAction* fullScreen_ = nullptr;
    QToolButton* details_ = nullptr;
    QLabel* warning_ = nullptr;
    bool onboarding_ = false;
    std::function<void()> aboutToClose_;
    std::function<void()> closeRequested_;
    std::function<void()> activated_;
    std::function<void(const QStringList&)> openFiles_;
};

} // namespace lineara
