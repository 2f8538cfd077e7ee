#pragma once

#include "document/family_opening.h"
#include "platform/progress.h"
#include "platform/serial_queue.h"

#include <QProgressDialog>
#include <QString>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace lineara {

/// Families on their way from their files to windows. They are read on a thread of its own; who waits longer than a
/// moment sees how far that is, and can give up. Main thread only; destroying it gives up.
class Opening
{
public:
    struct Task
    {
        QString path; ///< of the file; empty where there is none that anybody could open meanwhile
        QString name; ///< what the user calls the family
        std::function<Outcome<OpenedFamily>(const Progress&)> open;
    };
    struct Result
    {
        QString path; ///< the task's
        Outcome<OpenedFamily> family;
    };
    using Results = std::vector<Result>;

    /// `ended` gets one result for each task, or none at all if the user gave up.
    Opening(std::vector<Task> tasks, std::function<void(Results)> ended);
    ~Opening();
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    /// Whether the file is one of those that are being read.
    bool concerns(const QString& path) const;

private:
    struct State;

    void showProgress();
    void updateProgress();
    void end(Results results);

    std::shared_ptr<State> state_;
    std::function<void(Results)> ended_;
    std::unique_ptr<QProgressDialog> dialog_;
    QTimer patience_;
    SerialQueue reader_;
};

} // namespace lineara
