// Families that can't be saved to the file they came from: why that is told, and what they are called.

#include "document_life.h"
#include "family_tasks.h"
#include "ordinary_user.h"

#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

#include <sys/stat.h>

namespace lineara {

using testing::SizeIs;

namespace {

#ifdef LINEARA_SANITIZED
constexpr int manyPersons = 4000;
#else
constexpr int manyPersons = 20'000;
#endif

QStringList noticesOf(const Document& document)
{
    QStringList texts;
    for (const QFrame* const notice :
         const_cast<Document&>(document).window().findChildren<QFrame*>(QStringLiteral("notice")))
        texts << notice->findChild<QLabel*>()->text();
    return texts;
}

QString noticeOf(const Document& document)
{
    return noticesOf(document).value(0);
}

QStringList filesAtHome()
{
    return QDir::home().entryList(QDir::Files | QDir::Hidden);
}

class OldFiles : public DocumentLife
{
protected:
    QString oldFile(const QString& name) const
    {
        QFile sample(QStringLiteral(LINEARA_TEST_DATA "/versions/family_12.lineara"));
        EXPECT_TRUE(sample.open(QIODevice::ReadOnly));
        return files_.write(name, sample.readAll());
    }
    void expectCopies(const QString& path, const QString& reason)
    {
        const QByteArray before = bytes(path);
        for (int time = 0; time < 2; ++time) {
            open({path});
            ASSERT_EQ(count(), 1);
            EXPECT_EQ(program_.dialog(), nullptr);
            EXPECT_FALSE(document().hasOwnFile());
            EXPECT_TRUE(noticeOf(document()).contains(reason)) << noticeOf(document()).toStdString();
            EXPECT_EQ(filesAtHome(), QStringList());
            document().window().close();
            ASSERT_TRUE(waitUntil([this] { return count() == 0 && !documents().isLeaving(); }));
        }
        EXPECT_EQ(bytes(path), before);
    }
};

} // namespace

TEST_F(OldFiles, OneThatMayNotBeWrittenToOpensAsACopyThatSaysSo)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    ASSERT_EQ(::chmod(qPrintable(path), 0444), 0);
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    expectCopies(path, QStringLiteral("permission to write to the file is denied"));
}

TEST_F(OldFiles, TheWordThatItIsACopyGoesWhenItHasAFileOfItsOwn)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    ASSERT_EQ(::chmod(qPrintable(path), 0444), 0);
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    open({path});
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    ASSERT_THAT(noticesOf(document()), SizeIs(1));
    document().save(
        files_.path(QStringLiteral("Own.lineara")), [](const auto&) {}, Document::Overwriting::Anything);
    EXPECT_TRUE(waitUntil([this] { return noticesOf(document()).isEmpty(); }));
    EXPECT_TRUE(document().hasOwnFile());
}

TEST_F(OldFiles, TheWordThatItIsACopyStaysWhileItHasNoFileOfItsOwn)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    ASSERT_EQ(::chmod(qPrintable(path), 0444), 0);
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    open({path});
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    const QString told = noticeOf(document());
    const QPointer<QFrame> taken(document().window().findChild<QFrame*>(QStringLiteral("notice")));
    taken->findChild<QPushButton*>(QStringLiteral("noticeCommand"))->click();
    ASSERT_TRUE(waitUntil([&] { return !taken && program_.dialog(); }));
    program_.dialog()->reject();
    EXPECT_EQ(noticesOf(document()), QStringList{told});
}

TEST_F(OldFiles, OneInAFolderThatMayNotBeWrittenToOpensAsACopyThatSaysSo)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    const QString folder = QFileInfo(path).path();
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    ASSERT_EQ(::chmod(qPrintable(folder), 0555), 0);
    expectCopies(path, QStringLiteral("permission to write to its folder is denied"));
    ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
}

TEST_F(OldFiles, OneThatCouldNotBeKeptAsItWasOpensAsACopyThatSaysSo)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    ASSERT_TRUE(QDir().mkpath(data));
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    ASSERT_EQ(::chmod(qPrintable(data), 0555), 0);
    expectCopies(path, QStringLiteral("permission is denied"));
    ASSERT_EQ(::chmod(qPrintable(data), 0755), 0);
}

