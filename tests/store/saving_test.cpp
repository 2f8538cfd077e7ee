#include "saved_files.h"

#include <QFileInfo>

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;

TEST_F(Saving, NewFileHoldsTheText)
{
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"new.lineara"_qs))), "");
    EXPECT_EQ(contents(path(u"new.lineara"_qs)), smallFamily());
    EXPECT_EQ(filesInFolder(), QStringList{u"new.lineara"_qs});
}

TEST_F(Saving, ReadAndSavedAgainIsTheSameFile)
{
    const auto file = path(u"a.lineara"_qs);
    put(file, smallFamily());
    const auto family = readFamilyFile(file);
    ASSERT_TRUE(family);
    EXPECT_EQ(problem(saveFamilyFile(*family.value().context, file)), "");
    EXPECT_EQ(contents(file), smallFamily());
}

TEST_F(Saving, NewFileIsAsOpenAsTheUserLikes)
{
    const auto old = ::umask(027);
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"new.lineara"_qs))), "");
    ::umask(old);
    EXPECT_EQ(modeOf(path(u"new.lineara"_qs)), 0640U);
}

TEST_F(Saving, PermissionsStay)
{
    const auto file = path(u"a.lineara"_qs);
    for (const mode_t mode : {0600U, 0644U, 0664U, 0666U, 0751U}) {
        put(file, "old");
        ASSERT_EQ(::chmod(qPrintable(file), mode), 0);
        EXPECT_EQ(problem(saveFamilyFile(family(), file)), "");
        EXPECT_EQ(contents(file), smallFamily());
        EXPECT_EQ(modeOf(file), mode);
    }
}

TEST_F(Saving, LinksAreFollowed)
{
    ASSERT_TRUE(QDir(path(u"."_qs)).mkdir(u"deep"_qs));
    put(path(u"deep/real.lineara"_qs), "old");
    ASSERT_TRUE(QFile::link(u"deep/real.lineara"_qs, path(u"first"_qs)));
    ASSERT_TRUE(QFile::link(path(u"first"_qs), path(u"second"_qs)));
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"second"_qs))), "");
    EXPECT_TRUE(QFileInfo(path(u"first"_qs)).isSymLink());
    EXPECT_TRUE(QFileInfo(path(u"second"_qs)).isSymLink());
    EXPECT_FALSE(QFileInfo(path(u"deep/real.lineara"_qs)).isSymLink());
    EXPECT_EQ(contents(path(u"deep/real.lineara"_qs)), smallFamily());
}

TEST_F(Saving, LinkToNothingYetMakesTheFile)
{
    ASSERT_TRUE(QFile::link(u"real.lineara"_qs, path(u"link"_qs)));
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"link"_qs))), "");
    EXPECT_TRUE(QFileInfo(path(u"link"_qs)).isSymLink());
    EXPECT_EQ(contents(path(u"real.lineara"_qs)), smallFamily());
}

TEST_F(Saving, LinksInACircleAreRefused)
{
    ASSERT_TRUE(QFile::link(u"b"_qs, path(u"a"_qs)));
    ASSERT_TRUE(QFile::link(u"a"_qs, path(u"b"_qs)));
    EXPECT_THAT(problem(saveFamilyFile(family(), path(u"a"_qs))), HasSubstr("circle"));
}

TEST_F(Saving, FolderThatIsGone)
{
    const auto file = path(u"gone/a.lineara"_qs);
    EXPECT_THAT(problem(saveFamilyFile(family(), file)),
                AllOf(HasSubstr(file.toStdString()), HasSubstr("can't be saved"), HasSubstr("does not exist")));
}

TEST_F(Saving, ParentThatIsAFile)
{
    put(path(u"file"_qs), "old");
    EXPECT_THAT(problem(saveFamilyFile(family(), path(u"file/a.lineara"_qs))), HasSubstr("not a folder"));
    EXPECT_EQ(contents(path(u"file"_qs)), "old");
}

TEST_F(Saving, FolderInTheWay)
{
    ASSERT_TRUE(QDir(path(u"."_qs)).mkdir(u"a.lineara"_qs));
    EXPECT_THAT(problem(saveFamilyFile(family(), path(u"a.lineara"_qs))), HasSubstr("it is a folder"));
    EXPECT_TRUE(filesInFolder().isEmpty());
}

TEST_F(Saving, DeviceIsNeverReplaced)
{
    EXPECT_THAT(problem(saveFamilyFile(family(), u"/dev/full"_qs)), HasSubstr("not an ordinary file"));
}

