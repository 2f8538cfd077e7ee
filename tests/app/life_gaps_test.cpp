// What may happen to a family at the very moment at which it, or another one, goes.

#include "document_life.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>

namespace lineara {

using testing::SizeIs;

namespace {

void choose(const QMenu& menu, const QString& name)
{
    for (QAction* const action : menu.actions()) {
        if (QString(action->text()).remove(QLatin1Char('&')).startsWith(name)) {
            action->trigger();
            return;
        }
    }
}

/// Nothing lies on it, and it has found its place in the window.
bool isReachable(QWidget& button)
{
    const QPoint place = OpenedProgram::at(button);
    QTest::qWait(50);
    return place == OpenedProgram::at(button) && QApplication::widgetAt(place) == &button;
}

} // namespace

TEST_F(DocumentLife, WhatIsChangedWhileQuittingAsksAboutAnotherFamilyIsNotLost)
{
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara"))});
    ASSERT_TRUE(waitUntil([this] { return document(0).treeView() && document(1).treeView(); }));
    rename(document(1), QStringLiteral("Second"));
    program_.delegate().quit();
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
    rename(document(0), QStringLiteral("Meanwhile"));
    answer(QStringLiteral("closeQuestion"), QMessageBox::Discard);
    EXPECT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
    EXPECT_EQ(count(), 2);
}

TEST_F(DocumentLife, AnUndoThatWaitsForItsTurnIsAChange)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Saved"));
    choose(*lee.window().fileMenu(), QStringLiteral("Save"));
    ASSERT_TRUE(waitUntil([&] { return !lee.isSaving() && !lee.isModified(); }));
    lee.poolProcessing().setHeld(true);
    lee.undo();
    lee.window().close();
    lee.poolProcessing().setHeld(false);
    EXPECT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
}

TEST_F(DocumentLife, AWindowClosedWithoutChangesGoesAtOnceAndComesBackAsItWas)
{
    QSettings().remove(QStringLiteral("documentWindow"));
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    lee.poolProcessing().setHeld(true);
    lee.window().close();
    EXPECT_FALSE(lee.window().isVisible());
    EXPECT_FALSE(QSettings().value(QStringLiteral("documentWindow/geometry")).toByteArray().isEmpty());
    lee.poolProcessing().setHeld(false);
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
}

TEST_F(DocumentLife, TheSameFileTwiceInOneListIsOpenedOnce)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    open({path, path});
    EXPECT_THAT(documents().documents(), SizeIs(1));
    EXPECT_EQ(program_.dialog(), nullptr);
}

TEST_F(DocumentLife, SavingRightAfterSavingUnderAnotherNameLeavesTheFirstFileAlone)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QString path = lee.path();
    const QByteArray before = bytes(path);
    rename(lee, QStringLiteral("Ann"));
    lee.poolProcessing().setHeld(true);
    lee.save(
        files_.path(QStringLiteral("new.lineara")), [](const auto&) {}, Document::Overwriting::Anything);
    choose(*lee.window().fileMenu(), QStringLiteral("Save"));
    if (QDialog* const dialog = program_.dialog())
        dialog->reject();
    lee.poolProcessing().setHeld(false);
    ASSERT_TRUE(waitUntil([&] { return !lee.isSaving(); }));
    QTest::qWait(100);
    EXPECT_EQ(bytes(path), before);
    EXPECT_EQ(lee.name(), QStringLiteral("new.lineara"));
}

TEST_F(DocumentLife, WhatWaitsForAFamilyToGoDoesNotComeLongAfterItHasStayed)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QString path = lee.path();
    rename(lee, QStringLiteral("Ann"));
    makeKeepingImpossible();
    lee.poolProcessing().setHeld(true);
    documents().openNew();
    program_.delegate().open({path, family(QStringLiteral("two.lineara"))});
    lee.poolProcessing().setHeld(false);
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(waitUntil([this] {
        return std::ranges::any_of(documents().documents(),
                                   [](const auto& open) { return open->name() == QStringLiteral("two.lineara"); });
    }));
}

TEST_F(DocumentLife, AFamilySavedUnderTheNameOfAnotherProgramsFileOpensAgain)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QByteArray text = bytes(lee.path());
    open({files_.write(QStringLiteral("Lee.ged"), text)});
    EXPECT_EQ(box(QStringLiteral("openingFailed")), nullptr);
    EXPECT_EQ(document(count() - 1).name(), QStringLiteral("Lee.ged"));
}

