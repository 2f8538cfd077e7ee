#include "document/document_window.h"

#include "canvas/tree_view.h"
#include "report_dialog.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace lineara {

namespace {

constexpr int listWidth = 320;

QLabel* makeOnboardingView()
{
    auto* view = new QLabel(DocumentWindow::tr("<h2>This family is still empty</h2>"
                                               "<p>Begin with Add Person, above.</p>"));
    view->setObjectName(QStringLiteral("onboardingView"));
    view->setAlignment(Qt::AlignCenter);
    // The hint stands where the canvas will, which is white whatever the desktop's colours are.
    view->setStyleSheet(QStringLiteral("background: white; color: #444"));
    return view;
}

} // namespace

DocumentWindow::DocumentWindow()
    : panes_(new QSplitter), pages_(new QStackedWidget), waitingPage_(new QWidget),
      onboardingView_(makeOnboardingView())
{
    setObjectName(QStringLiteral("documentWindow"));
    waitingPage_->setStyleSheet(QStringLiteral("background: white"));
    pages_->addWidget(waitingPage_);
    pages_->addWidget(onboardingView_);
    panes_->addWidget(pages_);
    panes_->setChildrenCollapsible(false);
    setCentralWidget(panes_);
    resize(1200, 800);
    fileMenu_ = menuBar()->addMenu(tr("&File"));
    editMenu_ = menuBar()->addMenu(tr("&Edit"));
    makeViewMenu();
    helpMenu_ = menuBar()->addMenu(tr("&Help"));
}

void DocumentWindow::makeViewMenu()
{
    viewMenu_ = menuBar()->addMenu(tr("&View"));
    const auto add = [this](const QString& text, const QKeySequence& shortcut, auto command) {
        QAction* action = viewMenu_->addAction(text);
        action->setShortcut(shortcut);
        action->setEnabled(false);
        connect(action, &QAction::triggered, this, [this, command] { command(*canvas_); });
    };
    add(tr("Zoom &In"), QKeySequence::ZoomIn, [](TreeView& canvas) { canvas.zoomIn(); });
    add(tr("Zoom &Out"), QKeySequence::ZoomOut, [](TreeView& canvas) { canvas.zoomOut(); });
    add(tr("&Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0), [](TreeView& canvas) { canvas.actualSize(); });
    add(tr("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_9), [](TreeView& canvas) { canvas.fit(); });
    viewMenu_->addSeparator();
    QAction* fullScreen = viewMenu_->addAction(tr("F&ull Screen"));
    fullScreen->setShortcut(QKeySequence::FullScreen);
    fullScreen->setCheckable(true);
    connect(fullScreen, &QAction::toggled, this,
            [this](bool on) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, on)); });
}

void DocumentWindow::showList(QWidget* list)
{
    panes_->insertWidget(0, list);
    // What the window grows by goes to the canvas.
    panes_->setStretchFactor(0, 0);
    panes_->setStretchFactor(1, 1);
    panes_->setSizes({listWidth, width() - listWidth});
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

void DocumentWindow::showCanvas(TreeView* canvas)
{
    canvas_ = canvas;
    pages_->addWidget(canvas);
    for (QAction* action : viewMenu_->actions())
        action->setEnabled(true);
    setOnboardingVisible(onboarding_);
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
    statusBar()->addWidget(new QLabel(summary), 1);
    if (details.isEmpty())
        return;
    details_ = new QToolButton;
    details_->setObjectName(QStringLiteral("openingDetails"));
    details_->setText(tr("Details\u2026"));
    connect(details_, &QToolButton::clicked, this,
            [this, summary, details] { showReportDialog(*this, summary, details); });
    statusBar()->addPermanentWidget(details_);
}

void DocumentWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (aboutToClose_)
        aboutToClose_();
    if (closed_)
        closed_();
}

void DocumentWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && activated_)
        activated_();
}

} // namespace lineara
