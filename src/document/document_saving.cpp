#include "document_saving.h"

#include "document/document_window.h"
#include "personlist/person_list.h"
#include "store/family_content.h"
#include "store/family_file.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct DocumentSavingTexts
{
    Q_DECLARE_TR_FUNCTIONS(DocumentSaving)
};

Failure openElsewhere(const QString& path)
{
    return Failure{DocumentSavingTexts::tr(
                       "“%1” can't be saved: the file is open in another window. Close it there, or save under "
                       "another name.")
                       .arg(path)};
}

/// Empty where nothing went wrong. Where the copy should lie is no concern of the user's.
QString warningOf(const Outcome<Done>& copying, const QString& family)
{
    if (!copying.failed())
        return {};
    const Failure& failure = copying.failure();
    return DocumentSavingTexts::tr(
               "Unsaved changes of “%1” would be lost in a crash, so save soon. No copy of them can be kept: %2")
        .arg(family, failure.reason.isEmpty() ? failure.message : failure.reason);
}

bool isAnotherFile(const FamilyOrigin& origin, const QString& path)
{
    return !origin.isOwn || canonicalPath(origin.path) != canonicalPath(path);
}

} // namespace

DocumentSaving::DocumentSaving(Document& document, FamilyOrigin origin)
    : document_(document), origin_(std::move(origin)), exportBar_(document.window())
{
    copyTimer_.setSingleShot(true);
    copyTimer_.setInterval(copyDelay);
    QObject::connect(&copyTimer_, &QTimer::timeout, &copyTimer_, [this] { keepCopy(); });
}

QString DocumentSaving::name() const
{
    if (origin_.path.isEmpty())
        return Document::defaultDraftName();
    const QString fileName = QFileInfo(origin_.path).fileName();
    return origin_.isCopy ? DocumentSavingTexts::tr("%1 (copy)").arg(fileName) : fileName;
}

bool DocumentSaving::isModified() const
{
    return document_.reachedStep() != savedStep_ || document_.list().typed();
}

void DocumentSaving::onceSettled(std::function<void()> work)
{
    WorkBlock block;
    block.onMainWaiting(std::move(work));
    document_.poolProcessing().enqueue(std::move(block));
}

/// Whoever writes it also lets go of it, which takes half as long as taking it: not on the main thread.
std::shared_ptr<FamilyContent> DocumentSaving::contents() const
{
    return std::make_shared<FamilyContent>(document_.context());
}

void DocumentSaving::save(const QString& path, Document::Saved saved, Document::Overwriting overwriting)
{
    auto writing = std::make_shared<std::optional<StepId>>();
    writings_.push_back(writing);
    onceSettled([this, path, saved = std::move(saved), overwriting, writing]() mutable {
        auto lock = isAnotherFile(origin_, path) ? lockFamilyFile(path) : origin_.lock;
        if (lock) {
            write(path, std::move(lock), writing, std::move(saved), overwriting);
            return;
        }
        std::erase(writings_, writing);
        saved(openElsewhere(path));
    });
}

void DocumentSaving::write(const QString& path, std::shared_ptr<FileLock> lock, const Writing& writing,
                           Document::Saved saved, Document::Overwriting overwriting)
{
    document_.commit();
    *writing = document_.reachedStep();
    // Whoever chose another file has been asked about it.
    const bool isChecked = overwriting == Document::Overwriting::AsLeft && !isAnotherFile(origin_, path);
    auto outcome = std::make_shared<Outcome<SaveEnd>>(SaveEnd::FileHasChanged);
    const auto origin = std::make_shared<FamilyOrigin>(FamilyOrigin{path, true, origin_.mark, std::move(lock)});
    WorkBlock block;
    block
        .compute(
            [content = contents(), isChecked, outcome, origin, written = written_](const std::stop_token&) mutable {
                const auto taken = std::exchange(content, nullptr);
                // A file that was removed meanwhile is made anew.
                const auto mark = FileMark::of(origin->path);
                if (isChecked && mark && mark != origin->mark && mark != *written)
                    return;
                const auto replaced = saveFamilyFile(*taken, origin->path);
                origin->mark = FileMark::of(origin->path);
                // The last thing that saving does may fail with the file in its place.
                if (replaced || origin->mark != mark)
                    *written = origin->mark;
                *outcome = replaced ? Outcome<SaveEnd>(SaveEnd::Written) : Outcome<SaveEnd>(replaced.failure());
            })
        .onMain([this, writing, outcome, origin, saved = std::move(saved)] {
            std::erase(writings_, writing);
            if (*outcome && outcome->value() == SaveEnd::Written)
                taken(*origin, *writing);
            saved(*outcome);
        });
    writer_.enqueue(std::move(block));
}

/// The file at the origin holds the step.
void DocumentSaving::taken(const FamilyOrigin& origin, std::optional<StepId> step)
{
    origin_ = origin;
    savedStep_ = step;
    isMended_ = false;
    if (!isModified())
        removeCopy();
    changed();
    document_.originChanged();
}

