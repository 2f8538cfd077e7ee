// Prints how long the window is busy with what a family is asked: the relationship of two persons, somebody's ancestors
// and descendants, and the checks, each up to the picture. The first question after a change reads the records anew.
// Families of 10,000 and 100,000 persons whose kept records have 600 bytes each, or of the sizes given as arguments.
// Milliseconds; a window of 1400 x 900 pixels.

#include "bench_window.h"
#include "canvas/tree_view.h"
#include "document/document.h"
#include "document/document_window.h"
#include "store/family_file.h"
#include "store/made_family.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>

namespace lineara::bench {

namespace {

/// An imported record of usual length, with the lines in the usual order.
QByteArray recordOf(std::size_t person)
{
    QByteArray text = "0 @I" + QByteArray::number(static_cast<qulonglong>(person)) + "@ INDI\n1 NAME Ada /Lovelace/\n";
    text += person % 2 ? "1 SEX F\n" : "1 SEX M\n";
    for (int line = 0; line < 12; ++line)
        text += "1 OCCU Clockmaker & brewer, and teacher at a school\n";
    return text;
}

std::unique_ptr<Document> openImported(std::size_t persons)
{
    const auto family = madeFamily(persons);
    std::size_t number = 0;
    for (Person* const person : family->allPools().front()->persons()) {
        person->setSource(family->insertSource({QStringLiteral("family.ged"), 1}, recordOf(number)));
        ++number;
    }
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("family.lineara"));
    if (!saveFamilyFile(*family, path))
        std::abort();
    auto document = std::move(Document::open(path).value());
    document->window().resize(1400, 900);
    document->window().show();
    bool settled = false;
    document->whenSettled([&] { settled = true; });
    while (!settled)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    document->commit();
    QApplication::processEvents();
    return document;
}

void print(const char* what, const std::function<void()>& ask)
{
    const auto now = std::chrono::steady_clock::now;
    const auto start = now();
    ask();
    const auto asked = now();
    QApplication::processEvents();
    const auto shown = now();
    const auto milliseconds = [](auto time) { return std::chrono::duration<double, std::milli>(time).count(); };
    std::printf("  %-44s %7.1f   with the picture %7.1f\n", what, milliseconds(asked - start),
                milliseconds(shown - start));
}

QAction& command(Document& document, int at)
{
    QList<QAction*> commands = document.window().familyMenu()->actions();
    commands.removeIf([](const QAction* action) { return action->isSeparator(); });
    return *commands[at];
}

void spoilDates(Document& document)
{
    document.context().journal().begin(QStringLiteral("Spoil"));
    for (Person* const person : document.pool().persons())
        person->setDeathYear(1000);
}

void measure(std::size_t persons)
{
    enum
    {
        Ancestors = 1,
        Descendants,
        All,
        Checks
    };
    const auto document = openImported(persons);
    std::printf("%zu persons\n", persons);
    const auto& all = document->pool().persons();
    document->selectPerson(*all[persons - 1]);
    QApplication::processEvents();
    const auto compare = [&](std::size_t other) {
        Q_EMIT document->treeView()->comparisonRequested(all[other]->recordId());
    };
    print("relationship, the first time", [&] { compare(0); });
    print("relationship, again", [&] { compare(persons / 2); });
    print("ancestors", [&] { command(*document, Ancestors).trigger(); });
    document->selectPerson(*all[0]);
    QApplication::processEvents();
    print("descendants", [&] { command(*document, Descendants).trigger(); });
    print("no highlight", [&] { command(*document, All).trigger(); });
    print("checks without a finding", [&] { command(*document, Checks).trigger(); });
    command(*document, Checks).trigger();
    spoilDates(*document);
    QApplication::processEvents();
    print("checks that find everybody, the first time", [&] { command(*document, Checks).trigger(); });
    command(*document, Checks).trigger();
    print("checks that find everybody, again", [&] { command(*document, Checks).trigger(); });
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    return lineara::bench::measureFamilies(argc, argv, {10'000, 100'000}, &lineara::bench::measure);
}
