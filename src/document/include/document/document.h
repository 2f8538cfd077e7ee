#pragma once

#include "document/family_opening.h"
#include "document/selection.h"
#include "elements/leaf_nursery.h"
#include "elements/notifications.h"
#include "elements/random_source.h"
#include "platform/observer_list.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara {

class DocumentSaving;
class DocumentWindow;
class EditMenu;
class FamilyContent;
class FamilyInsight;
class FamilyQueue;
class ImportedFacts;
class LinkLayer;
class PersonList;
class PersonTableViewController;
class SerialQueue;
class TreeView;
class TypeAhead;
struct ReplayedChanges;

/// How a request to save ended where nothing failed.
enum class SaveEnd
{
    Written,
    FileHasChanged ///< by somebody else since it was read or written here; nothing was written
};

/// One open family file: its records, the operations that change them, the queue that changes are processed on, what
/// is selected, and its window. Main thread only.
///
/// An operation changes at once what the user sees; what follows for the family takes its turn on the queue, one
/// change after the other, undo and redo like all others.
class Document
{
public:
    using Saved = std::function<void(const Outcome<SaveEnd>&)>;

    /// Writes a family to a file that is none of its own.
    using Export = std::function<Outcome<Done>(const FamilyContent&, const Progress&)>;

    /// What becomes of the document's own file where it is not what was last read or written here.
    enum class Overwriting
    {
        AsLeft, ///< only what was left there is overwritten
        Anything
    };

    /// Name of a document that has no file yet.
    static QString defaultDraftName();

    /// Opens the file, a family file or one of another program, and assembles its window, which is not shown yet.
    /// The canvas follows as soon as the generations have been worked out on the queue.
    static Outcome<std::unique_ptr<Document>> open(const QString& path);

    /// The same for what was read already.
    static std::unique_ptr<Document> of(OpenedFamily family);

    /// A new, empty family that has no file yet.
    static std::unique_ptr<Document> create();

    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The file that the family came from or was saved to.
    const FamilyOrigin& origin() const;
    const QString& path() const { return origin().path; }
    /// False for a new family, for a copy, and for one of another program's file, which is not written to. At most one
    /// document has a file for its own; of copies there may be any number beside it.
    bool hasOwnFile() const { return origin().isOwn; }
    /// What its window calls the family.
    QString name() const;
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

    /// Finds new places for everybody within the rows, as one step, once everything queued before is done.
    void tidyUp();
    /// The same for the selected person's ancestors, or its descendants and their partners; others move only where a
    /// row has no room. Nothing without a selected person.
    void tidyAncestors();
    void tidyDescendants();

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
    bool isModified() const;

    /// Whether nodes and rows are where they belong at once, instead of moving there.
    void setReducedMotion(bool reduced);

    /// Whether the file was wrong, and what was mended when it was opened has not been written yet.
    bool isMended() const;
    /// The step of the history that the family is at; 0 before the first.
    StepId reachedStep() const;
    /// Whether work of commands waits for its turn. False before there is a canvas, when there are none.
    bool isBusy() const;

    /// Writes the family to the file, which is the document's own from then on, once everything queued before is done;
    /// `saved` is called when it is written. What the user goes on to do meanwhile is not a part of it.
    void save(const QString& path, Saved saved, Overwriting overwriting = Overwriting::AsLeft);
    /// Writes the family to another file and leaves the document as it is.
    void saveCopy(const QString& path, std::function<void(const Outcome<Done>&)> saved);
    /// Hands the family as it is, once everything queued before is done, to `write` on another thread, and tells above
    /// the family what is `doing` there. `written` is called at its end, but not if its user has given it up.
    void exportFamily(const QString& doing, Export write, std::function<void(const Outcome<Done>&)> written);
    /// Whether a file is still waiting to be written.
    bool isSaving() const;
    /// The same, and also while an export goes on, or a copy of what is unsaved is to be written or removed.
    bool isWriting() const;

    /// Unsaved changes are copied to a safe place every few seconds. This does so as soon as possible...
    void keepUnsaved();
    /// ... and this gives them up.
    void dropUnsaved();
    /// Nobody waits in front of the window any more: the engine takes the rows that it finds soon.
    void hurry();

    /// What of the document's work would be left if it went now; no value if nothing is kept.
    std::optional<LeftWork> keptWork() const;

    /// Called when the family has been saved to another file, or anew to the same.
    void setOriginObserver(std::function<void()> changed) { originObserver_ = std::move(changed); }

    /// Runs `settled` once everything queued until now has been done, and what it led to is written.
    void whenSettled(std::function<void()> settled);
    /// The same, and once all exports that were begun by now have come to their end.
    void whenExported(std::function<void()> exported);

    /// What the changes of the family take turns on.
    SerialQueue& poolProcessing() const;

private:
    friend class DocumentSaving;
    friend class FamilyQueue;

    explicit Document(OpenedFamily family);

    void assembleWindow();
    void makeList();
    void typed();
    void observe();
    Person* ownPerson(const Pool* family, RecordId person) const;
    void initTreeView();
    void aboutToClose();
    void handleOnboarding();
    void showTitle();
    void originChanged();
    void commandsChanged();
    void showCommands();

    void linkAsPartner();
    void linkAsChild();
    void chooseRelative(const QString& title, const QString& type);
    bool mayBeLinked(Person& selected, Person& other, const QString& type) const;
    Person& concernedBy(Person& from, Person& to) const;
    void removePerson(Person& person);
    void removeShape(Person& from, Person& to);
    void removeLink();
    bool isLeaving(RecordId person) const;

    void setRemovable(bool removable);
    void unfocusSelectionPerson();
    void reviseSelection();
    const LinkLayer* shapeOf(const LinkSelectionNotification::Link& link) const;

    // What the queue has done at its steps.
    void syncList();
    void refresh();
    void editNewName(RecordId id);
    void nameNewcomer(Person& person, const QString& name);
    void editSelectedName();
    void chooseSelectedPicture();
    void removeSelectedPicture();
    void selectInList(Person& person);
    void leadTo(Person& person);
    void hasJoined(RecordId person);
    void hasLeft(RecordId person);
    void deselectAfterRemoval(RecordId person);
    void showReplayed(const ReplayedChanges& changes);

    OpenedFamily family_;
    SeededRandom chance_ = SeededRandom::fromEntropy();
    LeafNursery nodes_;
    std::unique_ptr<DocumentWindow> window_;
    std::unique_ptr<TypeAhead> typeAhead_;
    std::unique_ptr<EditMenu> editMenu_;
    std::unique_ptr<FamilyInsight> insight_;
    std::unique_ptr<ImportedFacts> importedFacts_; // asked by the list
    std::unique_ptr<PersonTableViewController> personTableViewController_;
    PersonList* list_ = nullptr; // the one above, or another in its place
    Selection selection_;
    std::vector<RecordId> joining_; // added by the user, and no members until their turn comes
    std::vector<RecordId> leaving_; // removed by the user, and in the records until their turn comes
    std::vector<Subscription> subscriptions_;
    std::function<void()> originObserver_ = [] {};
    bool reducedMotion_ = false;
    bool commandsStale_ = false;
    // Come last: they are told to stop before anything that their blocks would use is gone.
    std::unique_ptr<FamilyQueue> queue_;
    std::unique_ptr<DocumentSaving> saving_;
};

} // namespace lineara
