#include "document/document_window.h"

#include "canvas/tree_view.h"
#include "document/dropped_files.h"
#include "document/elided_label.h"
#include "notice.h"
#include "onboarding_view.h"
#include "report_dialog.h"
#include "waiting_page.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr const char* noticeKind = "kind"; // a property
constexpr int listWidth = 320;
constexpr QSize firstSize(1200, 800);
constexpr QSize leastSize(600, 400); // smaller ones were hardly left so by anybody

// How the window that was closed last looked.
const QString geometryKey = QStringLiteral("documentWindow/geometry");
const QString listWidthKey = QStringLiteral("documentWindow/listWidth");

/// The dialog that must be answered before the window gets any key or click; none if it gets them.
QDialog* blockingDialog(const QWidget& window)
{
    const auto dialogs = window.findChildren<QDialog*>();
    // Of several side by side the one that came last blocks the others.
    auto* const last = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialogs.contains(last))
        return last;
    const auto blocking = std::find_if(dialogs.rbegin(), dialogs.rend(), [](const QDialog* dialog) {
        return dialog->isVisible() && dialog->isModal() && !blockingDialog(*dialog);
    });
    return blocking == dialogs.rend() ? nullptr : *blocking;
}

} // namespace

DocumentWindow::DocumentWindow()
    : panes_(new QSplitter), pages_(new QStackedWidget), waitingPage_(new WaitingPage([this] { close(); })),
      onboardingView_(new OnboardingView)
{
    setObjectName(QStringLiteral("documentWindow"));
    setAcceptDrops(true);
    pages_->addWidget(waitingPage_);
    pages_->addWidget(onboardingView_);
    panes_->addWidget(pages_);
    panes_->setChildrenCollapsible(false);
    auto* const content = new QWidget;
    rows_ = new QVBoxLayout(content);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    rows_->addWidget(panes_, 1);
    setCentralWidget(content);
    restorePlace();
    fileMenu_ = menuBar()->addMenu(tr("&File"));
    editMenu_ = menuBar()->addMenu(tr("&Edit"));
    makeViewMenu();
    personMenu_ = menuBar()->addMenu(tr("&Person"));
    familyMenu_ = menuBar()->addMenu(tr("F&amily"));
    windowMenu_ = menuBar()->addMenu(tr("&Window"));
    helpMenu_ = menuBar()->addMenu(tr("&Help"));
}

