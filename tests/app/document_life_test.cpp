// How documents come, make room for one another, and go: what is asked, and what stays.

#include "document_life.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QThread>

#include <atomic>

namespace lineara {

using testing::SizeIs;

TEST_F(DocumentLife, AFamilyOpenedFromTheStartWindowClosesThatAndTheProgramGoesOn)
{
    opened(QStringLiteral("Lee.lineara"));
    EXPECT_FALSE(program_.delegate().window().isVisible());
    EXPECT_TRUE(document().window().isVisible());
    QTest::qWait(50);
    EXPECT_EQ(count(), 1);
}

TEST_F(DocumentLife, ABrokenFileIsToldAndTheStartWindowStays)
{
    open({files_.write(QStringLiteral("broken.lineara"), "<database")});
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("openingFailed")); }));
    EXPECT_TRUE(box(QStringLiteral("openingFailed"))->text().contains(QStringLiteral("broken.lineara")));
    EXPECT_TRUE(program_.delegate().window().isVisible());
    EXPECT_EQ(count(), 0);
}

TEST_F(DocumentLife, OfAFileThatCanNotBeImportedTheBoxSpeaksOfItsImport)
{
    open({files_.write(QStringLiteral("photo.ged"), "\xFF\xD8\xFF\xE0")});
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("openingFailed")); }));
    const QMessageBox* const told = box(QStringLiteral("openingFailed"));
    EXPECT_EQ(told->windowTitle(), QStringLiteral("Can't Import the Family"));
    EXPECT_EQ(told->text(), QStringLiteral("“photo.ged” can't be imported: it is a picture, not a GEDCOM file."));
    EXPECT_TRUE(told->informativeText().contains(QStringLiteral(".gdz")));
}

TEST_F(DocumentLife, ABrokenFileLeavesTheFamilyInFrontAsItIs)
{
    Document& before = opened(QStringLiteral("Lee.lineara"));
    open({files_.write(QStringLiteral("broken.lineara"), "<database")});
    answer(QStringLiteral("openingFailed"), QMessageBox::Ok);
    EXPECT_THAT(documents().documents(), SizeIs(1));
    EXPECT_TRUE(before.window().isVisible());
}

TEST_F(DocumentLife, TheSameFileAgainShowsItsWindowAndClosesNothing)
{
    Document& first = opened(QStringLiteral("Lee.lineara"));
    rename(first, QStringLiteral("Unsaved"));
    open({first.path()});
    EXPECT_THAT(documents().documents(), SizeIs(1));
    EXPECT_EQ(&document(), &first);
    EXPECT_TRUE(first.window().isVisible());
}

TEST_F(DocumentLife, TheSameFileTwiceInOneBreathIsOpenedOnce)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    program_.delegate().open({path});
    program_.delegate().open({path});
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening(); }));
    EXPECT_THAT(documents().documents(), SizeIs(1));
    EXPECT_EQ(program_.dialog(), nullptr);
}

TEST_F(DocumentLife, FilesHandedOverTogetherStayOpenTogether)
{
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara")),
          family(QStringLiteral("three.lineara"))});
    ASSERT_THAT(documents().documents(), SizeIs(3));
    EXPECT_TRUE(
        waitUntil([this] { return document(0).treeView() && document(1).treeView() && document(2).treeView(); }));
    for (const auto& open : documents().documents())
        EXPECT_TRUE(open->window().isVisible());
    rename(document(0), QStringLiteral("Mine"));
    EXPECT_EQ(document(1).context().person({106})->name(), QStringLiteral("Kid"));
    EXPECT_FALSE(program_.delegate().window().isVisible());
}

TEST_F(DocumentLife, OnlyTheMainWindowMakesRoom)
{
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara"))});
    Hand::bringToFront(document(0).window());
    ASSERT_TRUE(waitUntil([this] { return documents().mainWindow() == &document(0).window(); }));
    open({family(QStringLiteral("three.lineara"))});
    ASSERT_THAT(documents().documents(), SizeIs(2));
    EXPECT_EQ(document(0).name(), QStringLiteral("two.lineara"));
    EXPECT_EQ(document(1).name(), QStringLiteral("three.lineara"));
}

