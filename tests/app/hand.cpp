#include "hand.h"

#include <QProcess>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>

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
    act({QStringLiteral("windowfocus"), QString::number(window.winId())});
    ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); })) << window.windowTitle().toStdString();
}

void Hand::act(const QStringList& commands)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), commands);
    const bool ended =
        waitUntil([&] { return tool.state() == QProcess::NotRunning || tool.error() == QProcess::FailedToStart; });
    ASSERT_TRUE(ended && tool.error() == QProcess::UnknownError && tool.exitStatus() == QProcess::NormalExit &&
                tool.exitCode() == 0)
        << "xdotool " << commands.join(QLatin1Char(' ')).toStdString() << ": " << tool.errorString().toStdString()
        << "; " << tool.readAllStandardError().toStdString();
}

} // namespace lineara
