// Prints what going back and forth through the history of a large family costs: replaying the records of a step, the
// picture that follows, and the memory of many steps; and what a key costs where a person is chosen, and where notes
// are typed. Families of 3,000, 10,000 and 100,000 persons, or of the sizes given as arguments. Milliseconds; a window
// of 1400 x 900 pixels.

#include "bench_window.h"
#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "person_chooser.h"
#include "personlist/person_list.h"
#include "platform/serial_queue.h"
#include "store/family_file.h"
#include "store/made_family.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include <malloc.h>

namespace lineara::bench {

namespace {

constexpr int rounds = 15;
constexpr int steps = 10'000;
constexpr int typingTime = 9000; // milliseconds, in which several copies are written
constexpr int keyPause = 5;      // milliseconds

double millisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double megabytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

void settle(Document& document)
{
    bool settled = false;
    document.whenSettled([&] { settled = true; });
    while (!settled)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    document.commit();
}

std::unique_ptr<Document> openMadeFamily(std::size_t persons)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("family.lineara"));
    if (!saveFamilyFile(*madeFamily(persons), path))
        std::abort();
    auto document = std::move(Document::open(path).value());
    document->window().resize(1400, 900);
    document->window().show();
    settle(*document);
    QApplication::processEvents();
    return document;
}

/// The middle and the worst of several times.
struct Times
{
    std::vector<double> all;

    void print(const char* what)
    {
        std::ranges::sort(all);
        std::printf("  %-34s median %7.2f   worst %7.2f\n", what, all[all.size() / 2], all.back());
    }
};

/// From the command to the first picture of the state that it leads to, and on until all is at rest.
void printReplay(Document& document, const char* what)
{
    Journal& journal = document.context().journal();
    Times records, picture;
    for (int round = 0; round < rounds; ++round) {
        records.all.push_back(millisecondsOf([&] { journal.undo(); }));
        records.all.push_back(millisecondsOf([&] { journal.redo(); }));
        settle(document);
        for (const auto command : {&Document::undo, &Document::redo}) {
            picture.all.push_back(millisecondsOf([&] {
                (document.*command)();
                while (document.poolProcessing().busy())
                    QApplication::processEvents();
                document.treeView()->viewport()->repaint();
            }));
            settle(document);
        }
    }
    std::printf(" %s\n", what);
    records.print("records");
    picture.print("from the command to the picture");
}

Person& member(const Document& document, std::size_t number)
{
    return *document.pool().persons()[number];
}

/// Each key of a name that is typed to choose whom to link a person to, up to the picture of who is found.
void printChoosing(Document& document)
{
    Person& linked = member(document, 0);
    const auto isAllowed = [&](Person& other) {
        return document.pool().canLink(QStringLiteral("offspring"), linked, other);
    };
    PersonChooser chooser(document.window(), QString(), document.pool(), isAllowed, [](Person&) {});
    chooser.setAttribute(Qt::WA_DeleteOnClose, false);
    chooser.show();
    auto* const search = chooser.findChild<QLineEdit*>();
    const QString name = member(document, document.pool().persons().size() / 2).name().value_or(QString());
    Times keys;
    for (int round = 0; round < rounds; ++round) {
        for (qsizetype letters = 0; letters <= name.size(); ++letters) {
            keys.all.push_back(millisecondsOf([&] {
                search->setText(name.first(letters));
                chooser.repaint();
                QApplication::processEvents();
            }));
        }
    }
    keys.print("a key where a person is chosen");
}

/// Each letter that is typed into notes, up to its picture, while what is unsaved is copied every few seconds.
void printTyping(Document& document)
{
    document.list().select(member(document, 0));
    QApplication::processEvents();
    auto* const notes = document.window().findChild<QPlainTextEdit*>();
    notes->setFocus();
    Times letters;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < typingTime) {
        letters.all.push_back(millisecondsOf([&] {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QApplication::sendEvent(notes, &key);
            QApplication::processEvents();
        }));
        QThread::msleep(keyPause);
    }
    settle(document);
    letters.print("a letter, while copies are kept");
}

/// Everybody is moved in turn to one side and the other, each time as a step of its own.
void printManySteps(ObjectContext& family)
{
    Journal& journal = family.journal();
    Pool& pool = *family.allPools().front();
    const double before = megabytesInUse();
    for (int step = 0; step < steps; ++step) {
        journal.begin(QStringLiteral("Move Person"));
        pool.persons()[0]->setX(step);
        family.shiftX(pool, step % 2 ? 7 : -7);
    }
    std::printf(" %d steps that shift everybody: %.1f MB\n", steps, megabytesInUse() - before);
}

void measure(std::size_t persons)
{
    const auto document = openMadeFamily(persons);
    std::printf("%zu persons, %.0f MB\n", persons, megabytesInUse());
    Journal& journal = document->context().journal();

    printChoosing(*document);
    printTyping(*document);

    journal.begin(QStringLiteral("Edit Name"));
    member(*document, 0).setName(QStringLiteral("Anna"));
    printReplay(*document, "a name");

    document->addPerson();
    settle(*document);
    printReplay(*document, "a new person");

    document->treeView()->connect(member(*document, 1), member(*document, 2), QStringLiteral("partner"));
    settle(*document);
    printReplay(*document, "a link that lifts everybody by a row");

    document->selectPerson(member(*document, persons / 2));
    document->remove();
    settle(*document);
    printReplay(*document, "a removal");

    journal.begin(QStringLiteral("Move Person"));
    document->context().shiftX(document->pool(), 30);
    printReplay(*document, "a shift of everybody");

    printManySteps(*madeFamily(persons));
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    return lineara::bench::measureFamilies(argc, argv, {3'000, 10'000, 100'000}, &lineara::bench::measure);
}
