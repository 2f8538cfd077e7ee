#include "document/family_opening.h"
#include "local_zone.h"
#include "up_to_date.h"

#include <QFileInfo>

#include <gmock/gmock.h>

#include <cerrno>

#include <sys/stat.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace lineara {

TEST_F(UpToDate, EveryOldSampleOpensAndBecomesTheFrozenResult)
{
    const test::LocalZone zone("Asia/Tokyo");
    const std::vector<std::pair<QString, QString>> ways = {{u"family_11"_qs, u"golden/11_to_14"_qs},
                                                           {u"family_12"_qs, u"golden/12_to_14.Tokyo"_qs},
                                                           {u"family_13"_qs, u"golden/13_to_14.Tokyo"_qs},
                                                           {u"family_14"_qs, u"family_14"_qs}};
    for (const auto& [old, result] : ways) {
        const auto path = put(u"My Family.lineara"_qs, sample(old));
        const auto opened = openFamily(path);
        ASSERT_TRUE(opened) << opened.failure().message.toStdString();
        EXPECT_TRUE(opened.value().repairs.isEmpty());
        EXPECT_EQ(bytesOf(path), sample(result));
        EXPECT_TRUE(filesAtHome().isEmpty());
    }
}

TEST_F(UpToDate, TheOldestSampleTakesTwoPasses)
{
    const auto path = put(u"My Family.lineara"_qs, sample(u"family_11"_qs));
    const LogCapture log;
    ASSERT_TRUE(bringUpToDate(path, places()));
    const auto pass = "Performing migration\nSuccessfully migrated to temporary file, overwriting original data\n";
    EXPECT_EQ(log.text(), "Checking if migration needed for file: file://" +
                              path.toStdString().replace(path.toStdString().find(' '), 1, "%20") +
                              "\nMigration needed, migrating data to latest version\n"
                              "Progressive migration required\nLoading all available models\n" +
                              pass + pass);
}

TEST_F(UpToDate, TheFileAsItWasIsKeptUntilTheFamilyIsOpen)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_11"_qs));
    auto file = bringUpToDate(path, places());
    ASSERT_TRUE(file && file.value().original);
    EXPECT_EQ(bytesOf(*file.value().original), sample(u"family_11"_qs));
    EXPECT_EQ(originals(), QStringList{u"f.lineara"_qs});
    file.value().forgetOriginal();
    EXPECT_TRUE(originals().isEmpty());

    ASSERT_TRUE(openFamily(put(u"g.lineara"_qs, sample(u"family_11"_qs))));
    const QDir folder(MigrationPlaces::ofTheUser().originalsFolder);
    EXPECT_TRUE(folder.exists());
    EXPECT_TRUE(folder.entryList(QDir::Files).isEmpty());
}

TEST_F(UpToDate, WhoGivesUpKeepsTheFileAsItWas)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_11"_qs));
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(bringUpToDate(path, places(), Progress({}, stop.get_token())).failed());
    EXPECT_EQ(bytesOf(path), sample(u"family_11"_qs));
    EXPECT_TRUE(originals().isEmpty());
    EXPECT_TRUE(filesAtHome().isEmpty());
}

TEST_F(UpToDate, BringingUpToDateTellsHowFarItIs)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    std::vector<double> parts;
    ASSERT_TRUE(openFamily(path, Progress([&](double part) { parts.push_back(part); })));
    EXPECT_TRUE(std::ranges::is_sorted(parts));
    EXPECT_THAT(parts, testing::Contains(testing::AllOf(testing::Gt(0), testing::Le(0.5))));
    EXPECT_EQ(parts.back(), 1);
}

TEST_F(UpToDate, ANewerVersionIsRefusedByItsNumber)
{
    const auto bytes = sample(u"family_14"_qs).replace("modelVersion\">14", "modelVersion\">15");
    const auto path = put(u"f.lineara"_qs, bytes);
    const auto opened = openFamily(path);
    ASSERT_TRUE(opened.failed());
    EXPECT_THAT(opened.failure().message.toStdString(),
                AllOf(HasSubstr("“" + path.toStdString() + "”"),
                      HasSubstr("was written by a newer version of Lineara (data model 15)")));
    EXPECT_EQ(bytesOf(path), bytes);
    EXPECT_TRUE(originals().isEmpty());
    EXPECT_TRUE(filesAtHome().isEmpty());
}

TEST_F(UpToDate, AVersionThatNoWayLeadsFromIsRefusedByItsNumber)
{
    const auto bytes = sample(u"family_11"_qs).replace("modelVersion\">11", "modelVersion\">10");
    const auto path = put(u"f.lineara"_qs, bytes);
    EXPECT_THAT(problem(path, places()), AllOf(HasSubstr(path.toStdString()), HasSubstr("can't be brought up to date"),
                                               HasSubstr("data model 10")));
    EXPECT_EQ(bytesOf(path), bytes);
}

