// What is selected: one person, one link or nothing, the same on the canvas and in the list.

#include "canvas/tree_view.h"
#include "document/application_delegate.h"
#include "document/document.h"
#include "document/document_window.h"
#include "personlist/person_list.h"

namespace lineara {

Person* Document::selectionPerson() const
{
    return selection_.person ? context().person(*selection_.person) : nullptr;
}

void Document::selectPerson(Person& person)
{
    if (isLeaving(person.recordId()))
        return;
    unfocusSelectionPerson();
    selection_.person = person.recordId();
    selection_.type = Selection::ofPerson();
    list_->select(person);
    if (TreeView* const canvas = treeView()) {
        canvas->deselectLink();
        canvas->focus(person);
    }
    setRemovable(true);
}

/// The press that tells of a link is delivered later; the link may have gone meanwhile.
void Document::selectLink(const LinkSelectionNotification::Link& link)
{
    if (!shapeOf(link)) {
        deselectAll();
        return;
    }
    unfocusSelectionPerson();
    selection_.person.reset();
    selection_.from = link.source;
    selection_.to = link.target;
    selection_.type = link.type;
    setRemovable(true);
}

bool Document::deselectAll()
{
    unfocusSelectionPerson();
    selection_.person.reset();
    selection_.type = Selection::none();
    setRemovable(false);
    list_->deselectAll();
    if (TreeView* const canvas = treeView())
        canvas->clearFirstResponder();
    return true;
}

void Document::unfocusSelectionPerson()
{
    Person* const person = selectionPerson();
    if (TreeView* const canvas = treeView(); canvas && person)
        canvas->unfocus(*person);
}

void Document::setRemovable(bool removable)
{
    selection_.isRemovable = removable;
    if (auto* const delegate = ApplicationDelegate::shared())
        delegate->setCanRemove(removable);
    commandsChanged();
}

/// The user may have selected somebody else while the removal waited for its turn.
void Document::deselectAfterRemoval(RecordId person)
{
    if (selection_.type == Selection::none() || selection_.person == person)
        deselectAll();
    else
        reviseSelection();
}

/// What is selected may have gone, or have gone and come back.
void Document::reviseSelection()
{
    if (selection_.type == Selection::ofPerson()) {
        Person* const person = selectionPerson();
        if (!person)
            deselectAll();
        else if (!isLeaving(person->recordId()))
            treeView()->focus(*person);
        return;
    }
    if (!selection_.isLink())
        return;
    const LinkLayer* const shape = shapeOf({*selection_.from, *selection_.to, selection_.type});
    if (!shape) {
        deselectAll();
        return;
    }
    // The shape of a partnership that went and came back may begin at the other partner.
    selection_.from = shape->source()->recordId();
    selection_.to = shape->target()->recordId();
}

const LinkLayer* Document::shapeOf(const LinkSelectionNotification::Link& link) const
{
    const Person* const from = context().person(link.source);
    const Person* const to = context().person(link.target);
    return from && to ? BranchLayerView::layerOf(*from, *to, link.type) : nullptr;
}

} // namespace lineara