TEST_F(OldFiles, ACopyThatStandsInForOneComesToTheFrontWhenThatIsOpenedAgain)
{
    const QString path = oldFile(QStringLiteral("Old.lineara"));
    ASSERT_EQ(::chmod(qPrintable(path), 0444), 0);
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    open({path});
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    const Document* const standIn = &document();
    open({path});
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(&document(), standIn);
    EXPECT_FALSE(documents().isLeaving());
}

TEST_F(OldFiles, OneThatTurnsOutNotToBeReplaceableIsRefusedAndACopyIsOffered)
{
    const auto family = std::make_unique<ObjectContext>();
    Pool& pool = family->insertPool();
    for (int person = 0; person < manyPersons; ++person)
        pool.addPerson(family->insertPerson({}));
    const QByteArray text = textOf(*family).replace("modelVersion\">14", "modelVersion\">13");
    const QString path = files_.write(QStringLiteral("Old.lineara"), text);
    const QString folder = QFileInfo(path).path();
    const OrdinaryUser user({QDir::homePath(), files_.path({})});
    for (int time = 0; time < 2; ++time) {
        ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
        program_.delegate().open({path});
        // The folder is closed when the way to the new version has begun.
        ASSERT_TRUE(waitUntil([] {
            return !QDir::home().entryList({QStringLiteral(".lineara-*")}, QDir::Hidden | QDir::Files).isEmpty();
        }));
        ASSERT_EQ(::chmod(qPrintable(folder), 0555), 0);
        ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("openingFailed")); }));
        EXPECT_TRUE(box(QStringLiteral("openingFailed"))->text().contains(QStringLiteral("its folder is denied")));
        EXPECT_EQ(filesAtHome(), QStringList{QStringLiteral("Old.lineara")});
        if (time == 0)
            answer(QStringLiteral("openingFailed"), QMessageBox::Ok);
    }
    answer(QStringLiteral("openingFailed"), QStringLiteral("Open a Copy"));
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && !documents().isOpening(); }));
    EXPECT_EQ(document().pool().persons().size(), static_cast<std::size_t>(manyPersons));
    EXPECT_FALSE(document().hasOwnFile());
    EXPECT_EQ(bytes(path), text);
    EXPECT_EQ(filesAtHome(), QStringList{QStringLiteral("Old.lineara")});
    ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
}

TEST_F(DocumentLife, ACopyIsCalledSoAndProposesAFileOfItsOwn)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    documents().openCopy(path);
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    EXPECT_EQ(document().window().windowTitle(), QStringLiteral("Lee.lineara (copy)[*]"));
    EXPECT_EQ(document().name(), QStringLiteral("Lee.lineara (copy)"));
    document().save(
        files_.path(QStringLiteral("Own.lineara")), [](const auto&) {}, Document::Overwriting::Anything);
    EXPECT_TRUE(waitUntil([this] { return document().window().windowTitle() == QStringLiteral("Own.lineara[*]"); }));
}

TEST_F(DocumentLife, AFileOpensThoughACopyOfItIsOpen)
{
    const QString path = family(QStringLiteral("Lee.lineara"));
    documents().openCopy(path);
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    open({path, family(QStringLiteral("Kay.lineara"))});
    const auto isOpen = [&](const auto& each) { return each->path() == path && each->hasOwnFile(); };
    EXPECT_TRUE(std::ranges::any_of(documents().documents(), isOpen));
}

TEST_F(DocumentLife, ACopyOnItsWayKeepsNobodyFromItsFile)
{
    LeftWork work;
    work.path = family(QStringLiteral("Lee.lineara"));
    work.isOwn = true;
    EXPECT_EQ(recoveryTask(work, nullptr, lockFamilyFile(work.path)).path, work.path);
    EXPECT_EQ(recoveryTask(work, nullptr, nullptr).path, QString());
}

TEST_F(DocumentLife, LeftWorkWhoseFileIsInUseElsewhereSaysWhyItHasNone)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    const auto elsewhere = lockFamilyFile(path);
    ASSERT_TRUE(elsewhere);
    documents().recover(RecoveryCopy::left().at(0));
    ASSERT_TRUE(waitUntil([&] { return count() == 1 && document().path() == path && document().treeView(); }));
    EXPECT_FALSE(document().hasOwnFile());
    EXPECT_TRUE(document().isModified());
    EXPECT_TRUE(noticeOf(document()).contains(QStringLiteral("“Lee.lineara” is being worked on")));
    EXPECT_EQ(document().name(), QStringLiteral("Lee.lineara (copy)"));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Ann"));
}

