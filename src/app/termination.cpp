#include "termination.h"

#include <QGuiApplication>
#include <QSessionManager>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace lineara {

namespace {

constexpr std::array signals{SIGTERM, SIGHUP, SIGINT};

/// Where the handler writes, and where that is heard.
std::array<int, 2> ends{-1, -1};

void pass(int)
{
    // Nearly nothing else is allowed here.
    const int error = errno;
    const char anything = 1;
    [[maybe_unused]] const auto written = ::write(ends[0], &anything, 1);
    errno = error;
}

void handle(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : signals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

Termination::Termination(std::function<void()> asked, std::function<void()> sessionEnds)
{
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [sessionEnds = std::move(sessionEnds)](QSessionManager& session) {
            // It would start the program with options, of which there are none; the start window offers everything.
            session.setRestartHint(QSessionManager::RestartNever);
            sessionEnds();
        },
        Qt::DirectConnection);
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(ends[1], QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [asked = std::move(asked)] {
        char any = 0;
        while (::read(ends[1], &any, 1) == 1) {
        }
        asked();
    });
    handle(&pass);
}

Termination::~Termination()
{
    if (!notifier_)
        return;
    handle(SIG_DFL);
    notifier_.reset();
    ::close(ends[0]);
    ::close(ends[1]);
}

} // namespace lineara
