#include "personlist/person_table_view_controller.h"

#include "elements/notifications.h"
#include "model/object_context.h"
#include "multi_line_text_delegate.h"
#include "open_row.h"
#include "person_cell.h"
#include "person_list_pane.h"
#include "person_table_cell_view.h"
#include "person_table_model.h"
#include "person_table_view.h"
#include "platform/log.h"
#include "platform/main_thread.h"
#include "platform/notification_center.h"
#include "refused_dates.h"
#include "thumbnails.h"

#include <QLineEdit>

#include <algorithm>
#include <iterator>

namespace lineara {

PersonTableViewController::PersonTableViewController(Pool& pool)
    : pool_(pool), refused_(std::make_unique<RefusedEntries>())
{
    writeLog("Initializing Person List\n");
    MultiLineTextDelegate::renewShared();
    thumbnails_ = std::make_unique<Thumbnails>(pool.context(), [this] { showLater(); });
    personsArrayController_ = std::make_unique<PersonTableModel>(pool);
    RowGestures rows{[this](std::optional<int> row) { rowChosen(row); }, [this] { editSelectedName(); }};
    SearchGestures searching{[this](const QString& text) { search(text); }, [this] { choosePerson(); }};
    auto* const pane = new PersonListPane(*personsArrayController_, std::move(rows), std::move(searching));
    pane_ = pane;
    view_ = pane;
    personTableView_ = &pane->table();
    personTableView_->setItemDelegate(new PersonCell({*thumbnails_, *refused_}, pane_));
    openRow_ = std::make_unique<OpenRow>(*personTableView_, [this](RecordId person) { return makeCell(person); });
    pane_->setDisappeared([this] { commitEditing(); });
    personTableView_->setFocusChanged([this] {
        if (auto* const cell = openRow_->cell())
            cell->update();
    });
    changes_ = pool.context().observe([this](const Change& change) { observeChange(change); });
    linkSelections_ =
        NotificationCenter::defaultCenter().observe<LinkSelectionNotification>([this](const auto& selection) {
            if (selection.family == &pool_ && selection.link)
                ++linksSelected_;
        });
}

PersonTableViewController::~PersonTableViewController()
{
    // What is typed goes into the records while everything that hears of it is still there.
    commitEditing();
    delete view_;
}

QWidget& PersonTableViewController::view()
{
    return *view_;
}

PersonTableView* PersonTableViewController::personTableView() const
{
    return view_ ? personTableView_ : nullptr;
}

void PersonTableViewController::addObject(Person& person)
{
    if (!view_)
        return;
    pane_->searchField().clear();
    personsArrayController_->add(person.recordId());
}

void PersonTableViewController::removeObject(Person& person)
{
    if (!view_)
        return;
    const RowsInPlace inPlace(*personTableView_);
    leave(person.recordId());
    personsArrayController_->remove(person.recordId());
}

void PersonTableViewController::rearrangeObjects()
{
    if (!view_)
        return;
    const RowsInPlace inPlace(*personTableView_);
    personsArrayController_->rearrange();
}

void PersonTableViewController::setObjects(const std::vector<Person*>& persons)
{
    if (!view_)
        return;
    std::vector<RecordId> ids;
    std::ranges::transform(persons, std::back_inserter(ids), &Person::recordId);
    const RowsInPlace inPlace(*personTableView_);
    // The open row may be another one than the selected one, where that was not answered yet.
    for (const auto shown : {selected_, openRow_->person()}) {
        if (shown && std::ranges::find(ids, *shown) == ids.end())
            leave(*shown);
    }
    personsArrayController_->setPersons(ids, openRow_->person());
}

/// The person's row is about to go for good, which announces nothing.
void PersonTableViewController::leave(RecordId person)
{
    if (openRow_->person() == person)
        openRow_->forget();
    if (selected_ == person)
        selectRowOf(std::nullopt);
}

void PersonTableViewController::select(Person& person)
{
    if (!view_)
        return;
    const RecordId id = person.recordId();
    if (!personsArrayController_->contains(id)) {
        selectRowOf(std::nullopt);
        openRow_->close();
        return;
    }
    if (personsArrayController_->rowOf(id) < 0 && !isSearching())
        pane_->searchField().clear();
    if (selected_ != id) {
        selectRowOf(id);
        announce();
    }
    if (shownSelection())
        openSelected();
    else
        openRow_->close();
}

void PersonTableViewController::deselectAll()
{
    if (!view_)
        return;
    if (selected_) {
        selectRowOf(std::nullopt);
        announce();
    }
    openRow_->closeAtOnce();
}

void PersonTableViewController::editNameForPerson(Person& person)
{
    if (!view_ || !personsArrayController_->contains(person.recordId()))
        return;
    select(person);
    if (openRow_->person() != person.recordId())
        return;
    personTableView_->reveal(personsArrayController_->rowOf(person.recordId()));
    openRow_->cell()->editName();
}

void PersonTableViewController::editSelectedName()
{
    const auto selected = shownSelection();
    if (Person* const person = selected ? pool_.context().person(*selected) : nullptr)
        editNameForPerson(*person);
}

bool PersonTableViewController::isEditing() const
{
    if (!view_)
        return false;
    const QWidget* const focused = pane_->window()->focusWidget();
    const auto* const cell = openRow_->cell();
    return isSearching() || (focused && cell && cell->isAncestorOf(focused));
}

/// An empty search field may have the keyboard without anybody having wished for it.
bool PersonTableViewController::isSearching() const
{
    const QLineEdit& field = pane_->searchField();
    return pane_->window()->focusWidget() == &field && !field.text().isEmpty();
}

void PersonTableViewController::commitEditing()
{
    if (!view_)
        return;
    if (auto* const cell = openRow_->cell())
        cell->commit();
}

std::optional<TypedValues> PersonTableViewController::typed() const
{
    const auto* const cell = view_ ? openRow_->cell() : nullptr;
    auto values = cell ? cell->typed() : std::nullopt;
    return values ? std::optional(TypedValues{*openRow_->person(), std::move(*values)}) : std::nullopt;
}

void PersonTableViewController::findPersons()
{
    if (!view_)
        return;
    pane_->searchField().setFocus(Qt::ShortcutFocusReason);
    pane_->searchField().selectAll();
}

int PersonTableViewController::heightOfRow(int row) const
{
    return view_ && selected_ && personsArrayController_->idAt(row) == selected_ ? expandedHeight : collapsedHeight;
}

void PersonTableViewController::setReducedMotion(bool reduced)
{
    openRow_->setReducedMotion(reduced);
}

PersonTableCellView* PersonTableViewController::makeCell(RecordId person)
{
    CellSurroundings surroundings{{*thumbnails_, *refused_},
                                  *refused_,
                                  [this, person] { chosen(person); },
                                  [this] { personTableView_->setFocus(); },
                                  [this, person] { setPic(person); },
                                  [this, person] { removePic(person); },
                                  [this] { return personTableView_->hasFocus(); },
                                  [this] { typed_(); },
                                  facts_};
    return new PersonTableCellView(pool_.context(), person, std::move(surroundings));
}

void PersonTableViewController::observeChange(const Change& change)
{
    if (!view_)
        return;
    constexpr PersonAttributes notShown = PersonAttribute::Generation | PersonAttribute::X;
    const auto* const one = std::get_if<AttributesChanged>(&change);
    if (one && one->attributes.testFlag(PersonAttribute::Image))
        thumbnails_->forget(one->person.recordId());
    const bool concernsFacts = concernsFactsOfOpenRow(change);
    areFactsStale_ = areFactsStale_ || concernsFacts;
    if ((one && (one->attributes & ~notShown)) || std::holds_alternative<Replayed>(change) || concernsFacts)
        showLater();
    if (auto* const cell = openRow_->cell(); cell && one && one->person.recordId() == *openRow_->person())
        cell->refresh();
}

/// They hang on links and on which picture is shown, and name persons as long as the records of these are there. To
/// count them for each letter of a name would take its time where there are thousands.
bool PersonTableViewController::concernsFactsOfOpenRow(const Change& change) const
{
    const auto open = openRow_->person();
    const auto isOpen = [&open](const Record& record) { return record.recordId() == *open; };
    if (!open)
        return false;
    if (const auto* const link = std::get_if<LinkChanged>(&change))
        return isOpen(link->owner) || isOpen(link->member);
    if (const auto* const values = std::get_if<AttributesChanged>(&change))
        return isOpen(values->person) && values->attributes.testFlag(PersonAttribute::Image);
    if (const auto* const removed = std::get_if<RecordRemoved>(&change))
        return removed->record.entity() == Entity::Source;
    return std::holds_alternative<Replayed>(change);
}

/// Once for everything that changes in the present event.
void PersonTableViewController::showLater()
{
    if (!view_ || std::exchange(isStale_, true))
        return;
    QMetaObject::invokeMethod(
        view_,
        [this] {
            isStale_ = false;
            personsArrayController_->refresh();
            const bool areFactsStale = std::exchange(areFactsStale_, false);
            auto* const cell = openRow_->cell();
            if (cell)
                cell->refresh();
            if (cell && areFactsStale)
                cell->refreshFacts();
        },
        Qt::QueuedConnection);
}

void PersonTableViewController::rowChosen(std::optional<int> row)
{
    chosen(row ? personsArrayController_->idAt(*row) : std::nullopt);
}

/// A choice is announced even where the row was selected already, because the document may have come to select
/// something else.
void PersonTableViewController::chosen(std::optional<RecordId> person)
{
    if (selected_ != person)
        selectRowOf(person);
    announce();
}

void PersonTableViewController::selectRowOf(std::optional<RecordId> person)
{
    selected_ = person;
    showSelectedRow();
}

void PersonTableViewController::showSelectedRow()
{
    const int row = selected_ ? personsArrayController_->rowOf(*selected_) : -1;
    personTableView_->selectRow(row < 0 ? std::nullopt : std::optional(row));
}

/// Takes its turn among everything enqueued. By then another row may be selected, or the user may have gone on to a
/// link: to answer an announcement that is out of date would chase the selection to and fro.
void PersonTableViewController::announce()
{
    MainThread::post([this, alive = std::weak_ptr(alive_), person = selected_, links = linksSelected_] {
        if (!alive.expired() && selected_ == person && linksSelected_ == links)
            NotificationCenter::defaultCenter().post(selectionChangeNotification{&pool_, person});
    });
}

void PersonTableViewController::openSelected()
{
    openRow_->open(personsArrayController_->rowOf(*selected_), *selected_);
    QWidget* before = personTableView_;
    for (QWidget* const field : openRow_->cell()->fields()) {
        QWidget::setTabOrder(before, field);
        before = field;
    }
}

void PersonTableViewController::search(const QString& text)
{
    found_.reset();
    showFound(SearchWords(text));
    showSelectedRow();
    if (shownSelection() && !openRow_->person())
        openSelected();
}

void PersonTableViewController::showFound(const SearchWords& words)
{
    const RowsInPlace inPlace(*personTableView_);
    const auto open = openRow_->person();
    const Person* const opened = open ? pool_.context().person(*open) : nullptr;
    if (!opened || !words.find(*opened))
        openRow_->forget();
    personsArrayController_->search(words, openRow_->person());
}

/// Return goes through everybody who was found, one after the other.
void PersonTableViewController::choosePerson()
{
    if (personsArrayController_->rowCount() == 0)
        return;
    const int next = found_ ? personsArrayController_->rowOf(*found_) + 1 : 0;
    found_ = personsArrayController_->idAt(next % personsArrayController_->rowCount());
    if (Person* const person = pool_.context().person(*found_))
        personChosen_(*person);
}

std::optional<RecordId> PersonTableViewController::shownSelection() const
{
    return selected_ && personsArrayController_->rowOf(*selected_) >= 0 ? selected_ : std::nullopt;
}

} // namespace lineara
