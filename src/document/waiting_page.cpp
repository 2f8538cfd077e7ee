#include "waiting_page.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace lineara {

namespace {

struct WaitingPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(WaitingPage)
};

constexpr int moment = 300; // milliseconds
constexpr int barWidth = 240;

} // namespace

WaitingPage::WaitingPage(std::function<void()> giveUp) : content_(new QWidget)
{
    setFocusPolicy(Qt::StrongFocus);
    // The canvas, which follows, is white whatever the desktop's colours are.
    setAutoFillBackground(true);
    setPalette(QPalette(QColor(Qt::lightGray), QColor(Qt::white)));
    auto* const bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setFixedWidth(barWidth);
    bar->setTextVisible(false);
    auto* const cancel = new QPushButton(WaitingPageTexts::tr("Cancel"));
    cancel->setObjectName(QStringLiteral("giveUpButton"));
    connect(cancel, &QPushButton::clicked, this, std::move(giveUp));
    auto* const column = new QVBoxLayout(content_);
    column->addWidget(new QLabel(WaitingPageTexts::tr("Working out the rows\u2026")), 0, Qt::AlignHCenter);
    column->addWidget(bar, 0, Qt::AlignHCenter);
    column->addWidget(cancel, 0, Qt::AlignHCenter);
    auto* const page = new QVBoxLayout(this);
    page->addWidget(content_, 0, Qt::AlignCenter);
    content_->hide();
    QTimer::singleShot(moment, this, [this] { content_->setVisible(!hasEnded_); });
}

void WaitingPage::end(QWidget& waitedFor)
{
    hasEnded_ = true;
    content_->hide();
    for (auto& key : std::exchange(typed_, {}))
        QCoreApplication::postEvent(&waitedFor, key.release());
}

void WaitingPage::keyPressEvent(QKeyEvent* event)
{
    typed_.emplace_back(event->clone());
}

} // namespace lineara
