// The life of a document: how it is opened, assembled and saved.

#include "document/document.h"

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "document/application_delegate.h"
#include "document/document_window.h"
#include "edit_menu.h"
#include "family_queue.h"
#include "opening_report.h"
#include "personlist/person_table_view_controller.h"
#include "platform/notification_center.h"
#include "seen_parts.h"
#include "store/family_file.h"

#include <QFileInfo>

namespace lineara {

QString Document::defaultDraftName()
{
    return QStringLiteral("Lineara");
}

Outcome<std::unique_ptr<Document>> Document::open(const QString& path)
{
    auto family = openFamily(path);
    if (family.failed())
        return family.failure();
    return std::unique_ptr<Document>(new Document(path, std::move(family.value())));
}

std::unique_ptr<Document> Document::create()
{
    return std::unique_ptr<Document>(new Document(QString(), newFamily()));
}

Document::Document(QString path, OpenedFamily family)
    : path_(std::move(path)), family_(std::move(family)), nodes_(context(), chance_),
      window_(std::make_unique<DocumentWindow>()), hasOwnFile_(!path_.isEmpty() && !family_.importReport),
      queue_(std::make_unique<FamilyQueue>(*this))
{
    assembleWindow();
    deselectAll();
    observe();
    queue_->open();
}

Document::~Document() = default;

TreeView* Document::treeView() const
{
    return window_->canvas();
}

void Document::whenSettled(std::function<void()> settled)
{
    WorkBlock block;
    block.onMain(std::move(settled));
    poolProcessing().enqueue(std::move(block));
}

SerialQueue& Document::poolProcessing()
{
    return queue_->queue();
}

void Document::assembleWindow()
{
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
    editMenu_ = std::make_unique<EditMenu>(*window_->editMenu(), commands);
    window_->showButtons(editMenu_->mainCommands());
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
    subscriptions_.push_back(context().observe([this](const Change&) { recordsChanged(); }));
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
    const QSize frame = firstFrame(window_->width(), pool().maxGenerationSize(), pool().maxGeneration());
    syncList();
    list_->rearrangeObjects();
    window_->showCanvas(new TreeView(pool(), frame, chance_));
    if (const auto part = SeenParts::of(context().storeUuid()))
        treeView()->startAt(*part);
    treeView()->setReducedMotion(reducedMotion_);
    QObject::connect(treeView(), &TreeView::editNameRequested, treeView(), [this] { editSelectedName(); });
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
    const auto part = hasOwnFile_ && treeView() ? treeView()->seenPart() : std::nullopt;
    if (part)
        SeenParts::keep(context().storeUuid(), *part);
    if (auto* const delegate = ApplicationDelegate::shared())
        delegate->setCanRemove(false);
}

void Document::save(const QString& path, std::function<void(const Outcome<Done>&)> saved)
{
    ++pendingSaves_;
    WorkBlock block;
    block.onMainWaiting([this, path, saved = std::move(saved)] {
        --pendingSaves_;
        commit();
        const Outcome<Done> outcome = saveFamilyFile(context(), path);
        if (outcome) {
            path_ = path;
            hasOwnFile_ = true;
            savedStep_ = reachedStep();
            showTitle();
            commandsChanged();
        }
        saved(outcome);
    });
    poolProcessing().enqueue(std::move(block));
}

bool Document::isModified()
{
    commit();
    return reachedStep() != savedStep_;
}

StepId Document::reachedStep()
{
    return context().journal().undoStep().value_or(StepId());
}

void Document::recordsChanged()
{
    // The step that the file holds goes on: a drag, say, in which it was saved.
    const Journal& journal = context().journal();
    if (journal.undoStep() && journal.undoStep() == savedStep_ && !journal.replaying())
        savedStep_.reset();
    commandsChanged();
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
    const QString name = path_.isEmpty() ? defaultDraftName() : QFileInfo(path_).fileName();
    window_->setWindowTitle(name + QStringLiteral("[*]"));
    window_->setWindowFilePath(path_);
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
    window_->setWindowModified(reachedStep() != savedStep_);
}

} // namespace lineara
