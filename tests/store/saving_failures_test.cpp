#include "saved_files.h"

#include <QFileInfo>

#include <csignal>

#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/xattr.h>

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;

TEST_F(Saving, LimitOfTheSystemLeavesTheOldFile)
{
    put(path(u"a"_qs), "old");
    struct rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = before;
    small.rlim_cur = 100;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto outcome = saveFamilyFile(family(), path(u"a"_qs));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_THAT(problem(outcome), HasSubstr("too large"));
    EXPECT_EQ(contents(path(u"a"_qs)), "old");
    EXPECT_EQ(filesInFolder(), QStringList{u"a"_qs});
}

TEST_F(Saving, AnyCallThatFailsLeavesOneWholeFileAndNothingElse)
{
    int callsOfASoundSaving = 0;
    const auto counting = [&callsOfASoundSaving](int failAt, int error) {
        auto calls = store::FileCalls::ofTheSystem();
        callsOfASoundSaving = 0;
        const auto fails = [&callsOfASoundSaving, failAt, error] {
            errno = error;
            return ++callsOfASoundSaving == failAt;
        };
        calls.write = [=](int file, const void* bytes, std::size_t size) -> ssize_t {
            return fails() ? -1 : ::write(file, bytes, size);
        };
        calls.sync = [=](int file) { return fails() ? -1 : ::fsync(file); };
        calls.rename = [=](const char* from, const char* to) { return fails() ? -1 : ::rename(from, to); };
        return calls;
    };
    ASSERT_EQ(problem(saveWith(counting(0, 0), u"a"_qs)), "");
    const int all = callsOfASoundSaving;
    ASSERT_EQ(all, 5);
    for (const int error : {EIO, ENOSPC, EDQUOT, EROFS}) {
        for (int failAt = 1; failAt <= all; ++failAt) {
            put(path(u"a"_qs), "old");
            EXPECT_THAT(problem(saveWith(counting(failAt, error), u"a"_qs)),
                        AllOf(HasSubstr("/a” can't be saved: "), HasSubstr(store::reasonOf(error).toStdString())));
            // The last call syncs the folder, after the new file took the place of the old one.
            EXPECT_EQ(contents(path(u"a"_qs)), failAt < all ? "old" : "new text");
            EXPECT_EQ(filesInFolder(), QStringList{u"a"_qs});
        }
    }
}

TEST_F(Saving, WhatKilledProgramsHaveLeftIsRemovedByTheNextSave)
{
    const QStringList others = {u".lineara-0123456"_qs,  u".lineara-012345678"_qs, u".lineara-0123456g"_qs,
                                u".lineara-0123456A"_qs, u"lineara-01234567"_qs,   u".lineara-01234567.bak"_qs,
                                u"x.lineara-01234567"_qs};
    for (const auto& other : others)
        put(path(other), "somebody's");
    put(path(u".lineara-01234567"_qs), "half of a fam");
    put(path(u".lineara-fedcba98"_qs), "");
    ASSERT_TRUE(QDir(path(u"."_qs)).mkdir(u".lineara-00000000"_qs));
    ASSERT_TRUE(QFile::link(path(u".lineara-0123456"_qs), path(u".lineara-11111111"_qs)));
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"a"_qs))), "");
    for (const auto& other : others)
        EXPECT_EQ(contents(path(other)), "somebody's") << other.toStdString();
    EXPECT_FALSE(QFile::exists(path(u".lineara-01234567"_qs)));
    EXPECT_FALSE(QFile::exists(path(u".lineara-fedcba98"_qs)));
    EXPECT_TRUE(QFileInfo(path(u".lineara-00000000"_qs)).isDir());
    EXPECT_TRUE(QFileInfo(path(u".lineara-11111111"_qs)).isSymLink());
}

TEST_F(Saving, WhatAnotherSaveIsWritingStaysUntilItsEnd)
{
    // The inner save comes while the file of the outer one is whole but has not got its name, at the latest moment.
    auto calls = store::FileCalls::ofTheSystem();
    calls.rename = [this](const char* from, const char* to) {
        EXPECT_EQ(problem(saveFamilyFile(family(), path(u"b"_qs))), "");
        return ::rename(from, to);
    };
    EXPECT_EQ(problem(saveWith(calls, u"a"_qs)), "");
    EXPECT_EQ(contents(path(u"a"_qs)), "new text");
    EXPECT_EQ(contents(path(u"b"_qs)), smallFamily());
    EXPECT_EQ(filesInFolder(), (QStringList{u"a"_qs, u"b"_qs}));
}