TEST_F(DocumentLife, ClosingWithoutChangesAsksNothingAndLeadsBackToTheStartWindow)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QByteArray before = bytes(lee.path());
    const QString path = lee.path();
    lee.window().close();
    EXPECT_TRUE(isStartWindowShown());
    EXPECT_EQ(program_.dialog(), nullptr);
    EXPECT_EQ(bytes(path), before);
    EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
}

TEST_F(DocumentLife, AFamilyThatClosesIsExportedToItsEnd)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    std::atomic<bool> mayEnd = false;
    bool isExported = false;
    const auto write = [&mayEnd](const FamilyContent&, const Progress& progress) -> Outcome<Done> {
        while (!mayEnd && progress.goesOn(0.5))
            QThread::msleep(1);
        return Done{};
    };
    lee.exportFamily(QStringLiteral("Exporting"), write, [&](const Outcome<Done>&) { isExported = true; });
    lee.window().close();
    EXPECT_TRUE(isStartWindowShown());
    QTest::qWait(100);
    EXPECT_TRUE(documents().isLeaving());
    mayEnd = true;
    EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(isExported);
}

TEST_F(DocumentLife, SavingAnUnchangedFamilyDoesNotTouchItsFile)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const auto before = FileMark::of(lee.path());
    const QByteArray text = bytes(lee.path());
    int triggered = 0;
    for (QAction* const action : lee.window().fileMenu()->actions()) {
        if (action->shortcut() == QKeySequence(QKeySequence::Save)) {
            action->trigger();
            ++triggered;
        }
    }
    ASSERT_EQ(triggered, 1);
    QTest::qWait(100);
    EXPECT_EQ(FileMark::of(lee.path()), before);
    EXPECT_EQ(bytes(lee.path()), text);
}

TEST_F(DocumentLife, AClosingFamilyWithChangesCanBeSaved)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QString path = lee.path();
    rename(lee, QStringLiteral("Saved"));
    lee.window().close();
    EXPECT_TRUE(lee.window().isVisible());
    answer(QStringLiteral("closeQuestion"), QMessageBox::Save);
    EXPECT_TRUE(isStartWindowShown());
    EXPECT_TRUE(bytes(path).contains("Saved"));
    EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(RecoveryCopy::left().empty());
}

TEST_F(DocumentLife, AClosingFamilyWithChangesCanLoseThem)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QString path = lee.path();
    rename(lee, QStringLiteral("Lost"));
    lee.keepUnsaved();
    lee.window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Discard);
    EXPECT_TRUE(isStartWindowShown());
    EXPECT_FALSE(bytes(path).contains("Lost"));
    EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(RecoveryCopy::left().empty());
}

TEST_F(DocumentLife, AClosingFamilyWithChangesCanStay)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Kept"));
    lee.window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Cancel);
    QTest::qWait(50);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(lee.window().isVisible());
    EXPECT_TRUE(lee.isModified());
}

TEST_F(DocumentLife, AskingTwiceToCloseAsksOneQuestion)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Kept"));
    lee.window().close();
    lee.window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Cancel);
    QTest::qWait(50);
    EXPECT_EQ(program_.dialog(), nullptr);
}

TEST_F(DocumentLife, WhatCanNotBeSavedStaysOpenAndSaysWhy)
{
    Document& lee = opened(QStringLiteral("folder.lineara"));
    rename(lee, QStringLiteral("Kept"));
    ASSERT_TRUE(QFile::remove(lee.path()));
    ASSERT_TRUE(QDir().mkpath(lee.path() + QStringLiteral("/in the way")));
    lee.window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Save);
    ASSERT_TRUE(
        waitUntil([this] { return box(QStringLiteral("savingFailed")) || box(QStringLiteral("fileHasChanged")); }));
    if (box(QStringLiteral("fileHasChanged")))
        answer(QStringLiteral("fileHasChanged"), QStringLiteral("Save Anyway"));
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("savingFailed")); }));
    EXPECT_TRUE(box(QStringLiteral("savingFailed"))->text().contains(QStringLiteral("it is a folder")));
    answer(QStringLiteral("savingFailed"), QMessageBox::Close);
    ASSERT_EQ(count(), 1);
    EXPECT_TRUE(lee.window().isVisible());
    EXPECT_TRUE(lee.isModified());
}

