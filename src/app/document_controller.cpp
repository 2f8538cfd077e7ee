#include "document_controller.h"

#include "bring_to_front.h"
#include "closing.h"
#include "document/document_window.h"
#include "family_tasks.h"
#include "keep_on_screen.h"
#include "opening_notices.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

QString nameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

} // namespace

DocumentController::DocumentController(Surroundings surroundings) : surroundings_(std::move(surroundings)) {}

DocumentController::~DocumentController() = default;

void DocumentController::openNew()
{
    show(Document::create());
}

void DocumentController::open(const QStringList& paths)
{
    if (std::ranges::any_of(paths, [this](const QString& path) { return isLeaving(path); })) {
        postponed_.emplace_back([this, paths] { open(paths); });
        return;
    }
    std::vector<Opening::Task> tasks;
    Aftermath aftermath;
    for (const QString& given : paths) {
        const QString path = QFileInfo(given).absoluteFilePath();
        const auto isThis = [canonical = canonicalPath(path)](const Opening::Task& task) {
            return canonicalPath(task.path) == canonical;
        };
        if (Document* const shown = documentOf(path)) {
            bringToFront(shown->window());
            continue;
        }
        if (isOnItsWay(path) || std::ranges::any_of(tasks, isThis))
            continue;
        // Before anything is done to the file: a family of an older version is brought up to date in it.
        if (auto lock = lockFamilyFile(path))
            tasks.push_back(openingTask(path, std::move(lock)));
        else
            aftermath.inUse << path;
    }
    begin(std::move(tasks), std::move(aftermath));
}

void DocumentController::openCopy(const QString& path)
{
    begin({{QString(), nameOf(path), [path](const Progress& progress) { return openFamilyCopy(path, progress); }}}, {});
}

