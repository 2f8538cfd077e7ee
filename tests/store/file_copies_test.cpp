#include "store/atomic_file.h"
#include "version_samples.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace lineara::test {

namespace {

class FileCopies : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// The name that a free file gets.
    QString freeName(const QString& name) const
    {
        const auto created = store::createFreeFile(folder_.path(), name);
        return created.failed() ? created.failure().message : QFileInfo(created.value()).fileName();
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(FileCopies, AFreeNameIsTheNameItselfOrOneWithANumber)
{
    EXPECT_EQ(freeName(u"My Family.lineara"_qs), u"My Family.lineara"_qs);
    EXPECT_EQ(freeName(u"My Family.lineara"_qs), u"My Family 2.lineara"_qs);
    EXPECT_EQ(freeName(u"My Family.lineara"_qs), u"My Family 3.lineara"_qs);
    EXPECT_EQ(freeName(u"plain"_qs), u"plain"_qs);
    EXPECT_EQ(freeName(u"plain"_qs), u"plain 2"_qs);
}

TEST_F(FileCopies, WhatHasTheNameStaysAsItIs)
{
    put(u"a.lineara"_qs, "mine");
    ASSERT_TRUE(QFile::link(path(u"nothing yet"_qs), path(u"a 2.lineara"_qs)));
    ASSERT_TRUE(QDir(path(u"."_qs)).mkdir(u"a 3.lineara"_qs));
    EXPECT_EQ(freeName(u"a.lineara"_qs), u"a 4.lineara"_qs);
    EXPECT_EQ(contentsOf(path(u"a.lineara"_qs)), "mine");
    EXPECT_FALSE(QFile::exists(path(u"nothing yet"_qs)));
}

TEST_F(FileCopies, AFreeFileIsPrivate)
{
    const auto created = store::createFreeFile(path(u"."_qs), u"a"_qs);
    ASSERT_TRUE(created);
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(created.value()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(FileCopies, WithoutAFolderThereIsNoFile)
{
    EXPECT_TRUE(store::createFreeFile(path(u"gone"_qs), u"a"_qs).failed());
    EXPECT_TRUE(store::createFreeFile(path(u"."_qs), QString(300, u'a')).failed());
}

TEST_F(FileCopies, ACopyTakesThePlaceOfAFile)
{
    const QByteArray bytes(5'000'001, 'b');
    put(u"from"_qs, bytes);
    put(u"to"_qs, "old");
    ASSERT_EQ(::chmod(qPrintable(path(u"to"_qs)), 0640), 0);
    EXPECT_TRUE(store::copyOver(path(u"from"_qs), path(u"to"_qs)));
    EXPECT_TRUE(contentsOf(path(u"to"_qs)) == bytes);
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path(u"to"_qs)), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    put(u"empty"_qs, {});
    EXPECT_TRUE(store::copyOver(path(u"empty"_qs), path(u"to"_qs)));
    EXPECT_EQ(contentsOf(path(u"to"_qs)), "");
}

TEST_F(FileCopies, NothingIsCopiedFromWhatIsNoFile)
{
    put(u"to"_qs, "old");
    EXPECT_TRUE(store::copyOver(path(u"gone"_qs), path(u"to"_qs)).failed());
    EXPECT_TRUE(store::copyOver(path(u"."_qs), path(u"to"_qs)).failed());
    EXPECT_EQ(contentsOf(path(u"to"_qs)), "old");
}

} // namespace lineara::test
