#pragma once

#include "document/family_opening.h"
#include "elements/leaf_nursery.h"
#include "elements/random_source.h"
#include "platform/serial_queue.h"

#include <QString>

#include <functional>
#include <memory>

namespace lineara {

class DocumentWindow;
class TreeView;

/// One open family file: its records, the queue that its changes are processed on, and its window. Main thread only.
class Document
{
public:
    /// Name of a document that has no file yet.
    static QString defaultDraftName();

    /// Opens the file, a family file or one of another program, and assembles its window, which is not shown yet.
    /// The canvas follows as soon as the generations have been worked out on the queue.
    static Outcome<std::unique_ptr<Document>> open(const QString& path);

    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    const QString& path() const { return path_; }
    Pool& pool() const { return *family_.pool; }
    ObjectContext& context() const { return *family_.context; }
    DocumentWindow& window() { return *window_; }

    /// The canvas, or nullptr before the first processing has ended.
    TreeView* treeView() const;

    /// Runs `settled` once everything queued until now has been done.
    void whenSettled(std::function<void()> settled);

private:
    Document(QString path, OpenedFamily family);

    void assembleWindow();
    void enqueueFirstProcessing();
    void handleOnboarding();
    void initTreeView();

    // The queue comes last: it is told to stop before anything that its blocks would use is gone.
    QString path_;
    OpenedFamily family_;
    SeededRandom chance_ = SeededRandom::fromEntropy();
    LeafNursery nodes_;
    std::unique_ptr<DocumentWindow> window_;
    SerialQueue poolProcessing_;
};

} // namespace lineara
