#include "edited_document.h"

#include <QThread>

#include <random>

using namespace lineara;

namespace {

#ifdef LINEARA_SANITIZED
constexpr int rounds = 100;
constexpr int largeFamily = 4'000;
#else
constexpr int rounds = 1000;
constexpr int largeFamily = 200'000;
#endif

std::unique_ptr<ObjectContext> chainOf(int persons)
{
    auto family = std::make_unique<ObjectContext>();
    Pool& pool = family->insertPool();
    Person* before = nullptr;
    for (int number = 0; number < persons; ++number) {
        Person& person = family->insertPerson();
        pool.addPerson(person);
        if (before && number % 20 != 0)
            before->addChild(person);
        before = &person;
    }
    return family;
}

/// Milliseconds that closing takes the user.
qint64 closingTime(std::unique_ptr<Document>& document)
{
    QElapsedTimer timer;
    timer.start();
    document.reset();
    return timer.elapsed();
}

void runEventsFor(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QApplication::processEvents(QEventLoop::AllEvents, 1);
}

constexpr qint64 longestClosing = 100;

} // namespace

TEST(Closing, AtAnyMomentAfterARemovalIsSafe)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("family.lineara"), *threeGenerations());
    std::mt19937 random(7);
    for (int round = 0; round < rounds; ++round) {
        auto document = std::move(Document::open(path).value());
        ASSERT_TRUE(settle(*document));
        document->selectPerson(*document->context().person({102u + random() % 5u}));
        document->remove();
        for (auto event = random() % 12; event > 0; --event)
            QApplication::processEvents();
        QThread::usleep(random() % 300);
        document.reset();
    }
    runEventsFor(20);
}

TEST(Closing, WithWorkStillQueuedIsImmediate)
{
    EditedDocument edited(*threeGenerations());
    edited.hold();
    edited.addUnsettled();
    edited.document->undo();
    EXPECT_LT(closingTime(edited.document), longestClosing);
}

TEST(Closing, WhileTheEngineComputesAddsNothingToLettingGoOfTheRecords)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("large.lineara"), *chainOf(largeFamily));
    auto atRest = std::move(Document::open(path).value());
    ASSERT_TRUE(settle(*atRest));
    const qint64 usual = closingTime(atRest);
    auto computing = std::move(Document::open(path).value());
    // Takes the snapshot and lets the computation begin.
    runEventsFor(1);
    ASSERT_TRUE(computing->poolProcessing().busy());
    EXPECT_LT(closingTime(computing), usual + longestClosing);
    runEventsFor(20);
}

TEST(Closing, WhileTheQueueWaitsForTheMainThreadIsImmediate)
{
    EditedDocument edited(*threeGenerations());
    edited.click(*edited.person(104));
    edited.document->remove();
    // By now the queue waits for its first step to be run here.
    QThread::msleep(20);
    EXPECT_LT(closingTime(edited.document), longestClosing);
    runEventsFor(20);
}
