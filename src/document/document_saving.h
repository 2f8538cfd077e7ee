#pragma once

#include "document/document.h"
#include "document/family_origin.h"
#include "document/recovery_copy.h"
#include "model/changes.h"
#include "platform/serial_queue.h"
#include "work_bar.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara {

/// Where a document's family is saved to, whether that has happened, and the copy that is kept until it has. Main
/// thread only; files are written on a thread of their own, one after the other.
class DocumentSaving
{
public:
    /// Milliseconds from the first unsaved change to the copy of it, and from the first change after each copy to the
    /// next one.
    static constexpr int copyDelay = 1500;
    /// Milliseconds that a copy waits for its turn on the queue. After that it is taken as the family is then.
    static constexpr int longestTurn = 1500;

    DocumentSaving(Document& document, FamilyOrigin origin);

    const FamilyOrigin& origin() const { return origin_; }
    /// What the window calls the family.
    QString name() const;

    /// Whether there is anything, what is being typed included, that is not in the file.
    bool isModified() const;
    bool isSaving() const { return !writings_.empty(); }
    bool isWriting() const { return isSaving() || writer_.busy() || exports_ > 0; }
    bool isMended() const { return isMended_; }
    /// The file does not say what the family says, although nobody changed it.
    void markMended() { isMended_ = true; }

    void save(const QString& path, Document::Saved saved, Document::Overwriting overwriting);
    void saveCopy(const QString& path, std::function<void(const Outcome<Done>&)> saved);

    void exportFamily(const QString& doing, Document::Export write, std::function<void(const Outcome<Done>&)> written);

    /// To be told of every change of a record, and of everything typed.
    void recordsChanged(const Change& change);
    void changed();

    /// What is unsaved is in the copy that is taken over: the document begins with it.
    void adopt(std::shared_ptr<RecoveryCopy> copy);
    /// Writes a copy of what is unsaved as soon as what is pending is done.
    void keepCopy();
    /// Everything unsaved is given up.
    void dropCopy();
    /// The copy of what is unsaved; no value without one, or if the last one could not be written.
    std::optional<LeftWork> keptCopy() const;

    /// Runs `written` once what is to be written by now has been.
    void whenWritten(std::function<void()> written);
    /// The same, and what is to be exported by now has been, too.
    void whenExported(std::function<void()> exported);

private:
    /// What of the history a file that is being written holds; no value where no undo or redo leads to that any more.
    using Writing = std::shared_ptr<std::optional<StepId>>;

    std::shared_ptr<FamilyContent> contents() const;
    void onceSettled(std::function<void()> work);
    void write(const QString& path, std::shared_ptr<FileLock> lock, const Writing& writing, Document::Saved saved,
               Document::Overwriting overwriting);
    void taken(const FamilyOrigin& origin, std::optional<StepId> step);
    void takeCopy();
    void writeCopy();
    void removeCopy();
    LeftWork about() const;

    Document& document_;
    FamilyOrigin origin_;
    std::optional<StepId> savedStep_ = StepId(); // what the file holds; none where no undo or redo leads to that
    std::vector<Writing> writings_;
    /// The file as it was written last, which the origin may not know yet. Touched by the writer's thread alone.
    std::shared_ptr<std::optional<FileMark>> written_ = std::make_shared<std::optional<FileMark>>();
    std::shared_ptr<RecoveryCopy> copy_; // nullptr while there was nothing to copy
    bool isMended_ = false;
    bool isGivenUp_ = false;
    bool isCopied_ = false; // what was unsaved when it was written last
    QTimer copyTimer_;
    int exports_ = 0; // asked for and not at their end yet
    WorkBar exportBar_;
    SerialQueue writer_;
    SerialQueue exporter_; // of its own, so that no long export keeps a file from being saved
};

} // namespace lineara
