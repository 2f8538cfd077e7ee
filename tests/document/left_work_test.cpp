// What is kept of unsaved changes until they are saved or given up.

#include "document/recovery_copy.h"
#include "listed_document.h"
#include "store/family_file.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStandardPaths>

#include <gmock/gmock.h>

using namespace lineara;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// Longest that a change may be without a copy.
constexpr int longestWait = 4000;

QDir recoveryFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery"));
}

QStringList keptFamilies()
{
    return recoveryFolder().entryList({QStringLiteral("*.lineara")}, QDir::Files);
}

template<class Condition>
bool waitFor(Condition condition, int milliseconds = longestWait)
{
    return QTest::qWaitFor(condition, milliseconds);
}

/// The one family that is kept.
LoadedFamily kept()
{
    const QStringList families = keptFamilies();
    EXPECT_THAT(families, SizeIs(1));
    auto read = readFamilyFile(recoveryFolder().filePath(families.value(0)));
    EXPECT_TRUE(read);
    return read ? std::move(read.value()) : LoadedFamily{std::make_unique<ObjectContext>(), {}};
}

class KeptWork : public testing::Test
{
protected:
    KeptWork() { recoveryFolder().removeRecursively(); }

    const TestFiles files_;
};

class LeftBehind : public KeptWork
{
protected:
    /// A family with a change that nobody saved; its document is gone.
    LeftWork leave(const QString& name)
    {
        auto document = std::move(Document::open(files_.save(name, *threeGenerations())).value());
        EXPECT_TRUE(settle(*document));
        document->context().journal().begin(QStringLiteral("Edit Name"));
        document->context().person({106})->setName(QStringLiteral("Changed"));
        document->keepUnsaved();
        EXPECT_TRUE(settle(*document));
        const auto work = document->keptWork();
        EXPECT_TRUE(work);
        return work.value_or(LeftWork());
    }
};

} // namespace

TEST_F(KeptWork, NothingIsKeptOfAFamilyWithoutChanges)
{
    EditedDocument edited(*threeGenerations());
    edited.document->keepUnsaved();
    edited.settle();
    EXPECT_THAT(keptFamilies(), IsEmpty());
}

TEST_F(KeptWork, AChangeIsCopiedWithinFourSecondsWithoutAnyCommand)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    EXPECT_TRUE(waitFor([] { return !keptFamilies().isEmpty(); }));
    edited.settle();
    EXPECT_EQ(textOf(*kept().context), edited.text());
}

TEST_F(KeptWork, AFurtherChangeIsCopiedTooWithinFourSeconds)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    ASSERT_TRUE(waitFor([] { return !keptFamilies().isEmpty(); }));
    const RecordId second = edited.add().recordId();
    EXPECT_TRUE(waitFor([&] { return kept().context->person(second) != nullptr; }));
}

TEST_F(KeptWork, WhatIsBeingTypedIsInTheCopyAndTypingGoesOn)
{
    ListedDocument edited(*threeGenerations());
    edited.pressRow(QStringLiteral("Kid"));
    edited.notes()->setFocus();
    edited.type(QStringLiteral("Plays the flu"));
    EXPECT_TRUE(waitFor([] { return !keptFamilies().isEmpty(); }));
    edited.document->keepUnsaved();
    edited.document->whenSettled([] {});
    EXPECT_TRUE(waitFor([&] { return kept().context->person({106})->additional() == u"Plays the flu"_qs; }));
    EXPECT_EQ(edited.person(106)->additional(), std::nullopt);
    edited.type(QStringLiteral("te."));
    EXPECT_EQ(edited.notes()->toPlainText(), QStringLiteral("Plays the flute."));
    EXPECT_TRUE(edited.notes()->document()->isUndoAvailable());
}

TEST_F(KeptWork, TypingMarksTheWindowAtOnce)
{
    ListedDocument edited(*threeGenerations());
    edited.pressRow(QStringLiteral("Kid"));
    edited.editName();
    edited.type(QStringLiteral("d"));
    ListedDocument::deliver();
    EXPECT_TRUE(edited.window().isWindowModified());
    edited.press(Qt::Key_Backspace);
    ListedDocument::deliver();
    EXPECT_FALSE(edited.window().isWindowModified());
}

