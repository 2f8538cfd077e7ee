#include "recent_documents.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class RecentDocumentsTest : public testing::Test
{
protected:
    RecentDocumentsTest() { QSettings().clear(); }

    QString made(const QString& name) const
    {
        QString path = QDir(folder.path()).canonicalPath() + QLatin1Char('/') + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path;
    }
    static QStringList names()
    {
        QStringList all;
        for (const QUrl& url : RecentDocuments::recentDocumentUrls())
            all.append(url.fileName());
        return all;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(RecentDocumentsTest, TheLatestComesFirst)
{
    EXPECT_THAT(RecentDocuments::recentDocumentUrls(), IsEmpty());
    RecentDocuments::note(made(QStringLiteral("a.lineara")));
    RecentDocuments::note(made(QStringLiteral("b.lineara")));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("b.lineara"), QStringLiteral("a.lineara")}));
    RecentDocuments::note(made(QStringLiteral("a.lineara")));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("a.lineara"), QStringLiteral("b.lineara")}));
}

TEST_F(RecentDocumentsTest, AFileIsListedOnceByWhateverPath)
{
    const QString path = made(QStringLiteral("family.lineara"));
    const QString link = folder.filePath(QStringLiteral("link.lineara"));
    ASSERT_TRUE(QFile::link(path, link));
    RecentDocuments::note(link);
    RecentDocuments::note(path);
    RecentDocuments::note(folder.path() + QStringLiteral("/./family.lineara"));
    EXPECT_THAT(RecentDocuments::recentDocumentUrls(), ElementsAre(QUrl::fromLocalFile(path)));
}

TEST_F(RecentDocumentsTest, AtMostTwelveAreKept)
{
    for (int count = 1; count <= 14; ++count)
        RecentDocuments::note(made(QStringLiteral("%1.lineara").arg(count)));
    ASSERT_THAT(names(), SizeIs(12));
    EXPECT_EQ(names().front(), QStringLiteral("14.lineara"));
    EXPECT_EQ(names().back(), QStringLiteral("3.lineara"));
}

TEST_F(RecentDocumentsTest, AFileThatIsGoneStaysListedUntilItIsRemoved)
{
    const QString path = made(QStringLiteral("gone 100%.lineara"));
    RecentDocuments::note(path);
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_THAT(RecentDocuments::recentDocumentUrls(), ElementsAre(QUrl::fromLocalFile(path)));
    RecentDocuments::remove(RecentDocuments::recentDocumentUrls().front());
    EXPECT_THAT(RecentDocuments::recentDocumentUrls(), IsEmpty());
}

TEST_F(RecentDocumentsTest, TheListSurvivesTheProgram)
{
    RecentDocuments::note(made(QStringLiteral("a, b; \"c\".lineara")));
    QSettings().sync();
    // Another program reads what is on the disk, not what this one remembers.
    const QSettings file(QSettings().fileName(), QSettings::IniFormat);
    EXPECT_EQ(file.value(QStringLiteral("recentDocuments")).toStringList(),
              QStringList{RecentDocuments::recentDocumentUrls().front().toLocalFile()});
}

TEST_F(RecentDocumentsTest, TheListCanBeCleared)
{
    RecentDocuments::note(made(QStringLiteral("a.lineara")));
    RecentDocuments::clear();
    EXPECT_THAT(RecentDocuments::recentDocumentUrls(), IsEmpty());
}

TEST_F(RecentDocumentsTest, WhatCanBeNoFileInDamagedSettingsIsNotListed)
{
    const QString sound = made(QStringLiteral("a.lineara"));
    QSettings().setValue(QStringLiteral("recentDocuments"),
                         QStringList{folder.path(), QString(), QStringLiteral("relative.lineara"), sound});
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("a.lineara")));
}
