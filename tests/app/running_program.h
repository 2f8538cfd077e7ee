#pragma once

#include <QString>
#include <QStringList>

#include <optional>

#include <sys/types.h>

namespace lineara {

/// The program itself, as a process of its own on the same display, with that home.
class RunningProgram
{
public:
    RunningProgram(const QString& home, const QStringList& files);
    /// Kills it where it is still there.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// Waits for its window of that title and gives that the keyboard.
    void bringToFront(const QString& title) const;
    /// Where it keeps copies of unsaved changes.
    QStringList keptFamilies() const;

    void send(int signal) const;
    /// How it ended: its exit code, or minus the signal that killed it. No value if it goes on for longer than anybody
    /// would wait.
    std::optional<int> waitForEnd();

private:
    bool hasEnded();

    QString home_;
    pid_t id_ = 0;
    std::optional<int> end_;
};

} // namespace lineara
