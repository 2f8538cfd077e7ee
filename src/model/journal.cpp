#include "model/journal.h"

#include "journal_step.h"
#include "model/object_context.h"

#include <utility>

namespace lineara {

namespace {

struct Step
{
    StepId id;
    JournalStep own;
    /// What amend() added while later steps could still be redone: in force whenever the step is the newest.
    std::unique_ptr<JournalStep> late = nullptr;
    bool reserved = false;
};

enum class Taking
{
    Nothing,
    NewStep,    ///< the last step of `done`, which was begun on top of the others
    AmendedStep ///< the last step of `done`, which had been closed before
};

} // namespace

struct Journal::State
{
    struct Opening
    {};

    ObjectContext& context;
    ObserverList<Opening> opening;
    std::vector<Step> done;
    std::vector<Step> undone;
    std::vector<Step> replaced; ///< what a new step made impossible to redo, until it is sure to stay
    std::optional<Step> next;   ///< begun, and not yet a part of the history
    std::optional<Step> former; ///< what was `next` before the latest step was begun
    std::uint64_t lastId = 0;
    Taking taking = Taking::Nothing;
    bool replaying = false;
    int pauses = 0;

    bool lastIsEmpty() const
    {
        return taking == Taking::NewStep && !done.back().reserved && !done.back().own.hasEffect(context);
    }

    const Step* undoable() const
    {
        const std::size_t steps = done.size() - (lastIsEmpty() ? 1 : 0);
        return steps == 0 ? nullptr : &done[steps - 1];
    }

    void close()
    {
        next.reset();
        if (lastIsEmpty())
            dropLast();
        else if (taking == Taking::NewStep)
            keepLast();
        else if (taking == Taking::AmendedStep && done.back().late)
            done.back().late->close();
        taking = Taking::Nothing;
    }

    void openNext()
    {
        replaced = std::exchange(undone, {});
        done.push_back(std::move(*std::exchange(next, std::nullopt)));
        taking = Taking::NewStep;
    }

    /// The new step stays: what came late to the one before belongs to that for good.
    void keepLast()
    {
        replaced.clear();
        done.back().own.close();
        if (done.size() < 2)
            return;
        Step& before = done[done.size() - 2];
        if (before.late)
            before.own.append(std::move(*std::exchange(before.late, nullptr)));
    }

    /// As if the new step had never been begun.
    void dropLast()
    {
        done.pop_back();
        undone = std::exchange(replaced, {});
    }

    template<class Work>
    void replay(Work&& work)
    {
        replaying = true;
        work();
        replaying = false;
        context.report(Replayed{});
    }
};

Journal::Journal(ObjectContext& context)
    : state_(new State{
          .context = context, .opening = {}, .done = {}, .undone = {}, .replaced = {}, .next = {}, .former = {}})
{}

Journal::~Journal() = default;

StepId Journal::begin(QString name)
{
    state_->opening.report({});
    auto former = std::exchange(state_->next, std::nullopt);
    state_->close();
    state_->former = std::move(former);
    state_->next.emplace(Step{{++state_->lastId}, JournalStep(std::move(name))});
    return state_->next->id;
}

StepId Journal::reserve(QString name)
{
    const StepId id = begin(std::move(name));
    state_->next->reserved = true;
    state_->openNext();
    return id;
}

void Journal::amend()
{
    state_->close();
    if (state_->done.empty())
        return;
    if (!state_->undone.empty() && !state_->done.back().late)
        state_->done.back().late = std::make_unique<JournalStep>(QString());
    state_->taking = Taking::AmendedStep;
}

Subscription Journal::beforeStep(std::function<void()> finish)
{
    return state_->opening.add([finish = std::move(finish)](const State::Opening&) { finish(); });
}

void Journal::rollBack()
{
    if (state_->replaying)
        return;
    if (std::exchange(state_->next, std::nullopt)) {
        takeAsBefore();
        return;
    }
    if (state_->taking != Taking::NewStep)
        return;
    state_->taking = Taking::Nothing;
    state_->replay([&] {
        state_->done.back().own.undo(state_->context);
        state_->dropLast();
        takeAsBefore();
    });
}

void Journal::takeAsBefore()
{
    if (state_->former)
        state_->next = std::exchange(state_->former, std::nullopt);
    else
        amend();
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
    const Step* const step = state_->undoable();
    return step ? step->own.name() : QString();
}

QString Journal::redoName() const
{
    return canRedo() ? state_->undone.back().own.name() : QString();
}

StepId Journal::latestStep() const
{
    return {state_->lastId};
}

std::optional<StepId> Journal::undoStep() const
{
    const Step* const step = state_->undoable();
    return step ? std::optional(step->id) : std::nullopt;
}

std::optional<StepId> Journal::redoStep() const
{
    return canRedo() ? std::optional(state_->undone.back().id) : std::nullopt;
}

bool Journal::replaying() const
{
    return state_->replaying;
}

void Journal::undo()
{
    state_->close();
    if (state_->done.empty() || state_->replaying)
        return;
    Step step = std::move(state_->done.back());
    state_->done.pop_back();
    state_->replay([&] {
        if (step.late)
            step.late->undo(state_->context);
        step.own.undo(state_->context);
        if (!state_->done.empty() && state_->done.back().late)
            state_->done.back().late->redo(state_->context);
    });
    state_->undone.push_back(std::move(step));
}

void Journal::redo()
{
    state_->close();
    if (state_->undone.empty() || state_->replaying)
        return;
    Step step = std::move(state_->undone.back());
    state_->undone.pop_back();
    state_->replay([&] {
        if (!state_->done.empty() && state_->done.back().late)
            state_->done.back().late->undo(state_->context);
        step.own.redo(state_->context);
        if (step.late)
            step.late->redo(state_->context);
    });
    state_->done.push_back(std::move(step));
}

std::size_t Journal::depth() const
{
    return state_->done.size() - (state_->lastIsEmpty() ? 1 : 0);
}

void Journal::clear()
{
    state_->taking = Taking::Nothing;
    state_->next.reset();
    state_->former.reset();
    state_->done.clear();
    state_->undone.clear();
    state_->replaced.clear();
}

void Journal::note(JournalEntry&& entry)
{
    if (!recording())
        return;
    if (state_->next)
        state_->openNext();
    Step& step = state_->done.back();
    (step.late ? *step.late : step.own).note(std::move(entry));
}

bool Journal::recording() const
{
    return (state_->taking != Taking::Nothing || state_->next) && !state_->replaying && state_->pauses == 0;
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
