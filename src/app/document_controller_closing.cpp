// How documents go: after a question, at once to make room, or because the program ends.

#include "bring_to_front.h"
#include "closing.h"
#include "document/document_window.h"
#include "document_controller.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace lineara {

void DocumentController::close(Document& document)
{
    askToClose(document, [this, &document](bool mayClose) {
        if (!mayClose)
            return;
        leave(document, Unsaved::Drop);
        surroundings_.ended();
    });
}

void DocumentController::closeMainWindow()
{
    QMainWindow* const window = mainWindow();
    if (!window || isRoomMade_)
        return;
    Document* const document = documentOf(window);
    if (document)
        leave(*document, Unsaved::Keep);
    else
        window->hide();
}

void DocumentController::leave(Document& document, Unsaved unsaved)
{
    const auto at = std::ranges::find(documents_, &document, &std::unique_ptr<Document>::get);
    if (at == documents_.end())
        return;
    leaving_.push_back(std::move(*at));
    documents_.erase(at);
    document.window().leave();
    if (unsaved == Unsaved::Drop)
        document.dropUnsaved();
    else
        document.keepUnsaved();
    // Its window, or its queue, is at work on what leads here.
    const auto go = [this, &document, unsaved] {
        QTimer::singleShot(0, this, [this, &document, unsaved] { left(document, unsaved); });
    };
    // Of what nobody wants to keep, nobody waits for what the queue still works out.
    const bool isWanted = unsaved == Unsaved::Keep && (document.isModified() || document.isBusy());
    if (!isWanted && !document.isWriting()) {
        go();
        return;
    }
    document.hurry();
    document.whenExported(go);
}

void DocumentController::left(const Document& document, Unsaved unsaved)
{
    const auto at = std::ranges::find(leaving_, &document, &std::unique_ptr<Document>::get);
    std::unique_ptr<Document> gone = std::move(*at);
    leaving_.erase(at);
    const bool isUnsaved = unsaved == Unsaved::Keep && gone->isModified();
    const auto kept = isUnsaved ? gone->keptWork() : std::nullopt;
    if (isUnsaved && !kept) {
        // There is no other place where its work would be safe.
        documents_.push_back(std::move(gone));
        present(*documents_.back());
    }
    gone.reset();
    if (kept)
        offerBack(*kept);
    for (const auto& goOn : std::exchange(postponed_, {}))
        goOn();
    surroundings_.ended();
}

void DocumentController::offerBack(const LeftWork& work)
{
    if (documents_.empty())
        return;
    documents_.back()->window().offer(tr("“%1” was closed with unsaved changes, which are kept.").arg(work.name),
                                      tr("Open Them"), [this, work] { recover(work); });
}

void DocumentController::stopOpening()
{
    postponed_.clear();
    openings_.clear();
}

void DocumentController::closeAll(const std::function<void()>& closed)
{
    review({}, closed);
}

/// Nobody leaves before all have been asked: whoever cancels keeps everything. Who has changed since is asked again.
void DocumentController::review(Reviewed reviewed, const std::function<void()>& closed)
{
    const auto next = std::ranges::find_if(documents_, [&](const auto& open) {
        const auto answer = reviewed.find(open.get());
        return answer == reviewed.end() || answer->second != open->reachedStep();
    });
    if (next == documents_.end()) {
        while (!documents_.empty())
            leave(*documents_.back(), Unsaved::Drop);
        closed();
        return;
    }
    Document& document = **next;
    if (document.isModified())
        bringToFront(document.window());
    askToClose(document, [this, reviewed, closed, &document](bool mayClose) mutable {
        if (!mayClose)
            return;
        reviewed[&document] = document.reachedStep();
        review(std::move(reviewed), closed);
    });
}

void DocumentController::keepUnsaved(std::function<void()> kept)
{
    // Called when the last of those who wait for their document is gone, and that happens in any case.
    const std::shared_ptr<void> last(nullptr, [kept = std::move(kept)](void*) { kept(); });
    for (const auto& document : documents_) {
        // Before it can be worked in, nothing is unsaved but what is kept already.
        if (!document->treeView() && !document->isWriting())
            continue;
        document->keepUnsaved();
        document->hurry();
        document->whenSettled([last] {});
    }
    for (const auto& document : leaving_)
        document->whenExported([last] {});
}

} // namespace lineara
