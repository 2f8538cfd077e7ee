// What is left of a family that made room, and how it is had back.

#include "document_life.h"

#include <QTest>

namespace lineara {

using testing::SizeIs;

TEST_F(DocumentLife, WhatMadeRoomWithChangesIsOfferedByTheNextStart)
{
    leftWork(QStringLiteral("Lee.lineara"));
    const auto left = RecoveryCopy::left();
    ASSERT_THAT(left, SizeIs(1));
    EXPECT_EQ(left[0].name, QStringLiteral("Lee.lineara"));
    documents().recover(left[0]);
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && count() == 1 && document().treeView(); }));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Ann"));
    EXPECT_EQ(document().name(), QStringLiteral("Lee.lineara"));
    EXPECT_TRUE(document().isModified());
    EXPECT_TRUE(document().hasOwnFile());
    // Nobody else is offered what is open now.
    EXPECT_TRUE(RecoveryCopy::left().empty());
}

TEST_F(DocumentLife, WhatWasRecoveredIsKeptUntilItIsSaved)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    documents().recover(RecoveryCopy::left().at(0));
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && count() == 1 && document().treeView(); }));
    documents().openNew();
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    ASSERT_THAT(RecoveryCopy::left(), SizeIs(1));
    documents().recover(RecoveryCopy::left().at(0));
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && count() == 1 && document().treeView(); }));
    document().window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Save);
    EXPECT_TRUE(isStartWindowShown());
    EXPECT_TRUE(bytes(path).contains("Ann"));
    EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(RecoveryCopy::left().empty());
}

TEST_F(DocumentLife, WhatWasRecoveredAsksBeforeItOverwritesAFileThatChangedMeanwhile)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    files_.write(QStringLiteral("Lee.lineara"), bytes(path).replace("Kid", "Changed elsewhere"));
    documents().recover(RecoveryCopy::left().at(0));
    ASSERT_TRUE(waitUntil([this] { return !documents().isOpening() && count() == 1 && document().treeView(); }));
    document().window().close();
    answer(QStringLiteral("closeQuestion"), QMessageBox::Save);
    answer(QStringLiteral("fileHasChanged"), QMessageBox::Cancel);
    EXPECT_TRUE(bytes(path).contains("Changed elsewhere"));
    EXPECT_TRUE(document().isModified());
}

TEST_F(DocumentLife, ReopeningAFamilyThatIsStillBeingKeptWaitsForIt)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    const QString path = lee.path();
    lee.poolProcessing().setHeld(true);
    rename(lee, QStringLiteral("Ann"));
    documents().openNew();
    EXPECT_TRUE(documents().isLeaving());
    program_.delegate().open({path});
    QTest::qWait(50);
    EXPECT_EQ(program_.dialog(), nullptr);
    lee.poolProcessing().setHeld(false);
    ASSERT_TRUE(waitUntil([&] { return count() == 1 && document().path() == path; }));
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
}

TEST_F(DocumentLife, AFamilyWhoseChangesCanNotBeKeptComesBack)
{
    Document& lee = opened(QStringLiteral("Lee.lineara"));
    rename(lee, QStringLiteral("Ann"));
    makeKeepingImpossible();
    documents().openNew();
    ASSERT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
    EXPECT_TRUE(lee.window().isVisible());
    EXPECT_TRUE(lee.isModified());
    EXPECT_EQ(lee.context().person({106})->name(), QStringLiteral("Ann"));
}

} // namespace lineara
