#include "start_window.h"

#include "document/dropped_files.h"
#include "document/light_palette.h"
#include "program_icon.h"
#include "recent_table.h"
#include "recovery_panel.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

constexpr int emblemSize = 112;
constexpr double titleScale = 2.2;

QLabel* makeTitle(const QString& text, double scale)
{
    auto* const title = new QLabel(text);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    title->setFont(font);
    return title;
}

} // namespace

StartWindow::StartWindow(StartCommands commands) : commands_(std::move(commands))
{
    setObjectName(QStringLiteral("startWindow"));
    setWindowTitle(QStringLiteral("Lineara"));
    setWindowIcon(programIcon());
    setAcceptDrops(true);
    fileMenu_ = menuBar()->addMenu(tr("&File"));
    windowMenu_ = menuBar()->addMenu(tr("&Window"));
    helpMenu_ = menuBar()->addMenu(tr("&Help"));
    setCentralWidget(makeContent());
    showRecent();
    resize(QSize(820, 520).boundedTo(screen()->availableSize()));
}

QWidget* StartWindow::makeContent()
{
    auto* const content = new QWidget;
    content->setPalette(lightPalette(palette()));
    content->setAutoFillBackground(true);
    auto* const columns = new QHBoxLayout(content);
    columns->setContentsMargins(28, 28, 28, 28);
    columns->setSpacing(28);
    columns->addWidget(makeWelcome());
    columns->addWidget(makeRecent(), 1);
    return content;
}

QWidget* StartWindow::makeWelcome()
{
    auto* const welcome = new QWidget;
    auto* const column = new QVBoxLayout(welcome);
    column->setContentsMargins({});
    auto* const icon = new QLabel;
    icon->setPixmap(programIcon().pixmap(QSize(emblemSize, emblemSize), devicePixelRatioF()));
    column->addStretch(1);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addWidget(makeTitle(QStringLiteral("Lineara"), titleScale), 0, Qt::AlignHCenter);
    auto* const slogan = new QLabel(tr("A family tree that draws itself."));
    slogan->setAlignment(Qt::AlignCenter);
    column->addWidget(slogan);
    column->addSpacing(20);
    column->addWidget(makeButton(tr("Begin a &New Family"), QStringLiteral("newButton"), commands_.openNew));
    column->addWidget(makeButton(tr("&Open a Family…"), QStringLiteral("openButton"), commands_.open));
    column->addWidget(makeButton(tr("&Import…"), QStringLiteral("importButton"), commands_.import));
    column->addWidget(makeButton(tr("Show the &Sample Family"), QStringLiteral("sampleButton"), commands_.openSample));
    column->addStretch(2);
    return welcome;
}

QWidget* StartWindow::makeButton(const QString& text, const QString& name, const std::function<void()>& command)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(true);
    button->setMinimumWidth(220);
    button->setVisible(static_cast<bool>(command));
    if (command)
        connect(button, &QPushButton::clicked, this, command);
    return button;
}

QWidget* StartWindow::makeRecent()
{
    auto* const recent = new QWidget;
    auto* const column = new QVBoxLayout(recent);
    column->setContentsMargins({});
    recoveryPanel_ = new RecoveryPanel(commands_.recover, commands_.discard);
    column->setSpacing(10);
    column->addWidget(recoveryPanel_);
    column->addWidget(makeTitle(tr("Recent Families"), 1));
    recentTable_ = new RecentTable;
    column->addWidget(recentTable_, 1);
    noneYet_ = new QLabel(tr("Families that are opened or saved will be listed here.\n"
                             "A file can also be dropped onto this window."));
    noneYet_->setObjectName(QStringLiteral("noneYet"));
    noneYet_->setFrameShape(QFrame::StyledPanel);
    noneYet_->setForegroundRole(QPalette::PlaceholderText);
    noneYet_->setAlignment(Qt::AlignCenter);
    noneYet_->setWordWrap(true);
    column->addWidget(noneYet_, 1);
    return recent;
}

void StartWindow::showRecent()
{
    const bool hasRows = recentTable_->rowCount() > 0;
    recentTable_->setVisible(hasRows);
    noneYet_->setVisible(!hasRows);
    if (hasRows && !recentTable_->currentIndex().isValid())
        recentTable_->setCurrentIndex(recentTable_->model()->index(0, 0));
    if (hasRows)
        recentTable_->setFocus();
    else
        findChild<QPushButton*>(QStringLiteral("newButton"))->setFocus();
}

void StartWindow::setRecoveryOffers(const QList<RecoveryOffer>& offers)
{
    recoveryPanel_->setOffers(offers);
}

void StartWindow::setVisible(bool visible)
{
    // A window manager would take it for a new window, and put it where such ones go.
    if (visible && !isVisible() && place_)
        move(*place_);
    else if (!visible && isVisible())
        place_ = pos();
    QMainWindow::setVisible(visible);
}

void StartWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        recentTable_->refresh();
}

void StartWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (commands_.closed)
        commands_.closed();
}

void StartWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (commands_.openFiles && !droppedFamilies(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void StartWindow::dropEvent(QDropEvent* event)
{
    const QStringList paths = droppedFamilies(*event->mimeData());
    if (!commands_.openFiles || paths.isEmpty())
        return;
    event->acceptProposedAction();
    commands_.openFiles(paths);
}

} // namespace lineara
