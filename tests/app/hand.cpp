#include "hand.h"

#include <QRegularExpression>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lineara {

namespace {

#ifdef LINEARA_SANITIZED
constexpr int patience = 60'000; // milliseconds
#else
constexpr int patience = 15'000;
#endif

constexpr int stepsOfADrag = 12;

QStringList movingTo(QPoint point)
{
    return {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())};
}

const QStringList pressing{QStringLiteral("mousedown"), QStringLiteral("1")};
const QStringList releasing{QStringLiteral("mouseup"), QStringLiteral("1")};
const QStringList pausing{QStringLiteral("sleep"), QStringLiteral("0.01")}; // moves that come at once count as one

/// The exit code of another program, or -1 if it has none. Spawned by the system's own call: forked from here, with
/// threads running, a checked program would go wrong.
int run(std::vector<std::string> words)
{
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t tool = 0;
    if (posix_spawnp(&tool, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0)
        return -1;
    int status = 0;
    const bool hasEnded = waitUntil([&] { return waitpid(tool, &status, WNOHANG) == tool; });
    return hasEnded && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, patience);
}

void Hand::moveTo(QPoint point)
{
    act(movingTo(point));
}

void Hand::click(QPoint point)
{
    act(movingTo(point) + pressing + releasing);
}

void Hand::doubleClick(QPoint point)
{
    act(movingTo(point) + pressing + releasing + pausing + pressing + releasing);
}

void Hand::drag(QPoint from, QPoint to)
{
    press(from);
    pull(from, to);
    release();
}

void Hand::press(QPoint point)
{
    act(movingTo(point) + pressing);
}

void Hand::pull(QPoint from, QPoint to)
{
    QStringList path;
    for (int step = 1; step <= stepsOfADrag; ++step)
        path += movingTo(from + (to - from) * step / stepsOfADrag) + pausing;
    act(path);
}

void Hand::release()
{
    act(releasing);
}

void Hand::wheelDown(QPoint point)
{
    act(movingTo(point) + QStringList{QStringLiteral("click"), QStringLiteral("5")});
}

void Hand::key(const QString& keys)
{
    act({QStringLiteral("key"), keys});
}

void Hand::type(const QString& text)
{
    act({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("5"), text});
}

void Hand::bringToFront(QWidget& window)
{
    const std::string id = std::to_string(window.winId());
    // The program may have been told of a window that the display has left meanwhile.
    const auto hasKeyboard = [&] { return run({"sh", "-c", "test \"$(xdotool getwindowfocus)\" = " + id}) == 0; };
    // The display does nothing for a window that it has not shown yet.
    const auto isInFront = [&] {
        if (window.isActiveWindow() && hasKeyboard())
            return true;
        run({"xdotool", "windowfocus", id});
        return false;
    };
    ASSERT_TRUE(waitUntil(isInFront)) << window.windowTitle().toStdString();
}

void Hand::focus(const QString& title)
{
    const QString pattern = QStringLiteral("^%1").arg(QRegularExpression::escape(title));
    act({QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
         pattern, QStringLiteral("windowfocus"), QStringLiteral("--sync")});
}

void Hand::act(const QStringList& commands)
{
    std::vector<std::string> words{"xdotool"};
    words.reserve(static_cast<std::size_t>(commands.size()) + 1);
    for (const QString& command : commands)
        words.push_back(command.toStdString());
    ASSERT_EQ(run(std::move(words)), 0) << "xdotool " << commands.join(QLatin1Char(' ')).toStdString();
}

} // namespace lineara
