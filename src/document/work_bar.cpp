#include "work_bar.h"

#include "document/document_window.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <chrono>

namespace lineara {

namespace {

struct WorkBarTexts
{
    Q_DECLARE_TR_FUNCTIONS(WorkBar)
};

constexpr std::chrono::milliseconds longMoment{300};
constexpr std::chrono::milliseconds lookInterval{50};
constexpr int barSteps = 1000; // of the bar
constexpr int workBarWidth = 240;

} // namespace

WorkBar::WorkBar(DocumentWindow& window) : window_(window)
{
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tell(); });
}

void WorkBar::begin(const QString& text, const WatchedWork& work)
{
    end();
    text_ = text;
    work_ = work;
    timer_.start(longMoment);
}

void WorkBar::end()
{
    timer_.stop();
    work_.reset();
    delete bar_;
}

void WorkBar::tell()
{
    if (!bar_)
        makeBar();
    done_->setValue(static_cast<int>(work_->part() * barSteps));
    timer_.start(lookInterval);
}

void WorkBar::makeBar()
{
    bar_ = new QWidget;
    bar_->setObjectName(QStringLiteral("workBar"));
    done_ = new QProgressBar;
    done_->setRange(0, barSteps);
    done_->setFixedWidth(workBarWidth);
    done_->setTextVisible(false);
    done_->setAccessibleName(text_);
    auto* const cancel = new QPushButton(WorkBarTexts::tr("Cancel"));
    cancel->setObjectName(QStringLiteral("giveUpWork"));
    QObject::connect(cancel, &QPushButton::clicked, cancel, [cancel, work = *work_] {
        cancel->setEnabled(false);
        work.giveUp();
    });
    auto* const row = new QHBoxLayout(bar_);
    row->addWidget(new QLabel(text_), 1);
    row->addWidget(done_);
    row->addWidget(cancel);
    window_.showAbove(*bar_);
    bar_->setAccessibleName(text_);
    QAccessibleEvent told(bar_, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

} // namespace lineara