void DocumentSaving::saveCopy(const QString& path, std::function<void(const Outcome<Done>&)> saved)
{
    const Writing writing = std::make_shared<std::optional<StepId>>();
    writings_.push_back(writing);
    onceSettled([this, path, saved = std::move(saved), writing] {
        std::shared_ptr<FileLock> lock = lockFamilyFile(path);
        document_.commit();
        auto outcome = std::make_shared<Outcome<Done>>(openElsewhere(path));
        WorkBlock block;
        block
            .compute([path, lock, outcome, content = contents()](const std::stop_token&) mutable {
                const auto taken = std::exchange(content, nullptr);
                if (lock)
                    *outcome = saveFamilyFile(*taken, path);
            })
            .onMain([this, writing, saved, outcome] {
                std::erase(writings_, writing);
                saved(*outcome);
            });
        writer_.enqueue(std::move(block));
    });
}

void DocumentSaving::exportFamily(const QString& doing, Document::Export write,
                                  std::function<void(const Outcome<Done>&)> written)
{
    ++exports_;
    onceSettled([this, doing, write = std::move(write), written = std::move(written)] {
        document_.commit();
        const WatchedWork work;
        auto outcome = std::make_shared<Outcome<Done>>(Done{});
        WorkBlock block;
        block.onMain([this, doing, work] { exportBar_.begin(doing, work); })
            .compute([work, write, outcome, content = contents()](const std::stop_token& closing) mutable {
                const auto taken = std::exchange(content, nullptr);
                work.run(closing, [&](const Progress& progress) { *outcome = write(*taken, progress); });
            })
            .onMain([this, work, outcome, written] {
                --exports_;
                exportBar_.end();
                if (!work.isGivenUp())
                    written(*outcome);
            });
        exporter_.enqueue(std::move(block));
    });
}

void DocumentSaving::recordsChanged(const Change& change)
{
    const Journal& journal = document_.context().journal();
    const auto step = journal.undoStep();
    // The step that a file holds goes on: a drag, say, in which it was saved.
    if (step && !journal.replaying() && !std::holds_alternative<Replayed>(change)) {
        if (savedStep_ == step)
            savedStep_.reset();
        for (const Writing& writing : writings_) {
            if (*writing == step)
                writing->reset();
        }
    }
    changed();
}

void DocumentSaving::changed()
{
    if (!copyTimer_.isActive() && !isGivenUp_ && (copy_ || isModified()))
        copyTimer_.start();
}

void DocumentSaving::adopt(std::shared_ptr<RecoveryCopy> copy)
{
    copy_ = std::move(copy);
    isCopied_ = true;
    savedStep_.reset();
}

void DocumentSaving::keepCopy()
{
    copyTimer_.stop();
    const auto isTaken = std::make_shared<bool>(false);
    onceSettled([this, isTaken] {
        *isTaken = true;
        takeCopy();
    });
    // The engine may be at work for long, and what is done meanwhile must not be lost for that. Another copy follows.
    QTimer::singleShot(longestTurn, &copyTimer_, [this, isTaken] {
        if (!*isTaken)
            takeCopy();
    });
}

void DocumentSaving::takeCopy()
{
    if (isModified() && !isGivenUp_)
        writeCopy();
    else
        removeCopy();
}

void DocumentSaving::writeCopy()
{
    if (!copy_)
        copy_ = std::make_shared<RecoveryCopy>();
    auto content = contents();
    if (const auto typed = document_.list().typed())
        content->setValues(typed->person, typed->values);
    const auto outcome = std::make_shared<Outcome<Done>>(Done{});
    WorkBlock block;
    block
        .compute(
            [copy = copy_, content = std::move(content), about = about(), outcome](const std::stop_token&) mutable {
                const auto taken = std::exchange(content, nullptr);
                *outcome = copy->write(*taken, about);
            })
        .onMain([this, outcome] {
            isCopied_ = !outcome->failed();
            document_.window().showWarning(warningOf(*outcome, name()));
        });
    writer_.enqueue(std::move(block));
}

std::optional<LeftWork> DocumentSaving::keptCopy() const
{
    return copy_ && isCopied_ ? copy_->about() : std::nullopt;
}

void DocumentSaving::dropCopy()
{
    isGivenUp_ = true;
    copyTimer_.stop();
    removeCopy();
}

void DocumentSaving::removeCopy()
{
    if (!copy_)
        return;
    WorkBlock block;
    block.compute([copy = std::exchange(copy_, nullptr)](const std::stop_token&) { copy->remove(); });
    writer_.enqueue(std::move(block));
}

LeftWork DocumentSaving::about() const
{
    return {copy_->id(), name(), origin_.path, origin_.isOwn, origin_.isCopy, origin_.mark, QDateTime()};
}

void DocumentSaving::whenWritten(std::function<void()> written)
{
    onceSettled([this, written = std::move(written)]() mutable {
        WorkBlock block;
        block.onMain(std::move(written));
        writer_.enqueue(std::move(block));
    });
}

void DocumentSaving::whenExported(std::function<void()> exported)
{
    whenWritten([this, exported = std::move(exported)]() mutable {
        WorkBlock block;
        block.onMain(std::move(exported));
        exporter_.enqueue(std::move(block));
    });
}

} // namespace lineara
