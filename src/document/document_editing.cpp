// What the user does to the family. Each operation shows at once what can be shown, opens a step of the history before
// its first change, and queues what has to follow.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "family_queue.h"
#include "personlist/person_list.h"
#include "relatives.h"
#include "replayed_changes.h"
#include "type_ahead.h"

#include <QCoreApplication>

#include <algorithm>

namespace lineara {

namespace {

struct StepNames
{
    Q_DECLARE_TR_FUNCTIONS(StepNames)
};

} // namespace

void Document::addPerson()
{
    if (!treeView())
        return;
    commit();
    context().journal().begin(StepNames::tr("Add Person"));
    Person& person = context().insertPerson();
    window_->setOnboardingVisible(false);
    treeView()->addViewForPerson(person);
    list_->addObject(person);
    joining_.push_back(person.recordId());
    queue_->enqueue(Joining{person.recordId()});
    typeAhead_->hold();
}

void Document::nameNewcomer(Person& person, const QString& name)
{
    context().journal().begin(StepNames::tr("Edit Name"));
    person.setName(name);
}

void Document::remove()
{
    if (!treeView())
        return;
    commit();
    if (Person* const person = selectionPerson()) {
        if (!isLeaving(person->recordId()))
            removePerson(*person);
        return;
    }
    removeLink();
}

void Document::removePerson(Person& person)
{
    const RecordId id = person.recordId();
    // The removal itself comes later, maybe after further steps have begun.
    const StepId step = context().journal().reserve(StepNames::tr("Remove Person"));
    queue_->keepHeight(step, person);
    leaving_.push_back(id);
    setRemovable(false);
    treeView()->removeViewForPerson(person);
    list_->removeObject(person);
    queue_->enqueue(Leaving{id});
    queue_->enqueue(Processing{std::nullopt});
}

void Document::removeLink()
{
    Person* const from = selection_.from ? context().person(*selection_.from) : nullptr;
    Person* const to = selection_.to ? context().person(*selection_.to) : nullptr;
    const bool isOffspring = selection_.type == offspringLink;
    const bool isPartner = selection_.type == partnerLink;
    context().journal().begin(isOffspring || isPartner ? StepNames::tr("Remove Link") : StepNames::tr("Update Rows"));
    if (from && to && isOffspring)
        from->removeChild(*to);
    else if (from && to && isPartner)
        from->removePartner(*to);
    if (from && to && selection_.isLink())
        removeShape(*from, *to);
    deselectAll();
    queue_->enqueue(Processing{to ? std::optional(to->recordId()) : std::nullopt});
}

void Document::removeShape(Person& from, Person& to)
{
    const auto& shapes = from.linkLayers();
    const auto shape = std::ranges::find_if(shapes, [&](const LinkLayer* layer) {
        return layer->source() == &from && layer->target() == &to && layer->linkType() == selection_.type;
    });
    if (shape != shapes.end())
        treeView()->removeLink(**shape);
}

void Document::tidyUp()
{
    if (treeView())
        queue_->tidy();
}

void Document::tidyAncestors()
{
    if (const auto person = selection_.person; treeView() && selectionPerson())
        queue_->tidy([this, person] { return ancestorsOf(pool(), *person); });
}

void Document::tidyDescendants()
{
    if (const auto person = selection_.person; treeView() && selectionPerson())
        queue_->tidy([this, person] { return descendantsWithPartnersOf(pool(), *person); });
}

void Document::undo()
{
    if (treeView())
        queue_->undo();
}

void Document::redo()
{
    if (treeView())
        queue_->redo();
}

void Document::link(Person& from, Person& to, const QString& type)
{
    if (type == offspringLink)
        from.addChild(to);
    else if (type == partnerLink)
        from.addPartner(to);
    queue_->enqueue(Linking{from.recordId(), to.recordId(), type});
}

void Document::refresh()
{
    list_->rearrangeObjects();
    treeView()->refreshHierarchy();
    reviseSelection();
}

void Document::showReplayed(const ReplayedChanges& changes)
{
    if (changes.members)
        syncList();
    treeView()->takeRows();
    if (changes.rows)
        refresh();
    reviseSelection();
    handleOnboarding();
    if (Person* const person = changes.concerned ? context().person(*changes.concerned) : nullptr)
        treeView()->reveal(*person);
}

void Document::hasJoined(RecordId person)
{
    std::erase(joining_, person);
}

void Document::hasLeft(RecordId person)
{
    std::erase(leaving_, person);
}

bool Document::isLeaving(RecordId person) const
{
    return std::ranges::find(leaving_, person) != leaving_.end();
}

} // namespace lineara
