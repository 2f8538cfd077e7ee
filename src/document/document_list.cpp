// The list of persons beside the canvas: who is in it, and what its user asks for.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "document_saving.h"
#include "further_facts_dialog.h"
#include "personlist/person_table_view_controller.h"
#include "type_ahead.h"

#include <algorithm>
#include <iterator>

namespace lineara {

void Document::makeList()
{
    importedFacts_ = std::make_unique<ImportedFacts>(context());
    personTableViewController_ = std::make_unique<PersonTableViewController>(pool());
    list_ = personTableViewController_.get();
    window_->showList(&list_->view());
    personTableViewController_->setPersonChosen([this](Person& person) { leadTo(person); });
    personTableViewController_->setFurtherFacts(
        {[this](const Person& person) { return static_cast<int>(importedFacts_->count(person)); },
         [this](const Person& person) { showFurtherFacts(*window_, person, importedFacts_->of(person)); }});
    list_->setTypedObserver([this] { typed(); });
}

void Document::typed()
{
    saving_->changed();
    commandsChanged();
}

void Document::showList(PersonList& list)
{
    personTableViewController_.reset();
    list_ = &list;
    window_->showList(&list.view());
    syncList();
    list.rearrangeObjects();
}

void Document::syncList()
{
    std::vector<Person*> persons;
    std::ranges::copy_if(pool().persons(), std::back_inserter(persons),
                         [this](const Person* person) { return !isLeaving(person->recordId()); });
    for (const RecordId id : joining_) {
        Person* const person = context().person(id);
        if (person && !person->pool() && !isLeaving(id))
            persons.push_back(person);
    }
    list_->setObjects(persons);
}

/// By now the user may be busy with something else.
void Document::editNewName(RecordId id)
{
    Person* const person = context().person(id);
    const bool opens = person && selection_.person == id && !list_->isEditing();
    if (opens) {
        list_->editNameForPerson(*person);
        typeAhead_->releaseToField();
    } else if (const QString typed = typeAhead_->releaseAsText(); person && !typed.isEmpty()) {
        nameNewcomer(*person, typed);
    }
    if (typeAhead_->isHolding())
        commit();
}

/// The list answers every selection with an announcement, and a click on a node must not move what is clicked.
void Document::selectInList(Person& person)
{
    if (selection_.person == person.recordId())
        selectPerson(person);
    else
        leadTo(person);
}

void Document::leadTo(Person& person)
{
    selectPerson(person);
    if (TreeView* const canvas = treeView())
        canvas->reveal(person);
}

void Document::chooseSelectedPicture()
{
    if (Person* const person = selectionPerson())
        list_->choosePicture(*person);
}

void Document::removeSelectedPicture()
{
    if (Person* const person = selectionPerson())
        list_->removePicture(*person);
}

void Document::editSelectedName()
{
    if (Person* const person = selectionPerson())
        list_->editNameForPerson(*person);
}

} // namespace lineara