void DocumentController::offerCopy(const QString& path)
{
    auto* const box = new QMessageBox(QMessageBox::Question, QGuiApplication::applicationDisplayName(),
                                      tr("“%1” is being worked on in another window of Lineara.").arg(nameOf(path)),
                                      QMessageBox::Cancel, windowInFront());
    box->setObjectName(QStringLiteral("openElsewhere"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(tr("A copy can be opened as it is in the file now. It is saved to a file of its own."));
    QPushButton* const copy = box->addButton(tr("Open a Copy"), QMessageBox::AcceptRole);
    box->setDefaultButton(copy);
    connect(box, &QMessageBox::finished, this, [this, box, copy, path] {
        if (box->clickedButton() == copy)
            openCopy(path);
    });
    box->open();
}

void DocumentController::recover(const LeftWork& work)
{
    if (work.isOwn && isLeaving(work.path)) {
        postponed_.emplace_back([this, work] { recover(work); });
        return;
    }
    auto copy = RecoveryCopy::adopt(work.id);
    if (!copy) {
        tell(tr("Can't Open the Family"),
             tr("The unsaved changes of “%1” are gone: they are open in another window, or were removed.")
                 .arg(work.name));
        return;
    }
    Aftermath aftermath;
    std::shared_ptr<FileLock> lock;
    Document* const shown = work.isOwn ? documentOf(work.path) : nullptr;
    if (shown && shown->hasOwnFile() && !shown->isModified()) {
        // They are changes of what that window shows.
        lock = shown->origin().lock;
        aftermath.makeRoom = [this, window = QPointer(&shown->window())] {
            if (Document* const still = documentOf(window))
                leave(*still, Unsaved::Keep);
            return true;
        };
    } else if (work.isOwn) {
        lock = lockFamilyFile(work.path);
        aftermath.isWithoutFile = !lock;
    }
    begin({recoveryTask(work, std::move(copy), std::move(lock))}, std::move(aftermath));
}

void DocumentController::revert(Document& document)
{
    if (isOnItsWay(document.path()))
        return;
    Aftermath aftermath;
    aftermath.makeRoom = [this, window = QPointer(&document.window()), step = document.reachedStep()] {
        Document* const old = documentOf(window);
        if (!old)
            return false;
        // What was changed after the command is not what the user wanted to get rid of.
        leave(*old, old->reachedStep() == step ? Unsaved::Drop : Unsaved::Keep);
        isRoomMade_ = true;
        return true;
    };
    begin({openingTask(document.path(), document.origin().lock)}, std::move(aftermath));
}

void DocumentController::begin(std::vector<Opening::Task> tasks, Aftermath aftermath)
{
    if (tasks.empty()) {
        conclude({}, aftermath);
        return;
    }
    const int number = ++lastOpening_;
    openings_[number] = std::make_unique<Opening>(
        std::move(tasks), [this, number, aftermath = std::move(aftermath)](Opening::Results results) {
            // It is still at work on what leads here.
            QTimer::singleShot(
                0, this, [this, number, aftermath, results = std::make_shared<Opening::Results>(std::move(results))] {
                    ended(number, std::move(*results), aftermath);
                });
        });
}

void DocumentController::ended(int number, Opening::Results results, const Aftermath& aftermath)
{
    // With it goes what it held: locks, and work that was to be recovered.
    if (openings_.erase(number) == 0)
        return;
    const QScopedValueRollback oneMainWindow(isRoomMade_, false);
    for (auto& opened : results) {
        if (opened.family.failed())
            continue;
        if (aftermath.makeRoom && !aftermath.makeRoom())
            continue;
        const auto obstacle = opened.family.value().obstacle;
        show(Document::of(std::move(opened.family.value())));
        isRoomMade_ = true;
        Document& made = *documents_.back();
        if (obstacle)
            tellThatOutOfDate(made, *obstacle);
        if (aftermath.isWithoutFile)
            tellThatInUse(made);
        offerLeftWork(made);
    }
    conclude(results, aftermath);
}

/// Whatever is told or asked stands before the windows that stay.
void DocumentController::conclude(const Opening::Results& results, const Aftermath& aftermath)
{
    surroundings_.ended();
    for (const auto& opened : results) {
        if (opened.family.failed())
            tellFailure(opened);
    }
    for (const QString& path : aftermath.inUse)
        offerCopy(path);
}

QWidget* DocumentController::windowInFront() const
{
    if (QMainWindow* const window = mainWindow())
        return window;
    if (!documents_.empty())
        return &documents_.back()->window();
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(
        windows, [](const QWidget* window) { return window->isVisible() && qobject_cast<const QMainWindow*>(window); });
    return shown == windows.end() ? nullptr : *shown;
}

void DocumentController::show(std::unique_ptr<Document> made)
{
    documents_.push_back(std::move(made));
    Document* const document = documents_.back().get();
    DocumentWindow& window = document->window();
    surroundings_.furnish(*document);
    track(window);
    keepOnScreen(window);
    present(*document);
    const auto used = [this, document] {
        if (!document->path().isEmpty())
            surroundings_.used(document->path());
    };
    document->setOriginObserver(used);
    used();
}

void DocumentController::present(Document& document)
{
    document.window().setCloseRequested([this, &document] { close(document); });
    bringToFront(document.window());
}

void DocumentController::track(QMainWindow& window)
{
    window.installEventFilter(this);
}

QMainWindow* DocumentController::mainWindow() const
{
    return static_cast<QMainWindow*>(mainWindow_.data());
}

bool DocumentController::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        mainWindow_ = watched;
    else if (event->type() == QEvent::Hide && watched == mainWindow_ && !event->spontaneous())
        mainWindow_ = nullptr;
    return false;
}

Document* DocumentController::documentOf(const QString& path) const
{
    const QString canonical = canonicalPath(path);
    Document* other = nullptr;
    for (const auto& open : documents_) {
        const FamilyOrigin& origin = open->origin();
        if (origin.path.isEmpty() || canonicalPath(origin.path) != canonical)
            continue;
        if (origin.isOwn)
            return open.get();
        if (!origin.isCopy || origin.isStandIn)
            other = open.get();
    }
    return other;
}

Document* DocumentController::documentOf(const QWidget* window) const
{
    const auto found =
        std::ranges::find_if(documents_, [window](const auto& open) { return &open->window() == window; });
    return found == documents_.end() ? nullptr : found->get();
}

bool DocumentController::isLeaving(const QString& path) const
{
    const QString canonical = canonicalPath(path);
    return std::ranges::any_of(leaving_, [&](const auto& leaving) {
        return leaving->hasOwnFile() && canonicalPath(leaving->path()) == canonical;
    });
}

bool DocumentController::isOnItsWay(const QString& path) const
{
    return std::ranges::any_of(openings_, [&](const auto& opening) { return opening.second->concerns(path); });
}

QMessageBox& DocumentController::tell(const QString& title, const QString& message)
{
    auto* const box = new QMessageBox(QMessageBox::Warning, title, message, QMessageBox::Ok, windowInFront());
    box->setObjectName(QStringLiteral("openingFailed"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return *box;
}

void DocumentController::tellFailure(const Opening::Result& opened)
{
    const QString& message = opened.family.failure().message;
    if (!opened.path.isEmpty() && isToBeImported(opened.path)) {
        tell(tr("Can't Import the Family"), message)
            .setInformativeText(tr("The file stays as it is. Families come in from GEDCOM files (.ged, .gdz), which "
                                   "the program that has the family can export."));
        return;
    }
    QMessageBox& box = tell(tr("Can't Open the Family"), message);
    if (opened.path.isEmpty() || !isUpdateStuck(opened.path))
        return;
    box.setInformativeText(tr("A copy that is up to date can be opened. It is saved to a file of its own."));
    QPushButton* const copy = box.addButton(tr("Open a Copy"), QMessageBox::AcceptRole);
    connect(copy, &QPushButton::clicked, this, [this, path = opened.path] { openCopy(path); });
}

/// Of a file that is not opened from its offer there may be one all the same.
void DocumentController::offerLeftWork(Document& document)
{
    if (!document.hasOwnFile())
        return;
    for (const LeftWork& work : RecoveryCopy::left()) {
        if (work.isOwn && canonicalPath(work.path) == canonicalPath(document.path()))
            document.window().offer(tr("Unsaved changes of “%1” were kept on %2.")
                                        .arg(work.name, QLocale().toString(work.changed, QLocale::ShortFormat)),
                                    tr("Open Them"), [this, work] { recover(work); });
    }
}

} // namespace lineara
