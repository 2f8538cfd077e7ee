// The role of a program that edits and saves until it is killed.

#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "family_state.h"
#include "platform/serial_queue.h"
#include "reports.h"
#include "roles.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include <random>

namespace lineara::chaos {

namespace {

struct Pace
{
    int pause;     ///< milliseconds from one edit to the next
    int savesIn;   ///< one of so many edits is followed by a save
    int elsewhere; ///< one of so many saves goes to another file
};

class Editor
{
public:
    Editor(std::unique_ptr<Document> document, unsigned seed, Pace pace)
        : document_(std::move(document)), random_(seed), pace_(pace)
    {
        document_->setChance(SeededRandom(seed));
        document_->window().show();
        document_->window().activateWindow();
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { goOn(); });
        timer_.start(pace_.pause);
        QObject::connect(&opening_, &QTimer::timeout, &opening_, [this] { begin(); });
        opening_.start(10);
    }

private:
    /// What is told as "ready" comes once the family can be edited.
    void begin()
    {
        if (!document_->treeView() || document_->poolProcessing().busy())
            return;
        opening_.stop();
        tellState();
        // A change may come without a turn: nodes that come to rest, a field that settles as its row closes.
        changes_ = document_->context().observe([this](const Change&) {
            tellState();
            if (!saving_.isEmpty())
                report("also " + saving_ + ' ' + digestOf(bytesOf(document_->context())));
        });
        report("ready");
        isFree_ = true;
    }

    void goOn()
    {
        if (!isFree_)
            return;
        isFree_ = false;
        // What followed from the last one without another turn.
        tellState();
        report("step " + QByteArray::number(++step_));
        change();
        inTurn([this] { tellState(); });
        if (drawn(pace_.savesIn) == 0)
            save();
        inTurn([this] { isFree_ = true; });
    }

    void save()
    {
        const auto name = drawn(pace_.elsewhere) != 0 ? QFileInfo(document_->path()).fileName()
                          : drawn(2) == 0             ? QStringLiteral("other.lineara")
                                                      : QStringLiteral("copy.lineara");
        // Told in the turn before that of the saving itself; what changes in between is told as well.
        inTurn([this, name] {
            document_->commit();
            tellState();
            saving_ = name.toUtf8();
            report("saving " + saving_ + ' ' + digestOf(bytesOf(document_->context())));
        });
        const auto tell = [name](const auto& outcome) { report((outcome ? "saved " : "refused ") + name.toUtf8()); };
        const auto path = QFileInfo(document_->path()).path() + u'/' + name;
        if (name == u"copy.lineara")
            document_->saveCopy(path, tell);
        else
            document_->save(path, tell, Document::Overwriting::Anything);
        inTurn([this] { saving_.clear(); });
    }

    void change()
    {
        switch (drawn(10)) {
        case 0:
            return document_->addPerson();
        case 1:
        case 2:
            return link();
        case 3:
            return rename();
        case 4:
            return remove();
        case 5:
            return document_->undo();
        case 6:
            return document_->redo();
        default:
            return type();
        }
    }

    void link()
    {
        auto& from = somebody();
        document_->treeView()->connect(from, somebody(), (drawn(2) == 0 ? partnerLink : offspringLink).toString());
    }

    void rename()
    {
        document_->context().journal().begin(QStringLiteral("Edit Name"));
        somebody().setName(QStringLiteral("Renamed in step %1").arg(step_));
    }

    void remove()
    {
        if (document_->pool().persons().size() < 10)
            return document_->addPerson();
        document_->selectPerson(somebody());
        document_->remove();
    }

    /// Leaves what is typed in the field.
    void type()
    {
        if (drawn(4) == 0)
            document_->selectPerson(somebody());
        const auto fields = document_->list().view().findChildren<QWidget*>();
        for (auto* const field : fields) {
            const bool isName = qobject_cast<QLineEdit*>(field) && field->objectName() == u"name";
            const bool isNotes = qobject_cast<QPlainTextEdit*>(field);
            if (!field->isVisible() || !(drawn(2) == 0 ? isName : isNotes))
                continue;
            field->setFocus();
            return QTest::keyClicks(field, QStringLiteral(" t%1").arg(step_));
        }
    }

    Person& somebody()
    {
        const auto persons = document_->context().allPersons();
        return *persons[static_cast<std::size_t>(drawn(static_cast<int>(persons.size())))];
    }

    int drawn(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }

    void tellState()
    {
        report("state " + QByteArray::number(step_) + ' ' + stateOf(document_->context(), document_->list().typed()));
    }

    void inTurn(std::function<void()> work)
    {
        WorkBlock block;
        block.onMainWaiting(std::move(work));
        document_->poolProcessing().enqueue(std::move(block));
    }

    std::unique_ptr<Document> document_;
    std::mt19937 random_;
    Pace pace_;
    int step_ = 0;
    bool isFree_ = false;
    QByteArray saving_; ///< the file whose turn to be saved is next; empty without one
    Subscription changes_;
    QTimer timer_;
    QTimer opening_;
};

} // namespace

int edit(const QStringList& words)
{
    auto document = Document::open(words.value(0));
    if (document.failed())
        return 1;
    const Pace pace = words.value(2) == u"storm" ? Pace{5, 1, 6} : Pace{100, 25, 3};
    const Editor editor(std::move(document.value()), words.value(1).toUInt(), pace);
    return QApplication::exec();
}

} // namespace lineara::chaos