TEST_F(UpToDate, BrokenFilesStayAsTheyAreAndTheReaderSaysWhy)
{
    for (const QByteArray bytes : {"", "<database/>", "no family", "<database><databaseInfo></databaseInfo>"}) {
        const auto path = put(u"f.lineara"_qs, bytes);
        const auto opened = openFamily(path);
        ASSERT_TRUE(opened.failed());
        EXPECT_THAT(opened.failure().message.toStdString(), HasSubstr(path.toStdString()));
        EXPECT_EQ(bytesOf(path), bytes);
    }
    EXPECT_TRUE(filesAtHome().isEmpty());
}

TEST_F(UpToDate, WhatCantBeReadAfterTheLastStepReplacesNothing)
{
    // A picture of two persons is no business of a step, but no reader takes it.
    auto bytes = sample(u"family_12"_qs);
    bytes.replace("idrefs=\"z104 z103\"/>\n", "idrefs=\"z104 z103\"/>\n        <relationship name=\"pic\" type=\"0/1\" "
                                              "destination=\"PIC\" idrefs=\"z120\"/>\n");
    const auto path = put(u"f.lineara"_qs, bytes);
    EXPECT_THAT(problem(path, places()), AllOf(HasSubstr(path.toStdString()), Not(HasSubstr("/home/"))));
    EXPECT_EQ(bytesOf(path), bytes);
    EXPECT_TRUE(filesAtHome().isEmpty());
    EXPECT_TRUE(originals().isEmpty());
}

TEST_F(UpToDate, AFileInTheHomeFolderMigratesInItsPlace)
{
    const auto path = put(u"home/f.lineara"_qs, sample(u"family_12"_qs));
    ASSERT_TRUE(openFamily(path));
    EXPECT_EQ(metadataForPersistentStore(path).value().modelVersion, 14);
    EXPECT_EQ(filesAtHome(), QStringList{u"f.lineara"_qs});
}

TEST_F(UpToDate, AnotherFileOfThatNameInTheHomeFolderStaysByteForByte)
{
    const auto other = put(u"home/f.lineara"_qs, sample(u"family_13"_qs));
    ASSERT_TRUE(openFamily(put(u"f.lineara"_qs, sample(u"family_12"_qs))));
    EXPECT_EQ(bytesOf(other), sample(u"family_13"_qs));
    EXPECT_EQ(filesAtHome(), QStringList{u"f.lineara"_qs});
}

TEST_F(UpToDate, WithoutAHomeItGoesAllTheSame)
{
    const Variable none("HOME", std::nullopt);
    EXPECT_TRUE(MigrationPlaces::ofTheUser().homeFolder.isEmpty());
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    ASSERT_TRUE(openFamily(path));
    EXPECT_EQ(metadataForPersistentStore(path).value().modelVersion, 14);
}

TEST_F(UpToDate, LinksAreFollowedAndPermissionsStay)
{
    const auto path = put(u"real.lineara"_qs, sample(u"family_12"_qs));
    ASSERT_EQ(::chmod(qPrintable(path), 0640), 0);
    const auto link = files_.path(u"link.lineara"_qs);
    ASSERT_TRUE(QFile::link(path, link));
    ASSERT_TRUE(bringUpToDate(link, places()));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_FALSE(QFileInfo(path).isSymLink());
    EXPECT_EQ(metadataForPersistentStore(path).value().modelVersion, 14);
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(UpToDate, ARenameThatFailsLeavesTheFileAndNamesTheCopy)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    auto failing = places();
    failing.calls.rename = [path](const char* from, const char* to) {
        errno = EROFS;
        return QFile::decodeName(to) == path ? -1 : ::rename(from, to);
    };
    const auto message = problem(path, failing);
    EXPECT_THAT(message, AllOf(HasSubstr("read-only"), HasSubstr("“" + home_.toStdString() + "/f.lineara”"),
                               Not(HasSubstr("originals"))));
    EXPECT_EQ(bytesOf(path), sample(u"family_12"_qs));
    EXPECT_EQ(metadataForPersistentStore(home_ + u"/f.lineara"_qs).value().modelVersion, 14);
    EXPECT_TRUE(originals().isEmpty());
}

TEST_F(UpToDate, AFailureInTheSecondPassNamesWhereTheFileAsItWasIs)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_11"_qs));
    auto failing = places();
    int renames = 0;
    failing.calls.rename = [&renames, path](const char* from, const char* to) {
        errno = ENOSPC;
        return QFile::decodeName(to) == path && ++renames == 2 ? -1 : ::rename(from, to);
    };
    EXPECT_THAT(problem(path, failing), AllOf(HasSubstr("no space"), HasSubstr("/originals/f.lineara”")));
    EXPECT_EQ(bytesOf(path), sample(u"golden/11_to_12"_qs));
    EXPECT_EQ(bytesOf(home_ + u"/originals/f.lineara"_qs), sample(u"family_11"_qs));
    EXPECT_TRUE(openFamily(path));
}

