#pragma once

#include "model/changes.h"
#include "model/record.h"
#include "personlist/further_facts.h"
#include "personlist/person_list.h"
#include "platform/observer_list.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace lineara {

class OpenRow;
class PersonListPane;
class PersonTableCellView;
class PersonTableModel;
class PersonTableView;
class Pool;
class RefusedEntries;
class SearchWords;
class Thumbnails;

/// The list of a family's persons, the oldest generation on top, with a search field above it. The selected row opens
/// and becomes an editor. Main thread only.
///
/// Which row is selected is announced by a selectionChangeNotification, whoever selected it; it opens when the document
/// answers with select(). An announcement whose row is no longer the selected one by the time of delivery is dropped.
class PersonTableViewController : public PersonList
{
public:
    /// The pool must outlive the list. Who is in the list is said by addObject(), removeObject() and setObjects().
    explicit PersonTableViewController(Pool& pool);
    ~PersonTableViewController() override;
    PersonTableViewController(const PersonTableViewController&) = delete;
    PersonTableViewController& operator=(const PersonTableViewController&) = delete;

    /// Whoever takes the view over may destroy it first; the operations do nothing from then on.
    QWidget& view() override;
    /// Nullptr once the view is gone.
    PersonTableView* personTableView() const;
    /// Who stands in the list, arranged as the rows of the table.
    PersonTableModel& personsArrayController() const { return *personsArrayController_; }

    /// Ends a search, so that the newcomer is seen.
    void addObject(Person& person) override;
    void removeObject(Person& person) override;
    void rearrangeObjects() override;
    void setObjects(const std::vector<Person*>& persons) override;

    /// A search that does not find the person is ended, unless something is being typed into it: then the row opens
    /// once the search is. Who is not in the list leaves it without a selected row.
    void select(Person& person) override;
    void deselectAll() override;
    /// Selects the person's row if it is not. Nothing is edited if the row can't be shown.
    void editNameForPerson(Person& person) override;
    bool isEditing() const override;
    void commitEditing() override;
    std::optional<TypedValues> typed() const override;
    void setTypedObserver(std::function<void()> typed) override { typed_ = std::move(typed); }
    void findPersons() override;
    void choosePicture(Person& person) override;
    void removePicture(Person& person) override;

    /// 421 points for the selected row, 49 for any other.
    int heightOfRow(int row) const;

    /// Called when the user has searched for a person and presses Return.
    void setPersonChosen(std::function<void(Person&)> chosen) { personChosen_ = std::move(chosen); }
    /// Where the open row finds further facts about its person.
    void setFurtherFacts(FurtherFacts facts) { facts_ = std::move(facts); }
    /// With reduced motion, rows open and close at once.
    void setReducedMotion(bool reduced);

private:
    PersonTableCellView* makeCell(RecordId person);
    void observeChange(const Change& change);
    bool concernsFactsOfOpenRow(const Change& change) const;
    void showLater();
    void rowChosen(std::optional<int> row);
    void chosen(std::optional<RecordId> person);
    void selectRowOf(std::optional<RecordId> person);
    void showSelectedRow();
    void announce();
    void openSelected();
    void leave(RecordId person);
    void setPic(RecordId person);
    void takePic(RecordId person, const QString& file);
    void removePic(RecordId person);
    void editSelectedName();
    bool isSearching() const;
    void search(const QString& text);
    void showFound(const SearchWords& words);
    void choosePerson();
    /// The selected person, if the search shows it.
    std::optional<RecordId> shownSelection() const;

    Pool& pool_;
    std::unique_ptr<PersonTableModel> personsArrayController_;
    std::unique_ptr<Thumbnails> thumbnails_;
    std::unique_ptr<RefusedEntries> refused_;
    QPointer<QWidget> view_;
    // Parts of the view, which go with it.
    PersonListPane* pane_ = nullptr;
    PersonTableView* personTableView_ = nullptr;
    std::unique_ptr<OpenRow> openRow_;
    std::optional<RecordId> selected_; // may be hidden by a search
    std::optional<RecordId> found_;    // whom the search has come to
    int linksSelected_ = 0;            // how often the user selected a link
    bool isStale_ = false;
    bool areFactsStale_ = false; // the count in the open row
    std::function<void(Person&)> personChosen_ = [](Person&) {};
    std::function<void()> typed_ = [] {};
    FurtherFacts facts_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    Subscription changes_;
    Subscription linkSelections_;
};

} // namespace lineara
