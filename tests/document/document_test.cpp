#include "document/document.h"

#include "canvas/tidying.h"
#include "canvas/tree_view.h"
#include "document/document_window.h"
#include "elements/leaf_view.h"
#include "test_files.h"

#include <QApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>

using namespace lineara;

namespace {

// Lets the document's queue run empty; false after ten seconds.
bool queueRunsEmpty(Document& document)
{
    bool settled = false;
    document.whenSettled([&] { settled = true; });
    QElapsedTimer timer;
    timer.start();
    while (!settled && timer.elapsed() < 10'000)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    return settled;
}

std::unique_ptr<Document> openDocument(const QString& path)
{
    auto opened = Document::open(path);
    EXPECT_TRUE(opened);
    return opened ? std::move(opened.value()) : nullptr;
}

std::unique_ptr<ObjectContext> settledFamily()
{
    auto family = threeGenerations();
    Pool& pool = *family->allPools().front();
    pool.process();
    giveFirstPlaces(pool);
    return family;
}

} // namespace

TEST(Document, BuildsTheCanvasOnlyAfterTheFirstProcessing)
{
    const TestFiles files;
    auto document = openDocument(files.save(QStringLiteral("family.lineara"), *threeGenerations()));
    EXPECT_EQ(document->treeView(), nullptr);
    ASSERT_TRUE(queueRunsEmpty(*document));
    ASSERT_NE(document->treeView(), nullptr);
    EXPECT_EQ(document->pool().maxGeneration(), 3);
    for (Person* person : document->pool().persons())
        EXPECT_TRUE(person->leafView()->yConstraint().has_value());
}

TEST(Document, AnEmptyFamilyShowsTheOnboardingViewAndAnyOtherDoesNot)
{
    const TestFiles files;
    auto empty = openDocument(files.save(QStringLiteral("empty.lineara"), ObjectContext()));
    ASSERT_TRUE(queueRunsEmpty(*empty));
    EXPECT_TRUE(empty->window().isOnboardingVisible());
    auto family = openDocument(files.save(QStringLiteral("family.lineara"), *threeGenerations()));
    ASSERT_TRUE(queueRunsEmpty(*family));
    EXPECT_FALSE(family->window().isOnboardingVisible());
}

TEST(Document, OpeningASettledFamilyChangesNothing)
{
    const TestFiles files;
    const auto family = settledFamily();
    const QByteArray before = textOf(*family);
    auto document = openDocument(files.save(QStringLiteral("family.lineara"), *family));
    ASSERT_TRUE(queueRunsEmpty(*document));
    EXPECT_EQ(textOf(document->context()), before);
    EXPECT_FALSE(document->context().journal().canUndo());
}

TEST(Document, AFamilyFarFromTheLeftEdgeIsTrimmedWithoutAnUndoStep)
{
    const TestFiles files;
    const auto family = settledFamily();
    Pool& pool = *family->allPools().front();
    family->shiftX(pool, -47);
    ASSERT_EQ((*std::min_element(pool.persons().begin(), pool.persons().end(),
                                 [](const Person* a, const Person* b) { return a->x() < b->x(); }))
                  ->x(),
              300);
    auto document = openDocument(files.save(QStringLiteral("family.lineara"), *family));
    ASSERT_TRUE(queueRunsEmpty(*document));
    for (Person* person : document->pool().persons())
        EXPECT_EQ(person->x(), *family->person(person->recordId())->x() - 47);
    EXPECT_FALSE(document->context().journal().canUndo());
}

TEST(Document, ClosingWhileItIsStillProcessedIsSafe)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("family.lineara"), *threeGenerations());
    for (int round = 0; round < 50; ++round) {
        auto document = openDocument(path);
        for (int event = 0; event < round % 7; ++event)
            QApplication::processEvents();
        document.reset();
        QApplication::processEvents();
    }
    auto document = openDocument(path);
    EXPECT_TRUE(queueRunsEmpty(*document));
}

TEST(Document, TwoOpenDocumentsHaveTheirOwnFamilies)
{
    const TestFiles files;
    auto first = openDocument(files.save(QStringLiteral("one.lineara"), *settledFamily()));
    auto second = openDocument(files.save(QStringLiteral("other.lineara"), *settledFamily()));
    ASSERT_TRUE(queueRunsEmpty(*first) && queueRunsEmpty(*second));
    first->context().person(RecordId{106})->setName(QStringLiteral("Renamed"));
    EXPECT_EQ(second->context().person(RecordId{106})->name(), QStringLiteral("Kid"));
}

TEST(Document, TheWindowIsNamedAfterTheFile)
{
    const TestFiles files;
    auto document = openDocument(files.save(QStringLiteral("Lee.lineara"), *threeGenerations()));
    EXPECT_EQ(document->window().windowTitle(), QStringLiteral("Lee.lineara[*]"));
    EXPECT_EQ(Document::defaultDraftName(), QStringLiteral("Lineara"));
}

TEST(Document, AnImportTellsWhatItTook)
{
    const TestFiles files;
    auto document = openDocument(files.write(QStringLiteral("lee.ged"), "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n"
                                                                        "0 @I1@ INDI\n1 NAME Ann /Lee/\n1 OCCU Baker\n"
                                                                        "0 TRLR\n"));
    QWidget* details = document->window().findChild<QWidget*>(QStringLiteral("openingDetails"));
    EXPECT_NE(details, nullptr);
}
