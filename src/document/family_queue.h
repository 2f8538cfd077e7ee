#pragma once

#include "canvas/tidying.h"
#include "due_ledger.h"
#include "engine_wait.h"
#include "free_heights.h"
#include "platform/observer_list.h"
#include "platform/serial_queue.h"
#include "replayed_changes.h"
#include "watched_work.h"
#include "work_bar.h"
#include "work_run.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara {

class Document;

/// What takes turns on a document's queue: the work that follows from the user's changes, and undo and redo, which thus
/// find everything done that a step led to. Each piece of work changes records in one step on the main thread, so that
/// a change of the user comes before all of it or after all of it. Main thread only.
class FamilyQueue
{
public:
    explicit FamilyQueue(Document& document);

    SerialQueue& queue() { return queue_; }

    /// The first run of the engine, with the canvas following.
    void open();
    /// Work that follows from the step of the history that was begun last.
    void enqueue(FamilyWork work);
    void undo();
    void redo();
    /// Finds new places within the rows, as one step, for everybody or for those whom `some` names when its turn comes.
    /// Nothing if its user gives up meanwhile. It takes long, so an undo that was wished for meanwhile takes it back.
    void tidy();
    void tidy(std::function<std::vector<RecordId>()> some);
    /// Nobody waits in front of the window any more: what is queued by now ends soon, if need be with some partners in
    /// different rows. Tidying, which nobody will see, is given up, with an undo that was meant for it.
    void hurry();

    /// Remembers where a person without a row hangs at whom the step is about to change that.
    void keepHeight(StepId step, const Person& person);

private:
    enum class Direction
    {
        Undo,
        Redo
    };

    void addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run);
    void addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Joining& joining);
    void addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Leaving& leaving);
    void addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Linking& linking);
    void addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Processing& processing);
    void addEngineSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run);
    void join(const WorkRun& run, RecordId id);
    void leave(const WorkRun& run, RecordId id);
    void giveGenerations(WorkRun& run, const Linking& linking);
    void finish(const WorkRun& run, const std::function<void()>& change);

    void followRollBack();
    void enqueueReplay(Direction direction);
    void replay(Direction direction);
    ReplayedChanges replayJournal(Direction direction);
    void restoreHeights(const FreeHeights::Heights& heights);
    void enqueueDue();

    void addPlacing(WorkBlock& block);
    void enqueueTidying(std::function<Tidying()> tidying);
    std::optional<WatchedWork> undoneTidying();
    void moveTo(const std::vector<Tidying::Place>& places);
    bool isLatestOfUser(StepId step);

    Journal& journal();
    StepId newestStep();

    Document& document_;
    DueLedger ledger_;
    FreeHeights heights_;
    Subscription rollBacks_;
    bool isReplaying_ = false;
    /// The step of the last tidying, and the one that was the latest before it.
    struct Tidied
    {
        StepId step;
        StepId before;
    };
    std::optional<Tidied> tidied_;
    /// Tidying that is queued or at work, and whether its undo is queued behind it.
    struct PendingTidying
    {
        WatchedWork work;
        StepId after; ///< the latest step when it was wished for
        bool isUndone = false;
    };
    std::deque<PendingTidying> tidyings_;
    EngineWait wait_;
    WorkBar workBar_;
    SerialQueue queue_;
};

} // namespace lineara
