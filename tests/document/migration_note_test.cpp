// What bringing a file up to date leaves elsewhere when it does not come to its end, and who takes that away.

#include "document/family_opening.h"
#include "up_to_date.h"

#include <gmock/gmock.h>

#include <cerrno>

using testing::HasSubstr;

namespace lineara {

TEST_F(UpToDate, WhatAKilledProgramPutElsewhereGoesWhenTheFileIsOpened)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_11"_qs));
    const auto notes = MigrationPlaces::ofTheUser().notesFolder;
    const auto original = put(u"kept.lineara"_qs, "half an original");
    const auto temporary = put(u"home/f.lineara"_qs, "half a family");
    {
        MigrationNote killed(notes, path);
        killed.addOriginal(original);
        killed.setTemporary(temporary, temporary);
    }
    MigrationNote(notes, put(u"g.lineara"_qs, "")).addOriginal(put(u"other.lineara"_qs, "another original"));
    ASSERT_TRUE(openFamily(path));
    EXPECT_FALSE(QFile::exists(original));
    EXPECT_FALSE(QFile::exists(temporary));
    EXPECT_TRUE(QFile::exists(files_.path(u"other.lineara"_qs)));
    EXPECT_EQ(QDir(notes).entryList(QDir::Files).size(), 1);
}

TEST_F(UpToDate, WhatAKilledProgramKeptStaysUntilTheFileOpens)
{
    const auto path = put(u"f.lineara"_qs, "no family");
    const auto original = put(u"kept.lineara"_qs, sample(u"family_11"_qs));
    MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).addOriginal(original);
    ASSERT_TRUE(openFamily(path).failed());
    EXPECT_TRUE(QFile::exists(original));
    put(u"f.lineara"_qs, sample(u"family_14"_qs));
    ASSERT_TRUE(openFamily(path));
    EXPECT_FALSE(QFile::exists(original));
}

TEST_F(UpToDate, AnEmptyTemporaryFileOfAKilledProgramGoes)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    const auto temporary = home_ + u"/f.lineara"_qs;
    MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).announceTemporary(temporary);
    put(u"home/f.lineara"_qs, "");
    ASSERT_TRUE(openFamily(path));
    EXPECT_FALSE(QFile::exists(temporary));
}

TEST_F(UpToDate, WhatWasThereBeforeIsNoTemporaryFileHoweverTheProgramEnds)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    const auto other = put(u"home/f.lineara"_qs, "");
    MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).announceTemporary(other);
    ASSERT_TRUE(openFamily(path));
    EXPECT_TRUE(QFile::exists(other));
}

TEST_F(UpToDate, ATemporaryFileThatSomebodyHasWrittenToIsTheirs)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    const auto temporary = put(u"home/f.lineara"_qs, "half a family");
    MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).setTemporary(temporary, temporary);
    put(u"home/f.lineara"_qs, "the user's");
    ASSERT_TRUE(openFamily(path));
    EXPECT_EQ(bytesOf(temporary), "the user's");
}

TEST_F(UpToDate, WhatCanNotTakeTheFilesPlaceIsKeptOnceHoweverOftenItIsTried)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    auto failing = places();
    failing.notesFolder = MigrationPlaces::ofTheUser().notesFolder;
    failing.calls.rename = [path](const char* from, const char* to) {
        errno = EROFS;
        return QFile::decodeName(to) == path ? -1 : ::rename(from, to);
    };
    for (int time = 0; time < 3; ++time) {
        EXPECT_THAT(problem(path, failing), HasSubstr("“" + home_.toStdString() + "/f.lineara”"));
        EXPECT_EQ(filesAtHome(), QStringList{u"f.lineara"_qs});
        EXPECT_TRUE(isUpdateStuck(path));
    }
    ASSERT_TRUE(openFamily(path));
    EXPECT_TRUE(filesAtHome().isEmpty());
    EXPECT_FALSE(isUpdateStuck(path));
}

TEST_F(UpToDate, AnUpToDateCopyThatIsOpenIsNotRemoved)
{
    const auto path = put(u"f.lineara"_qs, sample(u"family_12"_qs));
    const auto kept = put(u"home/f.lineara"_qs, sample(u"family_14"_qs));
    MigrationNote(MigrationPlaces::ofTheUser().notesFolder, path).setTemporary(kept, kept);
    const auto isOpen = lockFamilyFile(kept);
    ASSERT_TRUE(openFamily(path));
    EXPECT_EQ(bytesOf(kept), sample(u"family_14"_qs));
}

} // namespace lineara