TEST_F(KeptWork, AHalfTypedDateIsNoDateYet)
{
    ListedDocument edited(*threeGenerations());
    edited.pressRow(QStringLiteral("Kid"));
    edited.dateField(QStringLiteral("birth"), 1)->setFocus();
    edited.type(QStringLiteral("2"));
    EXPECT_EQ(edited.document->list().typed(), std::nullopt);
    edited.dateField(QStringLiteral("birth"), 2)->setFocus();
    edited.type(QStringLiteral("1901"));
    const auto typed = edited.document->list().typed();
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->person, RecordId{106});
    EXPECT_EQ(typed->values.birthMonth, 2);
    EXPECT_EQ(typed->values.birthYear, 1901);
    EXPECT_EQ(edited.person(106)->birthYear(), std::nullopt);
}

TEST_F(KeptWork, IsTakenBetweenTwoPiecesOfWorkAndNeverInTheMiddle)
{
    EditedDocument edited(*threeGenerations());
    edited.hold();
    const RecordId newcomer = edited.addUnsettled();
    edited.linkUnsettled(*edited.person(106), *edited.person(102), partnerLink);
    edited.document->keepUnsaved();
    edited.release();
    EXPECT_EQ(textOf(*kept().context), edited.text());
    EXPECT_NE(kept().context->person(newcomer)->pool(), nullptr);
}

TEST_F(KeptWork, DoesNotWaitForWorkThatDoesNotEnd)
{
    EditedDocument edited(*threeGenerations());
    edited.hold();
    const RecordId newcomer = edited.addUnsettled();
    EXPECT_TRUE(waitFor([] { return !keptFamilies().isEmpty(); }));
    EXPECT_TRUE(waitFor([&] { return edited.document->keptWork().has_value(); }));
    auto left = openFamily(recoveryFolder().filePath(keptFamilies().value(0)));
    ASSERT_TRUE(left);
    completeFamily(left.value());
    EXPECT_EQ(left.value().context->person(newcomer)->pool(), left.value().pool);
    edited.release();
    EXPECT_EQ(textOf(*kept().context), edited.text());
}

TEST_F(KeptWork, SavingRemovesIt)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    edited.document->keepUnsaved();
    edited.settle();
    ASSERT_THAT(keptFamilies(), SizeIs(1));
    edited.document->save(files_.path(QStringLiteral("saved.lineara")), [](const Outcome<SaveEnd>&) {});
    edited.settle();
    edited.settle();
    EXPECT_THAT(recoveryFolder().entryList(QDir::Files), IsEmpty());
    EXPECT_FALSE(edited.document->keptWork());
}

TEST_F(KeptWork, ASaveThatFailsLeavesIt)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    edited.document->keepUnsaved();
    edited.document->save(QStringLiteral("/no such folder/family.lineara"), [](const Outcome<SaveEnd>&) {});
    edited.settle();
    edited.settle();
    EXPECT_THAT(keptFamilies(), SizeIs(1));
    EXPECT_TRUE(edited.document->isModified());
}

TEST_F(KeptWork, UndoingEverythingRemovesIt)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    edited.document->keepUnsaved();
    edited.settle();
    ASSERT_THAT(keptFamilies(), SizeIs(1));
    edited.undo();
    EXPECT_TRUE(waitFor([] { return keptFamilies().isEmpty(); }));
}

TEST_F(KeptWork, ChangesAfterSavingAreKeptAgain)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    edited.document->save(files_.path(QStringLiteral("saved.lineara")), [](const Outcome<SaveEnd>&) {});
    edited.settle();
    const RecordId later = edited.add().recordId();
    EXPECT_TRUE(waitFor([] { return !keptFamilies().isEmpty(); }));
    edited.settle();
    EXPECT_NE(kept().context->person(later), nullptr);
    EXPECT_EQ(edited.document->keptWork()->path, files_.path(QStringLiteral("saved.lineara")));
}

