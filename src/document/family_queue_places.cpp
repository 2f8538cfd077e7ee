// Places within the rows: of a family that comes without, and when its user wants it tidy.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "family_queue.h"
#include "watched_work.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct PlacingTexts
{
    Q_DECLARE_TR_FUNCTIONS(PlacingTexts)
};

/// Shared by the steps of one block, of which one is at work at a time.
struct PlacingRun
{
    std::optional<Tidying> tidying;
    WatchedWork work;

    void compute(const std::stop_token& closing)
    {
        if (tidying)
            work.run(closing, [this](const Progress& progress) { tidying->compute(progress); });
    }
};

} // namespace

/// What a file says nothing about is a part of the opened family, and no undoable step.
void FamilyQueue::addPlacing(WorkBlock& block)
{
    const auto run = std::make_shared<PlacingRun>();
    block
        .onMainWaiting([this, run] {
            const Pool& pool = document_.pool();
            if (std::ranges::all_of(pool.persons(), [](const Person* person) { return person->x().has_value(); }))
                return;
            document_.window().showWaiting(PlacingTexts::tr("Arranging the family\u2026"), run->work);
            run->tidying = Tidying::ofNewcomers(pool);
        })
        .compute([run](const std::stop_token& closing) { run->compute(closing); })
        .onMainWaiting([this, run] {
            if (!run->tidying)
                return;
            const Journal::Pause pause(journal());
            const auto [persons, places] = movesOf(run->tidying->places(), document_.context());
            document_.context().setMany(PersonAttribute::X, persons, places);
        });
}

void FamilyQueue::tidy()
{
    enqueueTidying([this] { return Tidying::ofEverybody(document_.pool()); });
}

void FamilyQueue::tidy(std::function<std::vector<RecordId>()> some)
{
    enqueueTidying([this, some = std::move(some)] { return Tidying::ofSome(document_.pool(), some()); });
}

void FamilyQueue::enqueueTidying(std::function<Tidying()> tidying)
{
    const auto run = std::make_shared<PlacingRun>();
    tidyings_.push_back({run->work, journal().latestStep()});
    WorkBlock block;
    block
        .onMainWaiting([this, run, tidying = std::move(tidying)] {
            if (run->work.isGivenUp())
                return;
            document_.commit();
            workBar_.begin(PlacingTexts::tr("Tidying up\u2026"), run->work);
            run->tidying = tidying();
        })
        .compute([run](const std::stop_token& closing) { run->compute(closing); })
        .onMainWaiting([this, run] {
            tidyings_.pop_front();
            workBar_.end();
            if (!run->work.isGivenUp())
                moveTo(run->tidying->places());
        });
    queue_.enqueue(std::move(block));
}

/// The tidying that an undo is meant for which is wished for now.
std::optional<WatchedWork> FamilyQueue::undoneTidying()
{
    if (tidyings_.empty())
        return std::nullopt;
    PendingTidying& latest = tidyings_.back();
    if (latest.isUndone || latest.after != journal().latestStep())
        return std::nullopt;
    latest.isUndone = true;
    return latest.work;
}

/// The step begins only here: what its user did while places were being found is a step of its own, before this one.
void FamilyQueue::moveTo(const std::vector<Tidying::Place>& places)
{
    const StepId before = journal().latestStep();
    journal().begin(PlacingTexts::tr("Tidy Up"));
    const auto [persons, values] = movesOf(places, document_.context());
    document_.treeView()->movePersons(persons, values);
    tidied_ = Tidied{journal().latestStep(), before};
}

} // namespace lineara
