// Files that somebody else has a hand in, and what saving means while changes go on.

#include "edited_document.h"
#include "store/family_file.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace lineara;

namespace {

class SavedFamily : public testing::Test
{
protected:
    SavedFamily() : document_(std::move(Document::open(path_).value()))
    {
        document_->window().show();
        EXPECT_TRUE(settle(*document_));
    }

    static QByteArray bytes(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void change(const QString& name)
    {
        document_->context().journal().begin(QStringLiteral("Edit Name"));
        document_->context().person({106})->setName(name);
    }
    std::optional<SaveEnd> save(const QString& path, Document::Overwriting overwriting = Document::Overwriting::AsLeft)
    {
        std::optional<SaveEnd> end;
        document_->save(
            path,
            [&](const Outcome<SaveEnd>& outcome) {
                end = outcome ? std::optional(outcome.value()) : std::nullopt;
                message_ = outcome.failed() ? outcome.failure().message : QString();
            },
            overwriting);
        EXPECT_TRUE(settle(*document_));
        return end;
    }

    const TestFiles files_;
    const QString path_ = files_.save(QStringLiteral("family.lineara"), *threeGenerations());
    std::unique_ptr<Document> document_;
    QString message_;
};

} // namespace

TEST_F(SavedFamily, AFileThatSomebodyElseHasChangedIsNotOverwrittenUnasked)
{
    change(QStringLiteral("Here"));
    const QByteArray theirs = "Something quite different";
    files_.write(QStringLiteral("family.lineara"), theirs);
    EXPECT_EQ(save(path_), SaveEnd::FileHasChanged);
    EXPECT_EQ(bytes(path_), theirs);
    EXPECT_TRUE(document_->isModified());
    EXPECT_EQ(save(path_, Document::Overwriting::Anything), SaveEnd::Written);
    EXPECT_TRUE(bytes(path_).contains("Here"));
    EXPECT_FALSE(document_->isModified());
}

TEST_F(SavedFamily, WhatWasSavedHereIsNoChangeOfSomebodyElse)
{
    for (const QString& name : {QStringLiteral("Once"), QStringLiteral("Twice")}) {
        change(name);
        EXPECT_EQ(save(path_), SaveEnd::Written);
        EXPECT_TRUE(bytes(path_).contains(name.toUtf8()));
    }
}

TEST_F(SavedFamily, SavingTwiceInOneBreathIsNoChangeOfSomebodyElseEither)
{
    std::vector<SaveEnd> ends;
    for (const QString& name : {QStringLiteral("Once"), QStringLiteral("Twice")}) {
        document_->poolProcessing().setHeld(true);
        change(name);
        document_->save(path_, [&](const Outcome<SaveEnd>& outcome) { ends.push_back(outcome.value()); });
    }
    document_->poolProcessing().setHeld(false);
    ASSERT_TRUE(settle(*document_));
    EXPECT_THAT(ends, testing::ElementsAre(SaveEnd::Written, SaveEnd::Written));
    EXPECT_TRUE(bytes(path_).contains("Twice"));
}

TEST_F(SavedFamily, AFileThatIsGoneIsMadeAnew)
{
    change(QStringLiteral("Here"));
    ASSERT_TRUE(QFile::remove(path_));
    EXPECT_EQ(save(path_), SaveEnd::Written);
    EXPECT_TRUE(bytes(path_).contains("Here"));
}

TEST_F(SavedFamily, TheFileOfAnotherDocumentIsNotWrittenTo)
{
    const QString other = files_.save(QStringLiteral("other.lineara"), *threeGenerations());
    const QByteArray before = bytes(other);
    const auto second = std::move(Document::open(other).value());
    EXPECT_EQ(save(other), std::nullopt);
    EXPECT_TRUE(message_.contains(other)) << message_.toStdString();
    EXPECT_EQ(bytes(other), before);
    EXPECT_EQ(document_->path(), path_);
    EXPECT_TRUE(settle(*second));
}

TEST_F(SavedFamily, AFileIsOpenOnceWhateverItsPath)
{
    const QString link = files_.path(QStringLiteral("link.lineara"));
    ASSERT_TRUE(QFile::link(path_, link));
    EXPECT_TRUE(Document::open(path_).failed());
    EXPECT_TRUE(Document::open(link).failed());
    document_.reset();
    EXPECT_FALSE(Document::open(link).failed());
}

TEST_F(SavedFamily, SavingUnderAnotherNameLetsGoOfTheFirstFile)
{
    const QString other = files_.path(QStringLiteral("other.lineara"));
    EXPECT_EQ(save(other), SaveEnd::Written);
    EXPECT_EQ(document_->path(), other);
    EXPECT_FALSE(Document::open(path_).failed());
    EXPECT_TRUE(Document::open(other).failed());
}

TEST_F(SavedFamily, ACopyLeavesTheDocumentAsItIs)
{
    change(QStringLiteral("Copied"));
    const QString copy = files_.path(QStringLiteral("copy.lineara"));
    bool isSaved = false;
    document_->saveCopy(copy, [&](const Outcome<Done>& outcome) { isSaved = !outcome.failed(); });
    ASSERT_TRUE(settle(*document_));
    EXPECT_TRUE(isSaved);
    EXPECT_TRUE(bytes(copy).contains("Copied"));
    EXPECT_FALSE(bytes(path_).contains("Copied"));
    EXPECT_EQ(document_->path(), path_);
    EXPECT_TRUE(document_->isModified());
}

TEST_F(SavedFamily, WhatIsChangedWhileTheFileIsBeingWrittenIsUnsaved)
{
    change(QStringLiteral("First"));
    bool isSaved = false;
    document_->save(path_, [&](const Outcome<SaveEnd>&) { isSaved = true; });
    // Taken by now, and written on another thread.
    bool isTaken = false;
    WorkBlock block;
    block.onMainWaiting([&] {
        isTaken = true;
        change(QStringLiteral("Second"));
    });
    document_->poolProcessing().enqueue(std::move(block));
    ASSERT_TRUE(runEventsUntil(isSaved));
    EXPECT_TRUE(isTaken);
    EXPECT_TRUE(bytes(path_).contains("First"));
    EXPECT_TRUE(document_->isModified());
    document_->context().journal().undo();
    EXPECT_FALSE(document_->isModified());
}

TEST_F(SavedFamily, AddingLinkingAndSavingAtOnceWritesEverything)
{
    document_->poolProcessing().setHeld(true);
    const RecordId newcomer{document_->context().nextNumber()};
    document_->addPerson();
    ASSERT_TRUE(document_->treeView()->connect(*document_->context().person({106}),
                                               *document_->context().person(newcomer), partnerLink.toString()));
    document_->save(path_, [](const Outcome<SaveEnd>&) {});
    document_->poolProcessing().setHeld(false);
    ASSERT_TRUE(settle(*document_));
    EXPECT_FALSE(document_->isModified());
    EXPECT_EQ(bytes(path_), textOf(document_->context()));
    document_.reset();
    auto read = openFamily(path_);
    ASSERT_TRUE(read);
    Person* const partner = read.value().context->person(newcomer);
    ASSERT_TRUE(partner);
    EXPECT_EQ(partner->pool(), read.value().pool);
    EXPECT_THAT(partner->partners(), testing::SizeIs(1));
    EXPECT_TRUE(partner->x());
    const QByteArray before = textOf(*read.value().context);
    auto again = std::move(Document::open(path_).value());
    ASSERT_TRUE(settle(*again));
    EXPECT_EQ(textOf(again->context()), before);
}

TEST_F(SavedFamily, OpeningAloneIsNoChangeEvenWhereEverybodyMoves)
{
    auto family = threeGenerations();
    for (Person* const person : family->allPersons())
        person->setX(3000);
    const QString path = files_.save(QStringLiteral("moved.lineara"), *family);
    const auto moved = std::move(Document::open(path).value());
    moved->window().show();
    ASSERT_TRUE(settle(*moved));
    EXPECT_NE(moved->context().person({106})->x(), 3000);
    EXPECT_FALSE(moved->isModified());
    EXPECT_FALSE(moved->window().isWindowModified());
}

TEST_F(SavedFamily, ALockOfAProgramThatDiedIsTakenOver)
{
    const QString lock = files_.path(QStringLiteral("folder/of/locks/lock"));
    {
        const auto held = FileLock::tryTake(lock);
        ASSERT_TRUE(held);
        EXPECT_EQ(FileLock::tryTake(lock), nullptr);
    }
    EXPECT_FALSE(QFile::exists(lock));
    // What a program that was killed leaves is the file without its holder.
    files_.write(QStringLiteral("folder/of/locks/lock"), "");
    EXPECT_NE(FileLock::tryTake(lock), nullptr);
}

TEST_F(SavedFamily, WhereNoLockCanBeMadeNobodyIsKeptOut)
{
    const QString impossible = QStringLiteral("/dev/null/locks/lock");
    const auto first = FileLock::tryTake(impossible);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(FileLock::tryTake(impossible), nullptr);
}
