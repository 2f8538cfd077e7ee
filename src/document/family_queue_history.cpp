// Undo and redo.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "family_queue.h"

#include <QScopedValueRollback>

#include <utility>

namespace lineara {

void FamilyQueue::undo()
{
    enqueueReplay(Direction::Undo);
}

void FamilyQueue::redo()
{
    enqueueReplay(Direction::Redo);
}

void FamilyQueue::enqueueReplay(Direction direction)
{
    document_.commit();
    const auto undone = direction == Direction::Undo ? undoneTidying() : std::nullopt;
    WorkBlock block;
    block.onMainWaiting([this, direction, undone, meant = journal().latestStep()] {
        document_.commit();
        // What was given up has left nothing to take back, and the step before it was not meant.
        if (undone && undone->isGivenUp())
            return;
        // A change that the user made after the command is nothing that the command was meant for.
        if (isLatestOfUser(meant))
            replay(direction);
    });
    queue_.enqueue(std::move(block));
}

/// Tidying begins its step when its work is done, which the user did not wait for.
bool FamilyQueue::isLatestOfUser(StepId step)
{
    const StepId latest = journal().latestStep();
    return latest == step || (tidied_ && tidied_->step == latest && tidied_->before == step);
}

void FamilyQueue::replay(Direction direction)
{
    const auto step = direction == Direction::Undo ? journal().undoStep() : journal().redoStep();
    if (!step)
        return;
    using Side = FreeHeights::Side;
    const auto [left, reached] =
        direction == Direction::Undo ? std::pair(Side::After, Side::Before) : std::pair(Side::Before, Side::After);
    const auto heights = FreeHeights::of(document_.pool());
    const auto seen = document_.treeView()->seenPart();
    const ReplayedChanges changes = replayJournal(direction);
    if (changes.rows)
        document_.pool().rebuildLists();
    heights_.replace(*step, left, FreeHeights::changed(heights, document_.pool()));
    restoreHeights(heights_.at(*step, reached));
    // Where most of the family has moved, the view goes along with those whom it shows.
    if (seen && changes.moved * 2 > document_.pool().persons().size())
        document_.treeView()->showAgain(*seen);
    document_.showReplayed(changes);
    if (newestStep() > StepId() && ledger_.isDue(newestStep()))
        enqueueDue();
}

ReplayedChanges FamilyQueue::replayJournal(Direction direction)
{
    ReplayedChanges changes;
    const Subscription watch = document_.context().observe([&](const Change& change) { changes.add(change); });
    const QScopedValueRollback replaying(isReplaying_, true);
    if (direction == Direction::Undo)
        journal().undo();
    else
        journal().redo();
    return changes;
}

/// A gesture that was taken back has taken along what earlier steps had led to by then.
void FamilyQueue::followRollBack()
{
    if (newestStep() == StepId() || !ledger_.isDue(newestStep()))
        return;
    document_.pool().rebuildLists();
    restoreHeights(heights_.at(journal().latestStep(), FreeHeights::Side::Before));
    ReplayedChanges everything;
    everything.members = true;
    everything.rows = true;
    document_.showReplayed(everything);
    enqueueDue();
}

void FamilyQueue::restoreHeights(const FreeHeights::Heights& heights)
{
    for (const auto& [id, constant] : heights) {
        Person* const person = document_.context().person(id);
        if (!person || person->pool() != &document_.pool() || person->generation())
            continue;
        document_.treeView()->addViewForPerson(*person);
        person->leafView()->setYConstant(constant);
    }
}

/// What is missing in the state that was just reached is done once the queue comes to it; by then the user may have
/// gone on through the history, where it is not missing, or have changed something else on top.
void FamilyQueue::enqueueDue()
{
    const StepId step = newestStep();
    const StepId latest = journal().latestStep();
    const auto isWanted = std::make_shared<bool>(false);
    WorkBlock block;
    block.onMainWaiting([this, step, latest, isWanted] {
        *isWanted = newestStep() == step || newestStep() > latest;
        if (newestStep() == step)
            journal().amend();
    });
    for (FamilyWork& work : ledger_.take(step)) {
        const auto run = std::make_shared<WorkRun>(WorkRun{std::move(work), step, isWanted});
        addSteps(block, run);
        block.onMainWaiting([this, run] {
            if (!run->isWanted())
                ledger_.putBack(run->work, run->of);
        });
    }
    queue_.enqueue(std::move(block));
}

} // namespace lineara
