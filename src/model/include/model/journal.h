#pragma once

#include "platform/observer_list.h"

#include <QString>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara {

class ObjectContext;
struct JournalEntry;

/// Names a step for as long as its journal lives. Later steps have greater numbers, and none is used twice.
struct StepId
{
    std::uint64_t number = 0;
    friend auto operator<=>(StepId, StepId) = default;
};

/// The history of a context as undoable steps: what one gesture changed, and everything that followed from it.
///
/// begin() opens a step; every change until the next begin() belongs to it, so that derived changes which come later
/// (generations, positions) are undone with their gesture. undo(), redo() and clear() close the step. Changes made
/// while no step is open, or under a Pause, are part of the opened file and can't be undone. Replaying emits the same
/// events as the changes themselves, and Replayed at the end.
class Journal
{
public:
    explicit Journal(ObjectContext& context);
    ~Journal();

    /// Opens a step with the name that menus show ("Link Partner"). It becomes a part of the history with its first
    /// change, and steps that were undone can't be redone from then on. A step that ends up changing nothing leaves no
    /// trace.
    StepId begin(QString name);

    /// Opens a step whose changes are sure to come, maybe after those of later steps: it is a part of the history at
    /// once.
    StepId reserve(QString name);

    /// Opens the newest step again, for changes that were due to it and come only now. Steps that were undone can still
    /// be redone: before that, what is added now is taken back, and it is there again when they are undone once more.
    void amend();

    /// Calls `finish` whenever another step is about to open and the one before still takes changes: what has been put
    /// off, but belongs to that, is to be done now.
    [[nodiscard]] Subscription beforeStep(std::function<void()> finish);

    /// Takes back the changes of the step that begin() opened and forgets it, as if it had never been begun. Further
    /// changes belong to the step before, if there is one.
    void rollBack();

    /// The step that was begun last, whether it is a part of the history or not; 0 before the first.
    StepId latestStep() const;
    /// What undo() would take back, and redo() would make again.
    std::optional<StepId> undoStep() const;
    std::optional<StepId> redoStep() const;

    /// True while undo(), redo() or rollBack() are at work: whoever answers a change with further changes leaves that.
    bool replaying() const;

    bool canUndo() const;
    bool canRedo() const;
    QString undoName() const;
    QString redoName() const;

    /// Restores the records exactly: values, the place within every set, and the next object number.
    void undo();
    void redo();

    /// Number of steps that undo() could take back.
    std::size_t depth() const;

    void clear();

    /// While one lives, changes are not journalled.
    class Pause
    {
    public:
        explicit Pause(Journal& journal);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        Journal& journal_;
    };

private:
    friend class ObjectContext;

    /// Adds a change to the open step; dropped where changes are not journalled.
    void note(JournalEntry&& entry);
    /// Whether note() would keep an entry now.
    bool recording() const;

    void takeAsBefore();

    struct State;
    std::unique_ptr<State> state_;
};

} // namespace lineara
