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
constexpr int steps = 1000;         // of the bar
constexpr int pictureInterval = 50; // milliseconds

} // namespace

WaitingPage::WaitingPage(std::function<void()> giveUp)
    : content_(new QWidget), text_(new QLabel(WaitingPageTexts::tr("Working out the rows\u2026"))),
      bar_(new QProgressBar)
{
    setFocusPolicy(Qt::StrongFocus);
    // The canvas, which follows, is white whatever the desktop's colours are.
    setAutoFillBackground(true);
    setPalette(QPalette(QColor(Qt::lightGray), QColor(Qt::white)));
    bar_->setRange(0, 0);
    bar_->setFixedWidth(barWidth);
    bar_->setTextVisible(false);
    auto* const cancel = new QPushButton(WaitingPageTexts::tr("Cancel"));
    cancel->setObjectName(QStringLiteral("giveUpButton"));
    connect(cancel, &QPushButton::clicked, this, std::move(giveUp));
    auto* const column = new QVBoxLayout(content_);
    column->addWidget(text_, 0, Qt::AlignHCenter);
    column->addWidget(bar_, 0, Qt::AlignHCenter);
    column->addWidget(cancel, 0, Qt::AlignHCenter);
    auto* const page = new QVBoxLayout(this);
    page->addWidget(content_, 0, Qt::AlignCenter);
    content_->hide();
    QTimer::singleShot(moment, this, [this] { content_->setVisible(!hasEnded_); });
}

void WaitingPage::watch(const QString& text, const WatchedWork& work)
{
    text_->setText(text);
    bar_->setRange(0, steps);
    looks_.callOnTimeout(bar_, [this, work] { bar_->setValue(static_cast<int>(work.part() * steps)); });
    looks_.start(pictureInterval);
}

void WaitingPage::end(QWidget& waitedFor)
{
    hasEnded_ = true;
    looks_.stop();
    content_->hide();
    for (auto& key : std::exchange(typed_, {}))
        QCoreApplication::postEvent(&waitedFor, key.release());
}

void WaitingPage::keyPressEvent(QKeyEvent* event)
{
    typed_.emplace_back(event->clone());
}

} // namespace lineara