TEST_F(DocumentLife, AFileWithLeftWorkOffersThatHoweverItIsOpened)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    openInstead(path);
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Kid"));
    ASSERT_THAT(noticesOf(document()), SizeIs(1));
    EXPECT_TRUE(noticeOf(document()).startsWith(QStringLiteral("Unsaved changes of “Lee.lineara” were kept on ")));
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
    document().window().findChild<QPushButton*>(QStringLiteral("noticeCommand"))->click();
    ASSERT_TRUE(waitUntil([this] {
        return !documents().isOpening() && !documents().isLeaving() && count() == 1 && document().treeView();
    }));
    EXPECT_EQ(document().context().person({106})->name(), QStringLiteral("Ann"));
    EXPECT_TRUE(document().isModified());
    EXPECT_TRUE(document().hasOwnFile());
    EXPECT_EQ(document().name(), QStringLiteral("Lee.lineara"));
}

TEST_F(DocumentLife, LeftWorkThatIsNotWantedNowStaysThoughItsFileIsChangedAndSaved)
{
    const QString path = leftWork(QStringLiteral("Lee.lineara"));
    openInstead(path);
    rename(document(), QStringLiteral("Bob"));
    document().keepUnsaved();
    bool isSaved = false;
    document().save(path, [&](const auto& outcome) { isSaved = static_cast<bool>(outcome); });
    ASSERT_TRUE(waitUntil([&] { return isSaved && !document().isWriting(); }));
    EXPECT_TRUE(bytes(path).contains("Bob"));
    ASSERT_THAT(RecoveryCopy::left(), SizeIs(1));
    QFile kept(RecoveryCopy::adopt(RecoveryCopy::left()[0].id)->familyPath());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_TRUE(kept.readAll().contains("Ann"));
}

TEST_F(DocumentLife, LeftWorkThatCanNotBeReadIsToldByTheNameOfItsFamily)
{
    leftWork(QStringLiteral("Lee.lineara"));
    const LeftWork work = RecoveryCopy::left().at(0);
    const QString copy = RecoveryCopy::adopt(work.id)->familyPath();
    QFile damaged(copy);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("<database");
    damaged.close();
    documents().recover(work);
    ASSERT_TRUE(waitUntil([this] { return box(QStringLiteral("openingFailed")); }));
    const QString told = box(QStringLiteral("openingFailed"))->text();
    EXPECT_TRUE(told.startsWith(QStringLiteral("The unsaved changes of “Lee.lineara” can't be opened.")))
        << told.toStdString();
    EXPECT_FALSE(told.contains(QFileInfo(copy).path())) << told.toStdString();
    EXPECT_FALSE(told.contains(work.id)) << told.toStdString();
    EXPECT_THAT(RecoveryCopy::left(), SizeIs(1));
}

TEST_F(DocumentLife, ACopyOfWhichNothingElseIsKnownIsOfferedAsADamagedOneWithItsDate)
{
    const QDir recovery(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                        QStringLiteral("/recovery"));
    ASSERT_TRUE(recovery.mkpath(QStringLiteral(".")));
    ASSERT_TRUE(saveFamilyFile(*threeGenerations(), recovery.filePath(QStringLiteral("id.lineara"))));
    QFile about(recovery.filePath(QStringLiteral("id.json")));
    ASSERT_TRUE(about.open(QIODevice::WriteOnly));
    about.write("{\"name\": 7");
    about.close();
    program_.delegate().window().hide();
    program_.delegate().applicationShouldHandleReopen(false);
    auto* const panel = program_.delegate().window().findChild<QWidget*>(QStringLiteral("recoveryPanel"));
    ASSERT_TRUE(panel->isVisible());
    QStringList shown;
    for (const QWidget* const part : panel->findChildren<QWidget*>())
        shown << part->toolTip();
    const QString text = shown.join(QLatin1Char('\n'));
    EXPECT_TRUE(text.contains(QStringLiteral("A damaged copy"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QLocale().toString(QDateTime::currentDateTime().date(), QLocale::ShortFormat)))
        << text.toStdString();
    EXPECT_FALSE(text.contains(QStringLiteral("never saved"))) << text.toStdString();
    panel->findChild<QPushButton*>(QStringLiteral("recoverButton"))->click();
    ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView(); }));
    EXPECT_EQ(document().pool().persons().size(), 5U);
    EXPECT_TRUE(document().isModified());
}

} // namespace lineara
