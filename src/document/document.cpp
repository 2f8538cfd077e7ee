// The life of a document: how it is opened, assembled and saved.

#include "document/document.h"

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "document/application_delegate.h"
#include "document/document_window.h"
#include "document_saving.h"
#include "edit_menu.h"
#include "family_insight.h"
#include "family_queue.h"
#include "interchange/further_facts.h"
#include "opening_report.h"
#include "personlist/person_table_view_controller.h"
#include "platform/notification_center.h"
#include "seen_parts.h"
#include "type_ahead.h"

#include <QCoreApplication>

#include <utility>

namespace lineara {

namespace {

struct DocumentTexts
{
    Q_DECLARE_TR_FUNCTIONS(Document)
};

} // namespace

QString Document::defaultDraftName()
{
    return QStringLiteral("Lineara");
}

Outcome<std::unique_ptr<Document>> Document::open(const QString& path)
{
    auto lock = lockFamilyFile(path);
    if (!lock)
        return Failure{DocumentTexts::tr("“%1” can't be opened: it is open in another window already.").arg(path)};
    auto family = openFamily(path);
    if (family.failed())
        return family.failure();
    family.value().origin.lock = std::move(lock);
    return of(std::move(family.value()));
}

std::unique_ptr<Document> Document::of(OpenedFamily family)
{
    return std::unique_ptr<Document>(new Document(std::move(family)));
}

std::unique_ptr<Document> Document::create()
{
    return of(newFamily());
}

Document::Document(OpenedFamily family)
    : family_(std::move(family)), nodes_(context(), chance_), window_(std::make_unique<DocumentWindow>()),
      typeAhead_(std::make_unique<TypeAhead>(*window_)), queue_(std::make_unique<FamilyQueue>(*this)),
      saving_(std::make_unique<DocumentSaving>(*this, std::move(family_.origin)))
{
    if (!family_.repairs.isEmpty())
        saving_->markMended();
    assembleWindow();
    if (family_.unsaved)
        saving_->adopt(std::move(family_.unsaved));
    deselectAll();
    observe();
    queue_->open();
}

Document::~Document()
{
    // An input method may settle what it holds as late as when the fields go.
    list_->setTypedObserver([] {});
}

TreeView* Document::treeView() const
{
    return window_->canvas();
}

SerialQueue& Document::poolProcessing() const
{
    return queue_->queue();
}

void Document::assembleWindow()
{
    if (auto* const delegate = ApplicationDelegate::shared())
        delegate->closeMainWindow();
    showTitle();
    if (const auto report = openingReport(family_))
        window_->showOpeningReport(report->summary, report->details);
    EditCommands commands;
    commands.undo = [this] { undo(); };
    commands.redo = [this] { redo(); };
    commands.addPerson = [this] { addPerson(); };
    commands.remove = [this] { remove(); };
    commands.editName = [this] { editSelectedName(); };
    commands.setPicture = [this] { chooseSelectedPicture(); };
    commands.removePicture = [this] { removeSelectedPicture(); };
    commands.linkAsPartner = [this] { linkAsPartner(); };
    commands.linkAsChild = [this] { linkAsChild(); };
    commands.find = [this] { list_->findPersons(); };
    commands.tidyUp = [this] { tidyUp(); };
    commands.tidyAncestors = [this] { tidyAncestors(); };
    commands.tidyDescendants = [this] { tidyDescendants(); };
    editMenu_ = std::make_unique<EditMenu>(*window_->editMenu(), *window_->personMenu(), commands);
    insight_ = std::make_unique<FamilyInsight>(*this);
    window_->showButtons(editMenu_->mainCommands());
    window_->setAddPerson(editMenu_->addPersonCommand());
    makeList();
    window_->setAboutToClose([this] { aboutToClose(); });
    window_->setActivated([this] {
        if (auto* const delegate = ApplicationDelegate::shared())
            delegate->setCanRemove(isRemovable());
    });
}

void Document::observe()
{
    auto& center = NotificationCenter::defaultCenter();
    subscriptions_.push_back(center.observe<PersonClickedNotification>([this](const auto& clicked) {
        if (Person* const person = ownPerson(clicked.family, clicked.person))
            selectPerson(*person);
    }));
    subscriptions_.push_back(center.observe<selectionChangeNotification>([this](const auto& change) {
        if (change.family != &pool())
            return;
        if (!change.person)
            deselectAll();
        else if (Person* const person = context().person(*change.person))
            selectInList(*person);
    }));
    subscriptions_.push_back(center.observe<LinkSelectionNotification>([this](const auto& selected) {
        if (selected.family != &pool())
            return;
        if (selected.link)
            selectLink(*selected.link);
        else
            deselectAll();
    }));
    subscriptions_.push_back(center.observe<createLinkNotification>([this](const auto& created) {
        Person* const from = ownPerson(created.family, created.from);
        Person* const to = ownPerson(created.family, created.to);
        if (from && to)
            link(*from, *to, created.type);
    }));
    subscriptions_.push_back(context().observe([this](const Change& change) {
        saving_->recordsChanged(change);
        commandsChanged();
    }));
}

Person* Document::ownPerson(const Pool* family, RecordId person) const
{
    return family == &pool() ? context().person(person) : nullptr;
}

void Document::handleOnboarding()
{
    // Who has just been added is seen already, but joins the pool only in turn.
    window_->setOnboardingVisible(pool().persons().empty() && joining_.empty());
}

void Document::initTreeView()
{
    const auto frameFor = [this](int viewWidth) {
        return firstFrame(viewWidth, pool().maxGenerationSize(), pool().maxGeneration());
    };
    const QSize frame = frameFor(window_->roomForCanvas(frameFor(0).height()));
    syncList();
    list_->rearrangeObjects();
    window_->showCanvas(new TreeView(pool(), frame, chance_));
    if (const auto part = SeenParts::of(context().storeUuid()))
        treeView()->startAt(*part);
    treeView()->setReducedMotion(reducedMotion_);
    QObject::connect(treeView(), &TreeView::editNameRequested, treeView(), [this] { editSelectedName(); });
    insight_->canvasShown();
    commandsChanged();
}

void Document::commit()
{
    list_->commitEditing();
    if (TreeView* const canvas = treeView())
        canvas->settle();
}

void Document::aboutToClose()
{
    commit();
    const auto part = hasOwnFile() && treeView() ? treeView()->seenPart() : std::nullopt;
    if (part)
        SeenParts::keep(context().storeUuid(), *part);
    if (auto* const delegate = ApplicationDelegate::shared())
        delegate->setCanRemove(false);
}

const FamilyOrigin& Document::origin() const
{
    return saving_->origin();
}

QString Document::name() const
{
    return saving_->name();
}

bool Document::isModified() const
{
    return saving_->isModified();
}

void Document::save(const QString& path, Saved saved, Overwriting overwriting)
{
    saving_->save(path, std::move(saved), overwriting);
}

void Document::saveCopy(const QString& path, std::function<void(const Outcome<Done>&)> saved)
{
    saving_->saveCopy(path, std::move(saved));
}

void Document::exportFamily(const QString& doing, Export write, std::function<void(const Outcome<Done>&)> written)
{
    saving_->exportFamily(doing, std::move(write), std::move(written));
}

bool Document::isMended() const
{
    return saving_->isMended();
}

StepId Document::reachedStep() const
{
    return context().journal().undoStep().value_or(StepId());
}

bool Document::isBusy() const
{
    return treeView() && poolProcessing().busy();
}

bool Document::isWriting() const
{
    return saving_->isWriting();
}

bool Document::isSaving() const
{
    return saving_->isSaving();
}

void Document::keepUnsaved()
{
    saving_->keepCopy();
}

void Document::dropUnsaved()
{
    saving_->dropCopy();
}

void Document::hurry()
{
    queue_->hurry();
}

void Document::whenSettled(std::function<void()> settled)
{
    saving_->whenWritten(std::move(settled));
}

void Document::whenExported(std::function<void()> exported)
{
    saving_->whenExported(std::move(exported));
}

std::optional<LeftWork> Document::keptWork() const
{
    return saving_->keptCopy();
}

void Document::originChanged()
{
    showTitle();
    commandsChanged();
    originObserver_();
}

void Document::setReducedMotion(bool reduced)
{
    reducedMotion_ = reduced;
    if (personTableViewController_)
        personTableViewController_->setReducedMotion(reduced);
    if (TreeView* const canvas = treeView())
        canvas->setReducedMotion(reduced);
}

void Document::showTitle()
{
    window_->setWindowTitle(name() + QStringLiteral("[*]"));
    window_->setWindowFilePath(path());
}

void Document::commandsChanged()
{
    if (std::exchange(commandsStale_, true))
        return;
    // Once for all changes of the present event, however many there are.
    QMetaObject::invokeMethod(
        window_.get(), [this] { showCommands(); }, Qt::QueuedConnection);
}

void Document::showCommands()
{
    commandsStale_ = false;
    const Journal& journal = context().journal();
    EditState state;
    state.canEdit = treeView() != nullptr;
    if (journal.canUndo())
        state.undoName = journal.undoName();
    if (journal.canRedo())
        state.redoName = journal.redoName();
    state.selectionType = selection_.type;
    state.canRemove = selection_.isRemovable;
    const Person* const person = selectionPerson();
    state.hasPicture = person && person->image();
    editMenu_->show(state);
    insight_->showCommands();
    window_->setWindowModified(isModified());
}

} // namespace lineara
