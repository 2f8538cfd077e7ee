#include "platform/main_thread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <cassert>
#include <deque>
#include <mutex>

#if defined(__SANITIZE_THREAD__)
#include <sanitizer/tsan_interface.h>
#endif

namespace lineara {

namespace {

// Qt's own locks are invisible to ThreadSanitizer in the distribution's build, so the hand-over is told to it here.
void announceRelease([[maybe_unused]] void* handle)
{
#if defined(__SANITIZE_THREAD__)
    __tsan_release(handle);
#endif
}

void announceAcquire([[maybe_unused]] void* handle)
{
#if defined(__SANITIZE_THREAD__)
    __tsan_acquire(handle);
#endif
}

class Receiver : public QObject
{
public:
    void post(std::function<void()> work)
    {
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(work));
        }
        auto* wakeUp = new QEvent(QEvent::User);
        announceRelease(wakeUp);
        QCoreApplication::postEvent(this, wakeUp);
    }

    bool event(QEvent* event) override
    {
        announceAcquire(event);
        if (event->type() != QEvent::User)
            return QObject::event(event);
        if (auto work = takeNext())
            work();
        return true;
    }

private:
    std::function<void()> takeNext()
    {
        const std::lock_guard lock(mutex_);
        if (waiting_.empty())
            return {};
        auto work = std::move(waiting_.front());
        waiting_.pop_front();
        return work;
    }

    std::mutex mutex_;
    std::deque<std::function<void()>> waiting_;
};

// Lives until the process ends: workers that are still leaving may post after the application object is gone.
Receiver& receiver()
{
    static Receiver instance;
    return instance;
}

} // namespace

void MainThread::prepare()
{
    assert(QCoreApplication::instance());
    receiver();
}

void MainThread::post(std::function<void()> work)
{
    receiver().post(std::move(work));
}

} // namespace lineara