TEST_F(Saving, ChainOfRelativeLinksToNothingYetMakesTheFile)
{
    ASSERT_TRUE(QDir(path(u"."_qs)).mkpath(u"one/two"_qs));
    ASSERT_TRUE(QFile::link(u"one/second"_qs, path(u"first"_qs)));
    ASSERT_TRUE(QFile::link(u"two/third"_qs, path(u"one/second"_qs)));
    ASSERT_TRUE(QFile::link(u"../../real.lineara"_qs, path(u"one/two/third"_qs)));
    EXPECT_EQ(problem(saveFamilyFile(family(), path(u"first"_qs))), "");
    for (const auto& link : {u"first"_qs, u"one/second"_qs, u"one/two/third"_qs})
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink());
    EXPECT_EQ(contents(path(u"real.lineara"_qs)), smallFamily());
}

TEST_F(Saving, LinkIntoAFolderThatIsGone)
{
    ASSERT_TRUE(QFile::link(u"gone/real.lineara"_qs, path(u"link"_qs)));
    EXPECT_THAT(problem(saveFamilyFile(family(), path(u"link"_qs))),
                AllOf(HasSubstr("/link” can't be saved"), HasSubstr("does not exist")));
    EXPECT_TRUE(QFileInfo(path(u"link"_qs)).isSymLink());
}

TEST_F(Saving, ExtendedAttributesAndAccessListsStay)
{
    const auto file = path(u"a.lineara"_qs);
    const auto name = file.toLocal8Bit();
    put(file, "old");
    const std::string note = "from the attic";
    // One more reader: version, then tag, permissions and id of each entry.
    const auto list = QByteArray::fromHex("02000000"
                                          "01000600ffffffff"
                                          "02000400feff0000"
                                          "04000400ffffffff"
                                          "10000400ffffffff"
                                          "20000000ffffffff");
    constexpr const char* access = "system.posix_acl_access";
    const auto size = static_cast<std::size_t>(list.size());
    const bool hasNote = ::setxattr(name, "user.note", note.data(), note.size(), 0) == 0;
    const bool hasList = ::setxattr(name, access, list.constData(), size, 0) == 0;
    EXPECT_EQ(problem(saveFamilyFile(family(), file)), "");
    EXPECT_EQ(contents(file), smallFamily());
    std::array<char, 100> value{};
    if (hasNote) {
        const auto length = ::getxattr(name, "user.note", value.data(), value.size());
        EXPECT_EQ(std::string(value.data(), static_cast<std::size_t>(std::max<ssize_t>(0, length))), note);
    }
    if (hasList) {
        EXPECT_EQ(QByteArray(value.data(), ::getxattr(name, access, value.data(), value.size())).toHex(), list.toHex());
    }
}

TEST_F(Saving, FullDiskLeavesTheOldFile)
{
    // Where no small disk may be mounted, a device that says the same stands in for it.
    const auto disk = path(u"disk"_qs);
    ASSERT_TRUE(QDir().mkdir(disk));
    const bool isMounted = ::mount("none", qPrintable(disk), "tmpfs", 0, "size=64k") == 0;
    put(disk + u"/a"_qs, "old");
    auto calls = store::FileCalls::ofTheSystem();
    if (!isMounted) {
        calls.write = [](int, const void*, std::size_t) -> ssize_t {
            errno = ENOSPC;
            return -1;
        };
    }
    const std::string large(1'000'000, 'x');
    const auto saved = store::replaceFile(
        disk + u"/a"_qs, [&large](const store::ByteSink& sink) { return sink(large); }, calls);
    EXPECT_THAT(problem(saved), HasSubstr("no space left"));
    EXPECT_EQ(contents(disk + u"/a"_qs), "old");
    EXPECT_EQ(QDir(disk).entryList(QDir::Files | QDir::Hidden), QStringList{u"a"_qs});
    if (isMounted) {
        EXPECT_EQ(::umount(qPrintable(disk)), 0);
    }
}

} // namespace lineara::test