TEST_F(Saving, ReadOnlyFileIsNotReplacedBehindItsBack)
{
    const auto file = path(u"a.lineara"_qs);
    put(file, "old");
    ASSERT_EQ(::chmod(qPrintable(path(u"."_qs)), 0777), 0);
    ASSERT_EQ(::chmod(qPrintable(file), 0444), 0);
    EXPECT_THAT(asOrdinaryUser([&] { return problem(saveFamilyFile(family(), file)); }),
                HasSubstr("permission to write to the file is denied"));
    EXPECT_EQ(contents(file), "old");
}

TEST_F(Saving, FolderThatMayNotBeWrittenTo)
{
    const auto file = path(u"a.lineara"_qs);
    put(file, "old");
    ASSERT_EQ(::chmod(qPrintable(file), 0666), 0);
    ASSERT_EQ(::chmod(qPrintable(path(u"."_qs)), 0555), 0);
    EXPECT_THAT(asOrdinaryUser([&] { return problem(saveFamilyFile(family(), file)); }),
                HasSubstr("permission to write to its folder is denied"));
    ASSERT_EQ(::chmod(qPrintable(path(u"."_qs)), 0755), 0);
    EXPECT_EQ(contents(file), "old");
}

TEST_F(Saving, NameThatIsTooLong)
{
    EXPECT_THAT(problem(saveFamilyFile(family(), path(QString(300, u'a')))), HasSubstr("too long"));
    EXPECT_TRUE(filesInFolder().isEmpty());
}

TEST_F(Saving, LongestNameIsNoHindrance)
{
    EXPECT_EQ(problem(saveFamilyFile(family(), path(QString(255, u'a')))), "");
}

TEST_F(Saving, WriteThatFailsLeavesTheOldFile)
{
    put(path(u"a"_qs), "old");
    auto calls = store::FileCalls::ofTheSystem();
    int writes = 0;
    calls.write = [&writes](int file, const void* bytes, std::size_t size) -> ssize_t {
        if (++writes == 1)
            return ::write(file, bytes, size);
        errno = ENOSPC;
        return -1;
    };
    EXPECT_THAT(problem(saveWith(calls, u"a"_qs)), AllOf(HasSubstr("/a”"), HasSubstr("no space left")));
    EXPECT_EQ(contents(path(u"a"_qs)), "old");
    EXPECT_EQ(filesInFolder(), QStringList{u"a"_qs});
}

TEST_F(Saving, SyncThatFailsLeavesTheOldFile)
{
    put(path(u"a"_qs), "old");
    auto calls = store::FileCalls::ofTheSystem();
    calls.sync = [](int) {
        errno = EIO;
        return -1;
    };
    EXPECT_THAT(problem(saveWith(calls, u"a"_qs)), HasSubstr("the disk reports an error"));
    EXPECT_EQ(contents(path(u"a"_qs)), "old");
    EXPECT_EQ(filesInFolder(), QStringList{u"a"_qs});
}

TEST_F(Saving, RenameThatFailsLeavesTheOldFile)
{
    put(path(u"a"_qs), "old");
    auto calls = store::FileCalls::ofTheSystem();
    calls.rename = [](const char*, const char*) {
        errno = EROFS;
        return -1;
    };
    EXPECT_THAT(problem(saveWith(calls, u"a"_qs)), HasSubstr("read-only"));
    EXPECT_EQ(contents(path(u"a"_qs)), "old");
    EXPECT_EQ(filesInFolder(), QStringList{u"a"_qs});
}

TEST_F(Saving, DataIsSyncedBeforeItTakesTheFilesPlaceAndTheFolderAfterwards)
{
    std::string order;
    auto calls = store::FileCalls::ofTheSystem();
    calls.write = [&order](int file, const void* bytes, std::size_t size) {
        order += "write ";
        return ::write(file, bytes, size);
    };
    calls.sync = [&order](int file) {
        struct stat status = {};
        ::fstat(file, &status);
        order += S_ISDIR(status.st_mode) ? "sync-folder " : "sync-file ";
        return ::fsync(file);
    };
    calls.rename = [&order](const char* from, const char* to) {
        order += "rename ";
        return ::rename(from, to);
    };
    EXPECT_EQ(problem(saveWith(calls, u"a"_qs)), "");
    EXPECT_EQ(order, "write write sync-file rename sync-folder ");
}

TEST_F(Saving, InterruptedAndPartialWritesGoOn)
{
    auto calls = store::FileCalls::ofTheSystem();
    int writes = 0;
    calls.write = [&writes](int file, const void* bytes, std::size_t) -> ssize_t {
        if (++writes % 2 == 1) {
            errno = EINTR;
            return -1;
        }
        return ::write(file, bytes, 1);
    };
    EXPECT_EQ(problem(saveWith(calls, u"a"_qs)), "");
    EXPECT_EQ(contents(path(u"a"_qs)), "new text");
}

} // namespace lineara::test
