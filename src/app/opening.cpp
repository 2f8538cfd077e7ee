#include "opening.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct OpeningTexts
{
    Q_DECLARE_TR_FUNCTIONS(Opening)
};

constexpr int moment = 300;         // milliseconds that nobody minds waiting
constexpr int pictureInterval = 50; // milliseconds
constexpr int steps = 1000;         // of the bar

} // namespace

/// Shared with the reader's thread. What it makes is touched by one thread at a time: handed over at the end.
struct Opening::State
{
    std::vector<Task> tasks;
    Results results;
    std::atomic<std::size_t> at = 0; ///< the task that is being worked on
    std::atomic<double> part = 0;    ///< how much of it is done
};

Opening::Opening(std::vector<Task> tasks, std::function<void(Results)> ended)
    : state_(std::make_shared<State>()), ended_(std::move(ended))
{
    state_->tasks = std::move(tasks);
    WorkBlock block;
    block
        .compute([state = state_](const std::stop_token& stop) {
            for (const Task& task : state->tasks) {
                state->part = 0;
                const Progress progress([state](double part) { state->part = part; }, stop);
                state->results.push_back({task.path, task.open(progress)});
                ++state->at;
            }
        })
        .onMain([this] { end(std::move(state_->results)); });
    reader_.enqueue(std::move(block));
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { dialog_ ? updateProgress() : showProgress(); });
    patience_.start(moment);
}

Opening::~Opening() = default;

bool Opening::concerns(const QString& path) const
{
    return std::ranges::any_of(state_->tasks, [canonical = canonicalPath(path)](const Task& task) {
        return !task.path.isEmpty() && canonicalPath(task.path) == canonical;
    });
}

void Opening::showProgress()
{
    dialog_ = std::make_unique<QProgressDialog>();
    dialog_->setObjectName(QStringLiteral("openingProgress"));
    dialog_->setWindowTitle(QGuiApplication::applicationDisplayName());
    dialog_->setAutoReset(false);
    dialog_->setAutoClose(false);
    dialog_->setMinimumDuration(0);
    dialog_->setMinimumWidth(360);
    dialog_->setRange(0, steps);
    QObject::connect(dialog_.get(), &QProgressDialog::canceled, dialog_.get(), [this] { end({}); });
    updateProgress();
    dialog_->show();
    patience_.start(pictureInterval);
}

void Opening::end(Results results)
{
    patience_.stop();
    if (dialog_)
        dialog_->hide();
    if (const auto ended = std::exchange(ended_, nullptr))
        ended(std::move(results));
}

void Opening::updateProgress()
{
    const std::size_t at = std::min(state_->at.load(), state_->tasks.size() - 1);
    dialog_->setLabelText(OpeningTexts::tr("Opening “%1”…").arg(state_->tasks[at].name));
    dialog_->setValue(static_cast<int>(state_->part * steps));
}

} // namespace lineara
