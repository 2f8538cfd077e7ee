#include "engine_wait.h"

#include "document/document_window.h"

#include <QCoreApplication>

#include <utility>

namespace lineara {

namespace {

/// Who has waved the bar away sees it again after so long.
constexpr std::chrono::seconds untilToldAgain{10};

struct EngineWaitTexts
{
    Q_DECLARE_TR_FUNCTIONS(EngineWait)
};

} // namespace

EngineWait::EngineWait(DocumentWindow& window) : window_(window)
{
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { patienceEnded(); });
}

void EngineWait::begin(std::chrono::milliseconds patience, std::function<void()> hurry)
{
    hurry_ = std::move(hurry);
    timer_.start(patience);
}

void EngineWait::end()
{
    timer_.stop();
    hurry_ = nullptr;
    delete bar_;
}

void EngineWait::setHurried(bool hurried)
{
    isHurried_ = hurried;
    if (hurried && bar_)
        hurry_();
}

void EngineWait::patienceEnded()
{
    if (isHurried_)
        hurry_();
    else
        tell();
}

void EngineWait::tell()
{
    timer_.start(untilToldAgain);
    if (bar_)
        return;
    bar_ = &window_.offer(
        EngineWaitTexts::tr("Working out the rows… Finishing now may leave some partners in different rows."),
        EngineWaitTexts::tr("Finish Now"), hurry_);
}

} // namespace lineara