TEST_F(UpToDate, EveryCallThatFailsLeavesAFileThatOpens)
{
    for (int failing = 1; failing <= 40; ++failing) {
        for (const int kind : {0, 1, 2}) {
            const auto path = put(u"f.lineara"_qs, sample(u"family_11"_qs));
            auto broken = places();
            int calls = 0;
            const auto fails = [&calls, failing, kind](int which) {
                errno = EIO;
                return kind == which && ++calls == failing;
            };
            broken.calls.write = [&fails](int file, const void* bytes, std::size_t size) -> ssize_t {
                return fails(0) ? -1 : ::write(file, bytes, size);
            };
            broken.calls.sync = [&fails](int) { return fails(1) ? -1 : 0; };
            broken.calls.rename = [&fails](const char* from, const char* to) {
                return fails(2) ? -1 : ::rename(from, to);
            };
            const bool isDone = problem(path, broken).empty();
            EXPECT_EQ(isDone, calls < failing);
            const auto bytes = bytesOf(path);
            EXPECT_TRUE(bytes == sample(u"family_11"_qs) || bytes == sample(u"golden/11_to_12"_qs) ||
                        bytes == sample(u"golden/11_to_14"_qs));
            EXPECT_TRUE(openFamily(path));
            EXPECT_EQ(bytesOf(path), sample(u"golden/11_to_14"_qs));
            QDir(home_).removeRecursively();
            QDir().mkpath(home_);
        }
    }
}

TEST_F(UpToDate, WithoutRoomForTheOriginalNothingIsReplaced)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    auto roomless = places();
    roomless.originalsFolder = u"/dev/null/originals"_qs;
    EXPECT_THAT(problem(path, roomless), AllOf(HasSubstr(path.toStdString()), HasSubstr("/dev/null/originals")));
    EXPECT_EQ(bytesOf(path), sample(u"family_12"_qs));
    EXPECT_TRUE(filesAtHome().isEmpty());
}

TEST_F(UpToDate, WithoutRoomForTheOriginalACopyOpensThatStandsInForTheFile)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    const Variable noRoom("XDG_DATA_HOME", u"/dev/null"_qs);
    const auto opened = openFamily(path);
    ASSERT_TRUE(opened) << opened.failure().message.toStdString();
    EXPECT_TRUE(opened.value().origin.isCopy && opened.value().origin.isStandIn);
    ASSERT_TRUE(opened.value().obstacle);
    EXPECT_THAT(opened.value().obstacle->toStdString(),
                AllOf(HasSubstr("no copy of it as it was can be kept in “/dev/null/"), HasSubstr("not a folder")));
    EXPECT_EQ(bytesOf(path), sample(u"family_12"_qs));
    EXPECT_TRUE(filesAtHome().isEmpty());
}

TEST_F(UpToDate, ProgramsWithoutAWindowLeaveTheFileAlone)
{
    for (const auto& name : {u"family_11"_qs, u"family_12"_qs, u"family_13"_qs, u"family_14"_qs}) {
        const auto path = put(u"f.lineara"_qs, sample(name));
        const auto opened = openSettledFamily(path);
        ASSERT_TRUE(opened) << opened.failure().message.toStdString();
        EXPECT_GE(opened.value().pool->persons().size(), 3U);
        EXPECT_EQ(bytesOf(path), sample(name));
        EXPECT_TRUE(filesAtHome().isEmpty());
    }
    const auto broken = put(u"f.lineara"_qs, sample(u"family_12"_qs).replace(">0</attribute>", ">zero</attribute>"));
    const auto opened = openSettledFamily(broken);
    ASSERT_TRUE(opened.failed());
    EXPECT_THAT(opened.failure().message.toStdString(), HasSubstr("“" + broken.toStdString() + "”"));
}

TEST_F(UpToDate, APathMayBeRelative)
{
    const auto before = QDir::currentPath();
    put(u"f.lineara"_qs, sample(u"family_12"_qs));
    QDir::setCurrent(files_.path({}));
    EXPECT_EQ(problem(u"f.lineara"_qs, places()), "");
    QDir::setCurrent(before);
    EXPECT_EQ(metadataForPersistentStore(files_.path(u"f.lineara"_qs)).value().modelVersion, 14);
}

TEST_F(UpToDate, APathMayBeginWithTwoSlashesAndHoldAnyCharacter)
{
    const auto path = put(u"50% #1?ä&=.lineara"_qs, sample(u"family_12"_qs));
    EXPECT_EQ(problem(u'/' + path, places()), "");
    EXPECT_EQ(metadataForPersistentStore(path).value().modelVersion, 14);
}

} // namespace lineara