TEST_F(KeptWork, WhatCanNotBeCopiedIsToldInTheWindow)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(recoveryFolder().path()).path()));
    QFile inTheWay(recoveryFolder().path());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    {
        EditedDocument edited(*threeGenerations());
        edited.add();
        edited.document->keepUnsaved();
        edited.settle();
        const auto* const warning = edited.document->window().findChild<QLabel*>(QStringLiteral("warning"));
        ASSERT_TRUE(warning);
        EXPECT_TRUE(warning->isVisible());
        EXPECT_TRUE(warning->text().startsWith(
            QStringLiteral("Unsaved changes of “%1” would be lost").arg(edited.document->name())));
        EXPECT_TRUE(warning->text().endsWith(QStringLiteral("a part of the path is not a folder.")));
        EXPECT_FALSE(warning->text().contains(recoveryFolder().path()));
        EXPECT_GE(warning->height(), warning->heightForWidth(warning->width()));
        EXPECT_FALSE(edited.document->keptWork());
    }
    EXPECT_TRUE(inTheWay.remove());
}

TEST_F(LeftBehind, IsOfferedByNameFileAndDate)
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-2);
    const LeftWork work = leave(QStringLiteral("Lee.lineara"));
    const auto left = RecoveryCopy::left();
    ASSERT_THAT(left, SizeIs(1));
    EXPECT_EQ(left[0].id, work.id);
    EXPECT_EQ(left[0].name, QStringLiteral("Lee.lineara"));
    EXPECT_EQ(left[0].path, files_.path(QStringLiteral("Lee.lineara")));
    EXPECT_TRUE(left[0].isOwn);
    EXPECT_EQ(left[0].mark, FileMark::of(left[0].path));
    EXPECT_GE(left[0].changed, before);
}

TEST_F(LeftBehind, TheNewestComesFirst)
{
    leave(QStringLiteral("old.lineara"));
    QTest::qWait(20);
    leave(QStringLiteral("new.lineara"));
    const auto left = RecoveryCopy::left();
    ASSERT_THAT(left, SizeIs(2));
    EXPECT_EQ(left[0].name, QStringLiteral("new.lineara"));
}

TEST_F(LeftBehind, IsNotOfferedWhileItsDocumentLives)
{
    EditedDocument edited(*threeGenerations());
    edited.add();
    edited.document->keepUnsaved();
    edited.settle();
    EXPECT_THAT(keptFamilies(), SizeIs(1));
    EXPECT_THAT(RecoveryCopy::left(), IsEmpty());
    RecoveryCopy::discard(edited.document->keptWork()->id);
    EXPECT_THAT(keptFamilies(), SizeIs(1));
}

TEST_F(LeftBehind, IsGoneOnceItIsDiscarded)
{
    RecoveryCopy::discard(leave(QStringLiteral("Lee.lineara")).id);
    EXPECT_THAT(RecoveryCopy::left(), IsEmpty());
    EXPECT_THAT(recoveryFolder().entryList(QDir::Files), IsEmpty());
}

TEST_F(LeftBehind, WithoutWhatIsKnownOfItIsOfferedAllTheSame)
{
    const QString id = leave(QStringLiteral("Lee.lineara")).id;
    ASSERT_TRUE(QFile::remove(recoveryFolder().filePath(id + QStringLiteral(".json"))));
    const auto left = RecoveryCopy::left();
    ASSERT_THAT(left, SizeIs(1));
    EXPECT_TRUE(left[0].path.isEmpty());
    EXPECT_FALSE(left[0].isOwn);
    EXPECT_NE(RecoveryCopy::adopt(id), nullptr);
}

TEST_F(LeftBehind, IsReadableForItsOwnerOnly)
{
    leave(QStringLiteral("Lee.lineara"));
    constexpr auto others = QFile::ReadGroup | QFile::ReadOther | QFile::ExeGroup | QFile::ExeOther;
    EXPECT_FALSE(QFileInfo(recoveryFolder().path()).permissions() & others);
}
