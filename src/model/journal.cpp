#include "model/journal.h"

#include "journal_step.h"

#include <utility>

namespace lineara {

struct Journal::State
{
    ObjectContext& context;
    std::vector<JournalStep> done;
    std::vector<JournalStep> undone;
    bool open = false; ///< the last step of `done` still takes changes
    bool replaying = false;
    int pauses = 0;

    bool lastIsEmpty() const { return open && !done.back().hasEffect(context); }

    /// The step that undo() would take back.
    const JournalStep* undoable() const
    {
        const std::size_t steps = done.size() - (lastIsEmpty() ? 1 : 0);
        return steps == 0 ? nullptr : &done[steps - 1];
    }

    void close()
    {
        if (lastIsEmpty())
            done.pop_back();
        else if (open)
            done.back().close();
        open = false;
    }

    /// Replays the last step of `from` and hands it over.
    void move(std::vector<JournalStep>& from, std::vector<JournalStep>& to, void (JournalStep::*replay)(ObjectContext&))
    {
        close();
        if (from.empty() || replaying)
            return;
        replaying = true;
        JournalStep step = std::move(from.back());
        from.pop_back();
        (step.*replay)(context);
        to.push_back(std::move(step));
        replaying = false;
    }
};

Journal::Journal(ObjectContext& context) : state_(new State{.context = context, .done = {}, .undone = {}}) {}

Journal::~Journal() = default;

void Journal::begin(QString name)
{
    state_->close();
    state_->undone.clear();
    state_->done.emplace_back(std::move(name));
    state_->open = true;
}

bool Journal::canUndo() const
{
    return state_->undoable() != nullptr;
}

bool Journal::canRedo() const
{
    return !state_->undone.empty();
}

QString Journal::undoName() const
{
    const JournalStep* const step = state_->undoable();
    return step ? step->name() : QString();
}

QString Journal::redoName() const
{
    return canRedo() ? state_->undone.back().name() : QString();
}

void Journal::undo()
{
    state_->move(state_->done, state_->undone, &JournalStep::undo);
}

void Journal::redo()
{
    state_->move(state_->undone, state_->done, &JournalStep::redo);
}

std::size_t Journal::depth() const
{
    return state_->done.size() - (state_->lastIsEmpty() ? 1 : 0);
}

void Journal::clear()
{
    state_->open = false;
    state_->done.clear();
    state_->undone.clear();
}

void Journal::note(JournalEntry&& entry)
{
    if (recording())
        state_->done.back().note(std::move(entry));
}

bool Journal::recording() const
{
    return state_->open && !state_->replaying && state_->pauses == 0;
}

Journal::Pause::Pause(Journal& journal) : journal_(journal)
{
    ++journal_.state_->pauses;
}

Journal::Pause::~Pause()
{
    --journal_.state_->pauses;
}

} // namespace lineara
