// The work that follows from the user's changes.

#include "family_queue.h"
#include "canvas/tree_view.h"
#include "document/document.h"
#include "link_generations.h"
#include "personlist/person_list.h"

#include <chrono>
#include <utility>
#include <variant>

namespace lineara {

namespace {

constexpr auto editingPatience = std::chrono::milliseconds(300);
/// Longer, because the window itself tells that it is opening.
constexpr auto openingPatience = std::chrono::milliseconds(3'000);

} // namespace

FamilyQueue::FamilyQueue(Document& document)
    : document_(document), wait_(document.window()), workBar_(document.window())
{
    rollBacks_ = document.context().observe([this](const Change& change) {
        if (std::holds_alternative<Replayed>(change) && !isReplaying_)
            followRollBack();
    });
}

Journal& FamilyQueue::journal()
{
    return document_.context().journal();
}

StepId FamilyQueue::newestStep()
{
    return journal().undoStep().value_or(StepId());
}

void FamilyQueue::open()
{
    auto run = std::make_shared<EngineRun>();
    WorkBlock block;
    block
        .onMainWaiting([this, run] {
            run->prepare(document_.pool());
            wait_.begin(openingPatience, [run] { run->hurry(); });
        })
        .compute([run](std::stop_token stop) { run->compute(std::move(stop)); })
        .onMainWaiting([this, run] {
            wait_.end();
            run->apply(document_.pool());
        });
    addPlacing(block);
    block.onMain([this] { document_.handleOnboarding(); }).onMain([this] { document_.initTreeView(); });
    queue_.enqueue(std::move(block));
}

void FamilyQueue::enqueue(FamilyWork work)
{
    WorkBlock block;
    addSteps(block, std::make_shared<WorkRun>(WorkRun{std::move(work), journal().latestStep()}));
    queue_.enqueue(std::move(block));
}

void FamilyQueue::hurry()
{
    wait_.setHurried(true);
    for (const PendingTidying& tidying : tidyings_)
        tidying.work.giveUp();
    WorkBlock block;
    block.onMain([this] { wait_.setHurried(false); });
    queue_.enqueue(std::move(block));
}

void FamilyQueue::addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run)
{
    std::visit([&](const auto& work) { addSteps(block, run, work); }, run->work);
}

void FamilyQueue::addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Joining& joining)
{
    const RecordId id = joining.person;
    block.onMainWaiting([this, run, id] { join(*run, id); });
    if (run->isRepeated())
        return;
    block.onMain([this] { document_.list().rearrangeObjects(); })
        .onMainWaiting([this, id] {
            if (Person* const person = document_.context().person(id))
                document_.selectPerson(*person);
        })
        .onMain([this, id] { document_.editNewName(id); });
}

void FamilyQueue::addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Leaving& leaving)
{
    const RecordId id = leaving.person;
    block.onMainWaiting([this, run, id] { leave(*run, id); })
        .onMainWaiting([this, run, id] {
            if (run->isWanted())
                document_.deselectAfterRemoval(id);
        })
        .onMain([this] { document_.handleOnboarding(); });
}

void FamilyQueue::addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Linking& linking)
{
    block.onMainWaiting([this, run, linking] {
        if (run->isWanted())
            giveGenerations(*run, linking);
    });
    addEngineSteps(block, run);
}

void FamilyQueue::addSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run, const Processing& processing)
{
    run->concerned = processing.concerned;
    block.onMainWaiting([this, run] {
        if (run->isWanted())
            run->engine.prepare(document_.pool());
    });
    addEngineSteps(block, run);
}

void FamilyQueue::addEngineSteps(WorkBlock& block, const std::shared_ptr<WorkRun>& run)
{
    block.onMain([this, run] { wait_.begin(editingPatience, [run] { run->engine.hurry(); }); })
        .compute([run](std::stop_token stop) { run->engine.compute(std::move(stop)); })
        .onMainWaiting([this, run] {
            wait_.end();
            if (run->engine.hasResult())
                finish(*run, [&] { run->engine.apply(document_.pool()); });
        });
}

void FamilyQueue::join(const WorkRun& run, RecordId id)
{
    if (!run.isWanted())
        return;
    document_.hasJoined(id);
    Person* const person = document_.context().person(id);
    if (!person)
        return;
    document_.pool().addPerson(*person);
    if (run.isRepeated()) {
        document_.syncList();
        document_.handleOnboarding();
        // Links that had their turn meanwhile may have given a row to who was not a member.
        if (person->generation()) {
            document_.pool().rebuildLists();
            document_.refresh();
        }
    }
    ledger_.finished(run.work, run.of, newestStep());
}

void FamilyQueue::leave(const WorkRun& run, RecordId id)
{
    if (!run.isWanted())
        return;
    document_.hasLeft(id);
    Person* const person = document_.context().person(id);
    if (!person)
        return;
    document_.pool().removePerson(*person);
    person->disconnect();
    document_.context().remove(*person);
    if (run.isRepeated())
        document_.syncList();
    ledger_.finished(run.work, run.of, newestStep());
}

/// Which rule holds is decided here and not when the link was made, since work that was queued before may have given
/// generations meanwhile.
void FamilyQueue::giveGenerations(WorkRun& run, const Linking& linking)
{
    Person* const from = document_.context().person(linking.from);
    Person* const to = document_.context().person(linking.to);
    if (!from || !to)
        return;
    run.concerned = document_.concernedBy(*from, *to).recordId();
    if (needsFullRun(*from, *to, linking.type)) {
        run.engine.prepare(document_.pool());
        return;
    }
    finish(run, [&] {
        assignLinkGenerations(*from, *to, linking.type);
        document_.pool().arrangeGenerations();
    });
}

void FamilyQueue::finish(const WorkRun& run, const std::function<void()>& change)
{
    const auto heights = FreeHeights::of(document_.pool());
    change();
    heights_.add(newestStep(), FreeHeights::Side::Before, FreeHeights::changed(heights, document_.pool()));
    document_.refresh();
    Person* const concerned = run.concerned ? document_.context().person(*run.concerned) : nullptr;
    if (concerned && !run.isRepeated())
        document_.treeView()->reveal(*concerned);
    ledger_.finished(run.work, run.of, newestStep());
}

void FamilyQueue::keepHeight(StepId step, const Person& person)
{
    const LeafView* const node = person.leafView();
    if (!person.generation() && node && node->yConstraint())
        heights_.add(step, FreeHeights::Side::Before, {{person.recordId(), node->yConstraint()->constant}});
}

} // namespace lineara