TEST_F(DocumentLife, QuittingAsksForEachFamilyAndNobodyGoesIfOneStays)
{
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara"))});
    ASSERT_TRUE(waitUntil([this] { return document(0).treeView() && document(1).treeView(); }));
    rename(document(0), QStringLiteral("First"));
    rename(document(1), QStringLiteral("Second"));
    program_.delegate().quit();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Discard);
    answer(QStringLiteral("closeQuestion"), QMessageBox::Cancel);
    QTest::qWait(50);
    ASSERT_EQ(count(), 2);
    EXPECT_TRUE(document(0).isModified());
    EXPECT_TRUE(document(1).isModified());
}

TEST_F(DocumentLife, AFileInUseElsewhereIsOpenedAsACopyThatNeedsAFileOfItsOwn)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    const auto elsewhere = lockFamilyFile(path);
    open({path});
    answer(QStringLiteral("openElsewhere"), QStringLiteral("Open a Copy"));
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    EXPECT_FALSE(document().hasOwnFile());
}

TEST_F(DocumentLife, AFileInUseElsewhereCanBeLeftAlone)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    const auto elsewhere = lockFamilyFile(path);
    open({path});
    answer(QStringLiteral("openElsewhere"), QMessageBox::Cancel);
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(isStartWindowShown());
}

TEST_F(DocumentLife, RevertingOpensTheFileAgainWithoutAnyChange)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Wrong"));
    documents().revert(lee);
    ASSERT_TRUE(waitUntil([&] { return !documents().isOpening() && !documents().isLeaving(); }));
    ASSERT_THAT(documents().documents(), SizeIs(1));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Kid"));
    EXPECT_FALSE(document().isModified());
    EXPECT_TRUE(document().hasOwnFile());
    EXPECT_TRUE(RecoveryCopy::left().empty());
}

TEST_F(DocumentLife, RevertingTwiceIsRevertingOnce)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Wrong"));
    documents().revert(lee);
    documents().revert(lee);
    ASSERT_TRUE(waitUntil([&] { return !documents().isOpening() && !documents().isLeaving(); }));
    EXPECT_THAT(documents().documents(), SizeIs(1));
}

TEST_F(DocumentLife, AFamilyThatIsClosedWhileItIsRevertedStaysClosed)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    documents().revert(lee);
    documents().close(lee);
    ASSERT_TRUE(waitUntil([&] { return !documents().isOpening() && !documents().isLeaving(); }));
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(isStartWindowShown());
}

TEST_F(DocumentLife, WhatIsChangedWhileAFamilyIsRevertedIsKept)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    documents().revert(lee);
    rename(lee, QStringLiteral("Later"));
    ASSERT_TRUE(waitUntil([&] { return !documents().isOpening() && !documents().isLeaving(); }));
    ASSERT_THAT(documents().documents(), SizeIs(1));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Kid"));
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
}

TEST_F(DocumentLife, AQuestionAboutAFamilyThatMakesRoomGoesWithIt)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    lee.window().close();
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
    documents().openNew();
    EXPECT_EQ(program_.dialog(), nullptr);
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    ASSERT_EQ(count(), 1);
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
}

TEST_F(DocumentLife, RevertingOneFamilyLeavesTheOthersOpen)
{
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara"))});
    ASSERT_TRUE(waitUntil([this] { return document(0).treeView() && document(1).treeView(); }));
    Document& two = document(1);
    rename(document(0), QStringLiteral("Wrong"));
    documents().revert(document(0));
    Hand::bringToFront(two.window());
    ASSERT_TRUE(waitUntil([&] { return !documents().isOpening() && !documents().isLeaving(); }));
    ASSERT_EQ(count(), 2);
    EXPECT_TRUE(two.window().isVisible());
}

} // namespace lineara