void DocumentWindow::makeViewMenu()
{
    viewMenu_ = menuBar()->addMenu(tr("&View"));
    const auto add = [this](const QString& text, const QKeySequence& shortcut, auto command) {
        QAction* action = viewMenu_->addAction(text);
        action->setShortcut(shortcut);
        addCanvasCommand(*action);
        connect(action, &QAction::triggered, this, [this, command] { command(*canvas_); });
    };
    add(tr("Zoom &In"), QKeySequence::ZoomIn, [](TreeView& canvas) { canvas.zoomIn(); });
    add(tr("Zoom &Out"), QKeySequence::ZoomOut, [](TreeView& canvas) { canvas.zoomOut(); });
    add(tr("&Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0), [](TreeView& canvas) { canvas.actualSize(); });
    add(tr("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_9), [](TreeView& canvas) { canvas.fit(); });
    viewMenu_->addSeparator();
    QAction* fullScreen = viewMenu_->addAction(tr("F&ull Screen"));
    // Not every desktop names a key for it.
    fullScreen->setShortcuts({QKeySequence(Qt::Key_F11), QKeySequence(QKeySequence::FullScreen)});
    fullScreen->setCheckable(true);
    fullScreen->setObjectName(QStringLiteral("fullScreen"));
    fullScreen->setChecked(isFullScreen());
    connect(fullScreen, &QAction::toggled, this,
            [this](bool on) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, on)); });
    fullScreen_ = fullScreen;
}

void DocumentWindow::addCanvasCommand(QAction& command)
{
    command.setEnabled(canvas_ != nullptr);
    canvasCommands_.push_back(&command);
}

void DocumentWindow::showList(QWidget* list)
{
    panes_->insertWidget(0, list);
    // What the window grows by goes to the canvas.
    panes_->setStretchFactor(0, 0);
    panes_->setStretchFactor(1, 1);
    bool isNumber = false;
    const int kept = QSettings().value(listWidthKey).toInt(&isNumber);
    const int wide = std::clamp(isNumber ? kept : listWidth, 0, std::max(0, width() - listWidth));
    panes_->setSizes({wide, width() - wide});
    // Otherwise the list would have the keyboard while its user waits for the family.
    waitingPage_->setFocus();
}

void DocumentWindow::showButtons(const QList<QAction*>& commands)
{
    QToolBar* const buttons = addToolBar(tr("Edit"));
    buttons->setObjectName(QStringLiteral("editButtons"));
    buttons->setMovable(false);
    buttons->setToolButtonStyle(Qt::ToolButtonTextOnly);
    buttons->addActions(commands);
    // A window without its buttons would have no visible way to get them back.
    buttons->toggleViewAction()->setVisible(false);
}

void DocumentWindow::setAddPerson(QAction& command)
{
    onboardingView_->setAddPerson(command);
}

void DocumentWindow::setImport(std::function<void()> import)
{
    onboardingView_->setImport(std::move(import));
}

int DocumentWindow::roomForCanvas(int height) const
{
    const int scrollBar = height > pages_->height() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    return pages_->width() - scrollBar;
}

void DocumentWindow::showWaiting(const QString& text, const WatchedWork& work)
{
    waitingPage_->watch(text, work);
}

void DocumentWindow::showCanvas(TreeView* canvas)
{
    canvas_ = canvas;
    waitingPage_->end(*canvas);
    const QWidget* const focus = focusWidget();
    const bool isElsewhere = !onboarding_ && focus && !pages_->isAncestorOf(focus);
    pages_->addWidget(canvas);
    for (QAction* action : canvasCommands_)
        action->setEnabled(true);
    setOnboardingVisible(onboarding_);
    if (!isElsewhere)
        canvas->setFocus();
}

void DocumentWindow::setOnboardingVisible(bool visible)
{
    onboarding_ = visible;
    if (visible)
        pages_->setCurrentWidget(onboardingView_);
    else
        pages_->setCurrentWidget(canvas_ ? static_cast<QWidget*>(canvas_) : waitingPage_);
}

bool DocumentWindow::isOnboardingVisible() const
{
    return onboarding_;
}

void DocumentWindow::showOpeningReport(const QString& summary, const QString& details)
{
    statusBar()->addWidget(new ElidedLabel(summary, Qt::ElideRight), 1);
    if (details.isEmpty())
        return;
    details_ = new QToolButton;
    details_->setObjectName(QStringLiteral("openingDetails"));
    details_->setText(tr("Details\u2026"));
    connect(details_, &QToolButton::clicked, this,
            [this, summary, details] { showReportDialog(*this, *fileMenu_, summary, details); });
    statusBar()->addPermanentWidget(details_);
}

QWidget& DocumentWindow::offer(const QString& text, const QString& command, std::function<void()> taken)
{
    auto* const notice = new Notice(text, command, std::move(taken));
    showAbove(*notice);
    return *notice;
}

QWidget& DocumentWindow::offerOfKind(const QString& kind, const QString& text, const QString& command,
                                     std::function<void()> taken)
{
    for (QFrame* const last : findChildren<QFrame*>(QStringLiteral("notice"))) {
        if (last->property(noticeKind) == kind)
            delete last;
    }
    QWidget& notice = offer(text, command, std::move(taken));
    notice.setProperty(noticeKind, kind);
    return notice;
}

void DocumentWindow::showAbove(QWidget& told)
{
    rows_->insertWidget(0, &told);
}

void DocumentWindow::addStrip(QWidget* strip)
{
    rows_->insertWidget(rows_->indexOf(panes_) + 1, strip);
}

void DocumentWindow::showWarning(const QString& warning)
{
    // The bar that it stands in takes room from the family as soon as it is asked for.
    if (!warning_ && warning.isEmpty())
        return;
    if (!warning_) {
        warning_ = new QLabel;
        warning_->setObjectName(QStringLiteral("warning"));
        warning_->setStyleSheet(QStringLiteral("color: #b00020; background: white; padding: 4px"));
        warning_->setTextFormat(Qt::PlainText);
        warning_->setWordWrap(true);
        rows_->addWidget(warning_);
    }
    warning_->setText(warning);
    warning_->setVisible(!warning.isEmpty());
}

void DocumentWindow::restorePlace()
{
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
    const bool isSound = width() >= leastSize.width() && height() >= leastSize.height();
    if (!isSound || !testAttribute(Qt::WA_Resized))
        resize(firstSize);
    // Windows that lie exactly upon one another look like one.
    constexpr QPoint step(24, 24);
    const auto isTaken = [this, step](const QWidget* other) {
        return other != this && other->isVisible() && dynamic_cast<const DocumentWindow*>(other) &&
               (other->pos() - pos()).manhattanLength() < step.manhattanLength() / 2;
    };
    if (std::ranges::any_of(QApplication::topLevelWidgets(), isTaken))
        move(pos() + step);
}

void DocumentWindow::keepPlace() const
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    if (panes_->count() > 1)
        settings.setValue(listWidthKey, panes_->sizes().front());
}

void DocumentWindow::leave()
{
    // What is still asked or chosen there is about a window that goes.
    for (QDialog* const dialog : findChildren<QDialog*>()) {
        if (dialog->isVisible())
            dialog->reject();
    }
    // Whoever closes the window may be at it right now, so it is not closed a second time.
    closeRequested_ = nullptr;
    letGo();
    hide();
}

void DocumentWindow::letGo()
{
    keepPlace();
    if (aboutToClose_)
        aboutToClose_();
}

void DocumentWindow::closeEvent(QCloseEvent* event)
{
    if (closeRequested_) {
        event->ignore();
        closeRequested_();
        return;
    }
    event->accept();
    letGo();
}

void DocumentWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        if (activated_)
            activated_();
        // A window beside this one that had the keyboard when the dialog came up hands it to the wrong one.
        if (QDialog* const dialog = blockingDialog(*this))
            dialog->activateWindow();
    }
    // The desktop may do it, too.
    if (event->type() == QEvent::WindowStateChange && fullScreen_)
        fullScreen_->setChecked(isFullScreen());
}

void DocumentWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (openFiles_ && !droppedFamilies(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void DocumentWindow::dropEvent(QDropEvent* event)
{
    const QStringList paths = droppedFamilies(*event->mimeData());
    if (!openFiles_ || paths.isEmpty())
        return;
    event->acceptProposedAction();
    openFiles_(paths);
}

} // namespace lineara
