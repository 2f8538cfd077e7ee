#pragma once

#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

namespace lineara {

class ObjectContext;
struct JournalEntry;

/// The history of a context as undoable steps: what one gesture changed, and everything that followed from it.
///
/// begin() opens a step; every change until the next begin() belongs to it, so that derived changes which come later
/// (generations, positions) are undone with their gesture. undo(), redo() and clear() close the step. Changes made
/// while no step is open, or under a Pause, are part of the opened file and can't be undone. Replaying emits the same
/// events as the changes themselves.
class Journal
{
public:
    explicit Journal(ObjectContext& context);
    ~Journal();

    /// Opens a step with the name that menus show ("Link Partner"). Steps that were undone are forgotten.
    /// A step that ends up changing nothing leaves no trace.
    void begin(QString name);

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

    struct State;
    std::unique_ptr<State> state_;
};

} // namespace lineara
