#include "family_file_check.h"

#include "family_texts.h"
#include "migration_check.h"

#include <QDir>
#include <QFile>

namespace lineara::test {

TEST(Corpus, NoFileBreaksTheReaderOrChangesByBeingSaved)
{
    const QDir corpus(QStringLiteral(LINEARA_CORPUS) + u"/family_file"_qs);
    const auto names = corpus.entryList(QDir::Files, QDir::Name);
    EXPECT_GE(names.size(), 12);
    for (const auto& name : names) {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(checkFamilyFile(file.readAll()), QString()) << name.toStdString();
    }
}

TEST(Corpus, NoOldFileBreaksTheMigration)
{
    const QDir corpus(QStringLiteral(LINEARA_CORPUS) + u"/migration"_qs);
    const auto names = corpus.entryList(QDir::Files, QDir::Name);
    EXPECT_GE(names.size(), 7);
    for (const auto& name : names) {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(checkMigration(file.readAll()), QString()) << name.toStdString();
    }
}

} // namespace lineara::test
