#pragma once

#include "document/document.h"
#include "opening.h"

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QMainWindow;
class QMessageBox;

namespace lineara {

/// Opens and closes documents, and knows which window is the main one: that of a document, or another one that it was
/// told of, which its user worked in last. Main thread only.
class DocumentController : public QObject
{
    Q_DECLARE_TR_FUNCTIONS(DocumentController)

public:
    /// What the program around the documents does.
    struct Surroundings
    {
        /// Gives the window of a new document the commands of the whole program.
        std::function<void(Document&)> furnish;
        /// A file was opened or saved.
        std::function<void(const QString& path)> used;
        /// Something ended: an opening, or a document. What is left may be nothing.
        std::function<void()> ended;
    };

    explicit DocumentController(Surroundings surroundings);
    ~DocumentController() override;

    void openNew();
    /// Opens the files, each in a window of its own; those windows are made together, when all files are read. What was
    /// the main window by then is closed. A file that is open, other than as a copy beside it, is only shown. What
    /// can't be opened is told and changes nothing.
    void open(const QStringList& paths);
    /// Opens a family as it is in the file now, and leaves the file alone.
    void openCopy(const QString& path);
    /// Opens what was left unsaved, as unsaved changes of its file.
    void recover(const LeftWork& work);
    /// Opens the document's file again, in place of the document with all its unsaved changes.
    void revert(Document& document);

    /// Closes the document, once its user has answered what is to become of unsaved changes.
    void close(Document& document);
    /// Closes the main window at once. Unsaved changes are kept as left work.
    void closeMainWindow();
    /// Gives up what is on its way to windows.
    void stopOpening();
    /// Closes all documents, one question after the other; `closed` is called if nobody said no.
    void closeAll(const std::function<void()>& closed);
    /// Brings all unsaved changes to a safe place; `kept` is called then.
    void keepUnsaved(std::function<void()> kept);

    /// Another window that can be the main one.
    void track(QMainWindow& window);
    /// Nullptr if the one that it was is closed.
    QMainWindow* mainWindow() const;
    const std::vector<std::unique_ptr<Document>>& documents() const { return documents_; }
    /// Whether families are on their way to windows.
    bool isOpening() const { return !openings_.empty(); }
    /// Whether there are documents without a window, which go when everything of theirs is written.
    bool isLeaving() const { return !leaving_.empty(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Unsaved
    {
        Keep, ///< as left work
        Drop
    };

    /// Who may go, and at which step of its history that was said.
    using Reviewed = std::map<const Document*, StepId>;

    /// Who shows the file: whose own it is, who stands in for it, or who was made of another program's file. Copies of
    /// it are no reason not to open it.
    Document* documentOf(const QString& path) const;
    Document* documentOf(const QWidget* window) const;
    bool isLeaving(const QString& path) const;
    bool isOnItsWay(const QString& path) const;
    /// What an opening leads to beside new windows.
    struct Aftermath
    {
        /// Called once it is sure that there is a new window; false if nobody wants that any more. May be empty.
        std::function<bool()> makeRoom;
        QStringList inUse;          ///< files that somebody else works on: to be asked about
        bool isWithoutFile = false; ///< somebody else works on the file that unsaved changes belong to
    };

    void offerCopy(const QString& path);
    void begin(std::vector<Opening::Task> tasks, Aftermath aftermath);
    void ended(int number, Opening::Results results, const Aftermath& aftermath);
    void conclude(const Opening::Results& results, const Aftermath& aftermath);
    QWidget* windowInFront() const;
    void show(std::unique_ptr<Document> made);
    void present(Document& document);
    void leave(Document& document, Unsaved unsaved);
    void left(const Document& document, Unsaved unsaved);
    void offerBack(const LeftWork& work);
    void review(Reviewed reviewed, const std::function<void()>& closed);
    QMessageBox& tell(const QString& title, const QString& message);
    /// Offers a copy beside, where one can be had.
    void tellFailure(const Opening::Result& opened);
    void offerLeftWork(Document& document);

    Surroundings surroundings_;
    QPointer<QObject> mainWindow_; // no window any more while it is being destroyed
    std::vector<std::unique_ptr<Document>> documents_;
    std::vector<std::unique_ptr<Document>> leaving_;   // without a window, until all is written
    std::map<int, std::unique_ptr<Opening>> openings_; // by number, in the order of their beginning
    int lastOpening_ = 0;
    std::vector<std::function<void()>> postponed_; // until a document has left
    bool isRoomMade_ = false;                      // for all windows that are being made
};

} // namespace lineara