TEST_F(DocumentLife, AQuestionAboutAFileOutlivesTheWindowInFrontOfWhichItWasAsked)
{
    opened(QStringLiteral("Lee.lineara"));
    const QString busy = family(QStringLiteral("busy.lineara"));
    const auto elsewhere = lockFamilyFile(busy);
    open({family(QStringLiteral("good.lineara")), busy});
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    QTest::qWait(50);
    EXPECT_FALSE(program_.delegate().window().isVisible());
    EXPECT_NE(box(QStringLiteral("openElsewhere")), nullptr);
}

TEST_F(DocumentLife, AFamilyThatIsToCloseOnceItIsSavedMayMakeRoomMeanwhile)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Saved"));
    lee.poolProcessing().setHeld(true);
    choose(*lee.window().fileMenu(), QStringLiteral("Save"));
    lee.window().close();
    documents().openNew();
    lee.poolProcessing().setHeld(false);
    QTest::qWait(300);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(document().name(), QStringLiteral("Lineara"));
}

TEST_F(DocumentLife, KeepingEverythingEndsThoughAFamilyGoesMeanwhile)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    const auto isKept = std::make_shared<bool>(false);
    lee.poolProcessing().setHeld(true);
    documents().openNew();
    ASSERT_TRUE(documents().isLeaving());
    documents().keepUnsaved([isKept] { *isKept = true; });
    QTest::qWait(50);
    EXPECT_FALSE(*isKept);
    lee.poolProcessing().setHeld(false);
    EXPECT_TRUE(waitUntil([isKept] { return *isKept; }));
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
}

TEST_F(DocumentLife, LeftWorkThatCouldNotBeOpenedIsStillOffered)
{
    leftWork(QStringLiteral("Lee.lineara"));
    document().window().close();
    ASSERT_TRUE(isStartWindowShown());
    StartWindow& start = program_.delegate().window();
    const auto button = [&] { return start.findChild<QPushButton*>(QStringLiteral("recoverButton")); };
    ASSERT_TRUE(waitUntil([&] { return !documents().isLeaving() && button() && button()->isVisible(); }));
    const QString copy = RecoveryCopy::left().at(0).id;
    QFile file(RecoveryCopy::adopt(copy)->familyPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<database");
    file.close();
    button()->click();
    answer(QStringLiteral("openingFailed"), QMessageBox::Ok);
    QTest::qWait(100);
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
    EXPECT_TRUE(button() && button()->isVisible());
}

TEST_F(DocumentLife, LeftWorkBelongsToItsFileThoughThatIsOpen)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    open({path});
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving() && document(count() - 1).treeView(); }));
    documents().recover(RecoveryCopy::left().at(0));
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && !documents().isLeaving(); }));
    EXPECT_EQ(document(count() - 1).context().person({106})->name(), QStringLiteral("Ann"));
    EXPECT_TRUE(document(count() - 1).hasOwnFile());
}

TEST_F(DocumentLife, AQuestionThatGoesWithItsWindowLeadsToAnOfferInTheNewOne)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    program_.delegate().open({family(QStringLiteral("two.lineara"))});
    lee.window().close();
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("closeQuestion")); }));
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && !documents().isLeaving(); }));
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(document().name(), QStringLiteral("two.lineara"));
    EXPECT_EQ(program_.dialog(), nullptr);
    auto* const openThem = document().window().findChild<QPushButton*>(QStringLiteral("noticeCommand"));
    ASSERT_TRUE(openThem);
    Hand::bringToFront(document().window());
    ASSERT_TRUE(waitUntil([&] { return document().treeView() && isReachable(*openThem); }));
    Hand::click(OpenedProgram::at(*openThem));
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().name() == QStringLiteral("Lee.lineara"); }));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Ann"));
    EXPECT_TRUE(document().isModified());
}

TEST_F(DocumentLife, GivingUpWhatIsOpenedDoesNotTouchWhatIsOpen)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    program_.delegate().open({family(QStringLiteral("two.lineara"))});
    documents().stopOpening();
    EXPECT_FALSE(documents().isOpening());
    QTest::qWait(100);
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(&document(), &lee);
}

} // namespace lineara
