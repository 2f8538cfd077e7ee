#pragma once

#include "document/family_opening.h"
#include "document/selection.h"
#include "elements/leaf_nursery.h"
#include "elements/notifications.h"
#include "elements/random_source.h"
#include "platform/observer_list.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara {

class DocumentWindow;
class EditMenu;
class FamilyQueue;
class PersonList;
class PersonTableViewController;
class SerialQueue;
class TreeView;
struct ReplayedChanges;

/// One open family file: its records, the operations that change them, the queue that changes are processed on, what
/// is selected, and its window. Main thread only.
///
/// An operation changes at once what the user sees; what follows for the family takes its turn on the queue, one
/// change after the other, undo and redo like all others.
class Document
{
public:
    /// Name of a document that has no file yet.
    static QString defaultDraftName();

    /// Opens the file, a family file or one of another program, and assembles its window, which is not shown yet.
    /// The canvas follows as soon as the generations have been worked out on the queue.
    static Outcome<std::unique_ptr<Document>> open(const QString& path);

    /// A new, empty family that has no file yet.
    static std::unique_ptr<Document> create();

    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The file that the family came from or was saved to; empty without one.
    const QString& path() const { return path_; }
    /// False for a new family, and for one of another program's file, which is not written to.
    bool hasOwnFile() const { return hasOwnFile_; }
    Pool& pool() const { return *family_.pool; }
    ObjectContext& context() const { return *family_.context; }
    DocumentWindow& window() { return *window_; }

    /// The canvas, or nullptr before the first processing has ended. Without it the operations below do nothing.
    TreeView* treeView() const;

    /// Shows another list beside the canvas than the one that the document makes for itself; it must outlive the
    /// document.
    void showList(PersonList& list);
    PersonList& list() const { return *list_; }

    /// Lets the same additions give the same places at every run.
    void setChance(const SeededRandom& chance) { chance_ = chance; }

    /// Adds a person without a name, shows it in the view and puts its name into editing.
    void addPerson();
    /// Removes the selected person with its links, or the selected link. Without a selection it works the generations
    /// out again.
    void remove();
    /// Records a link that the canvas shows already. Of another type than the two there are nothing is recorded, but
    /// generations are given all the same.
    void link(Person& from, Person& to, const QString& type);

    void selectPerson(Person& person);
    void selectLink(const LinkSelectionNotification::Link& link);
    /// Always true.
    bool deselectAll();

    const Selection& selection() const { return selection_; }
    /// "none", "person", "offspring" or "partner".
    const QString& selectionType() const { return selection_.type; }
    Person* selectionPerson() const;
    bool isRemovable() const { return selection_.isRemovable; }

    /// Take back, or make again, what the newest step of the history changed once everything queued before is done. If
    /// something else is changed meanwhile, nothing happens.
    void undo();
    void redo();

    /// Brings what is being typed and what is pending on the canvas into the records.
    void commit();

    /// Whether there is anything, what is being typed included, that is not in the file.
    bool isModified();

    /// Whether nodes and rows are where they belong at once, instead of moving there.
    void setReducedMotion(bool reduced);

    /// Writes the family to the file, which is the document's own from then on, once everything queued before is done;
    /// `saved` is called then.
    void save(const QString& path, std::function<void(const Outcome<Done>&)> saved);

    /// Whether a file is still waiting to be written.
    bool isSaving() const { return pendingSaves_ > 0; }

    /// Runs `settled` once everything queued until now has been done.
    void whenSettled(std::function<void()> settled);

    /// What the changes of the family take turns on.
    SerialQueue& poolProcessing();

private:
    friend class FamilyQueue;

    Document(QString path, OpenedFamily family);

    void assembleWindow();
    void makeList();
    void observe();
    Person* ownPerson(const Pool* family, RecordId person) const;
    void initTreeView();
    void aboutToClose();
    void handleOnboarding();
    void showTitle();
    StepId reachedStep();
    void recordsChanged();
    void commandsChanged();
    void showCommands();

    void linkAsPartner();
    void linkAsChild();
    void chooseRelative(const QString& title, const QString& type);
    bool mayBeLinked(Person& selected, Person& other, const QString& type) const;
    Person& concernedBy(Person& from, Person& to) const;
    void removePerson(Person& person);
    void removeLink();
    void removeShape(Person& from, Person& to);
    bool isLeaving(RecordId person) const;

    void setRemovable(bool removable);
    void unfocusSelectionPerson();
    void reviseSelection();

    // What the queue has done at its steps.
    void syncList();
    void refresh();
    void editNewName(Person& person);
    void editSelectedName();
    void chooseSelectedPicture();
    void removeSelectedPicture();
    void selectInList(Person& person);
    void leadTo(Person& person);
    void hasJoined(RecordId person);
    void hasLeft(RecordId person);
    void deselectAfterRemoval(RecordId person);
    void showReplayed(const ReplayedChanges& changes);

    QString path_;
    OpenedFamily family_;
    SeededRandom chance_ = SeededRandom::fromEntropy();
    LeafNursery nodes_;
    std::unique_ptr<DocumentWindow> window_;
    std::unique_ptr<EditMenu> editMenu_;
    std::unique_ptr<PersonTableViewController> personTableViewController_;
    PersonList* list_ = nullptr; // the one above, or another in its place
    Selection selection_;
    std::vector<RecordId> joining_; // added by the user, and no members until their turn comes
    std::vector<RecordId> leaving_; // removed by the user, and in the records until their turn comes
    std::vector<Subscription> subscriptions_;
    std::optional<StepId> savedStep_ = StepId(); // what the file holds; none where no undo or redo leads to that
    int pendingSaves_ = 0;
    bool reducedMotion_ = false;
    bool hasOwnFile_ = false;
    bool commandsStale_ = false;
    // Comes last: it is told to stop before anything that its blocks would use is gone.
    std::unique_ptr<FamilyQueue> queue_;
};

} // namespace lineara
