// Linking by keyboard: the selected person, and one that is picked from a list.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "link_generations.h"
#include "person_chooser.h"

#include <QCoreApplication>

namespace lineara {

namespace {

struct LinkEnds
{
    Person& from;
    Person& to;
};

LinkEnds linkEnds(QStringView type, Person& selected, Person& other)
{
    return type == offspringLink ? LinkEnds{other, selected} : LinkEnds{selected, other};
}

} // namespace

void Document::linkAsPartner()
{
    chooseRelative(QCoreApplication::translate("Document", "Link as Partner of"), partnerLink.toString());
}

void Document::linkAsChild()
{
    chooseRelative(QCoreApplication::translate("Document", "Link as Child of"), offspringLink.toString());
}

void Document::chooseRelative(const QString& title, const QString& type)
{
    Person* const selected = selectionPerson();
    if (!treeView() || !selected || isLeaving(selected->recordId()))
        return;
    // The dialog does not block: by the time of the choice the selected person may be gone.
    const RecordId id = selected->recordId();
    const auto isAllowed = [this, id, type](Person& other) {
        Person* const person = context().person(id);
        return person && mayBeLinked(*person, other, type);
    };
    const auto chosen = [this, id, type](Person& other) {
        const auto [from, to] = linkEnds(type, *context().person(id), other);
        treeView()->connect(from, to, type);
    };
    auto* const chooser = new PersonChooser(*window_, title, pool(), isAllowed, chosen);
    chooser->open();
}

/// The selected one of two who were linked; otherwise the one who comes to the other.
Person& Document::concernedBy(Person& from, Person& to) const
{
    if (selectionPerson() == &from || selectionPerson() == &to)
        return *selectionPerson();
    return to.generation() && !from.generation() ? from : to;
}

bool Document::mayBeLinked(Person& selected, Person& other, const QString& type) const
{
    if (isLeaving(selected.recordId()) || isLeaving(other.recordId()))
        return false;
    const auto [from, to] = linkEnds(type, selected, other);
    return !isLinked(from, to, type) && pool().canLink(type, from, to);
}

} // namespace lineara
