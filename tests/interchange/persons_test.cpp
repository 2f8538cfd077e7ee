#include "imported.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

TEST(ImportedPersons, StandInThePoolInFileOrderWithoutRowOrPlace)
{
    const auto family = imported("0 @I3@ INDI\n1 NAME C\n0 @I1@ INDI\n1 NAME A\n0 @I2@ INDI\n1 NAME B\n");
    EXPECT_EQ(names(membersOf(family)), "C A B");
    EXPECT_EQ(family.context->allPools().size(), 1u);
    for (const Person* person : membersOf(family)) {
        EXPECT_EQ(person->generation(), std::nullopt);
        EXPECT_EQ(person->x(), std::nullopt);
    }
    EXPECT_FALSE(family.context->journal().canUndo());
}

TEST(ImportedPersons, HaveTheirDatesByDayMonthAndYear)
{
    const auto family = imported("0 @I1@ INDI\n1 BIRT\n2 DATE 5 MAR 1564\n1 DEAT Y\n2 DATE APR 1616\n");
    const Person& person = member(family, 0);
    EXPECT_EQ(person.birthDay(), 5);
    EXPECT_EQ(person.birthMonth(), 3);
    EXPECT_EQ(person.birthYear(), 1564);
    EXPECT_EQ(person.deathDay(), std::nullopt);
    EXPECT_EQ(person.deathMonth(), 4);
    EXPECT_EQ(person.deathYear(), 1616);
    EXPECT_EQ(notesOf(family), "");
}

TEST(ImportedPersons, AChangedDateIsTold)
{
    const auto family = imported("0 @I1@ INDI\n1 BIRT\n2 DATE ABT MAR 1600\n1 DEAT\n2 DATE Ginnungagap\n");
    EXPECT_EQ(member(family, 0).birthYear(), 1600);
    EXPECT_EQ(member(family, 0).deathYear(), std::nullopt);
    EXPECT_EQ(notesOf(family), "line 3: INDI.BIRT.DATE \"ABT MAR 1600\" was taken as month 3, year 1600\n"
                               "line 5: INDI.DEAT.DATE \"Ginnungagap\" was not taken: it is not understood as a date");
    EXPECT_EQ(family.report.notTaken, 1u);
}

TEST(ImportedPersons, OfSeveralBirthsTheFirstWithADateCounts)
{
    const auto family = imported("0 @I1@ INDI\n1 BIRT\n2 PLAC Rome\n1 BIRT\n2 DATE 690\n1 BIRT\n2 DATE ABT 686\n");
    EXPECT_EQ(member(family, 0).birthYear(), 690);
    EXPECT_EQ(keptOf(family), "INDI.BIRT 2, INDI.BIRT.PLAC 1, INDI.BIRT.DATE 1");
    EXPECT_EQ(notesOf(family), "");
}

TEST(ImportedPersons, ABirthWhoseDateIsNoneDoesNotStandInTheWayOfAnother)
{
    const auto family = imported("0 @I1@ INDI\n1 BIRT\n2 DATE soon\n1 BIRT\n2 DATE 690\n");
    EXPECT_EQ(member(family, 0).birthYear(), 690);
    EXPECT_EQ(family.report.notTaken, 1u);
}

TEST(ImportedPersons, OfSeveralDatesOfABirthTheFirstThatSaysOneCounts)
{
    const auto family =
        imported("0 @I1@ INDI\n1 BIRT\n2 DATE (about harvest)\n2 DATE 12 MAR 1850\n2 DATE 1851\n1 BIRT\n2 DATE 1852\n");
    EXPECT_EQ(member(family, 0).birthYear(), 1850);
    EXPECT_EQ(member(family, 0).birthDay(), 12);
    EXPECT_EQ(keptOf(family), "INDI.BIRT.DATE 2, INDI.BIRT 1");
    EXPECT_EQ(notesOf(family),
              "line 3: INDI.BIRT.DATE \"(about harvest)\" was not taken: it is not understood as a date");
}

TEST(ImportedPersons, ShowTheFirstNameAndKeepTheOthers)
{
    const auto family = imported("0 @I1@ INDI\n1 NAME Ann /Hathaway/\n2 GIVN Ann\n2 SURN Hathaway\n2 NICK Agnes\n"
                                 "1 NAME Ann /Shakespeare/\n");
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("Ann \"Agnes\" Hathaway"));
    EXPECT_EQ(keptOf(family), "INDI.NAME 1");
    EXPECT_EQ(notesOf(family), "");
}

TEST(ImportedPersons, KeepPiecesThatTheNameShowsOnlyAsPartOfAWord)
{
    const auto family = imported("0 @I1@ INDI\n1 NAME Anna /Oak-Ash/\n2 GIVN Ann\n2 SURN Oak\n");
    EXPECT_EQ(keptOf(family), "INDI.NAME.GIVN 1, INDI.NAME.SURN 1");
}

TEST(ImportedPersons, WithoutAWholeNameAreNamedByItsPieces)
{
    const auto family =
        imported("0 @I1@ INDI\n1 NAME\n2 SURN Hathaway\n2 GIVN Ann\n0 @I2@ INDI\n1 NAME //\n0 @I3@ INDI\n");
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("Ann Hathaway"));
    EXPECT_EQ(member(family, 1).name(), std::nullopt);
    EXPECT_EQ(member(family, 2).name(), std::nullopt);
    EXPECT_EQ(notesOf(family), "line 6: INDI.NAME \"//\" was not taken: it is empty");
}

TEST(ImportedPersons, KeepTheirNotesApartByABlankLine)
{
    const auto family = imported("0 @I1@ INDI\n1 NOTE one\n2 CONT line two\n1 NOTE @N1@\n1 NOTE\n1 SNOTE @N2@\n"
                                 "0 @N1@ NOTE shared\n0 @N2@ SNOTE also @@home\n");
    EXPECT_EQ(member(family, 0).additional(), QStringLiteral("one\nline two\n\nshared\n\nalso @home"));
    EXPECT_EQ(notesOf(family), "");
}

TEST(ImportedPersons, NotesThatAreNotThereAreTold)
{
    const auto family = imported("0 @I1@ INDI\n1 NOTE @N1@\n1 NOTE @VOID@\n1 NOTE @I1@\n0 @N2@ NOTE nobody's\n");
    EXPECT_EQ(member(family, 0).additional(), std::nullopt);
    EXPECT_EQ(notesOf(family),
              "line 2: INDI.NOTE \"@N1@\" was not taken: it points at a record that is not in the file\n"
              "line 3: INDI.NOTE \"@VOID@\" was not taken: it points at nobody\n"
              "line 4: INDI.NOTE \"@I1@\" was not taken: it points at a record of another kind");
    EXPECT_EQ(keptOf(family), "NOTE 1");
}

TEST(ImportedPersons, HoldNothingThatAFamilyFileCanNot)
{
    const auto family =
        imported("0 @I1@ INDI\n1 NAME A\x01 /B/\n1 NOTE a\x1B[31m\tb\n1 NOTE @N1@\n0 @N1@ NOTE \xEF\xBF\xBF\n");
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("A\uFFFD B"));
    EXPECT_EQ(member(family, 0).additional(), QStringLiteral("a\uFFFD[31m\tb\n\n\uFFFD"));
    EXPECT_THAT(notesOf(family), HasSubstr("line 2: held characters that can't be written to a file"));
    EXPECT_EQ(family.report.notes.size(), 3);
}

TEST(ImportedPersons, ALongNoteCanNotBeHandedOutWithoutEnd)
{
    QByteArray text = "0 @N1@ NOTE " + QByteArray(1024 * 1024, 'x') + "\n";
    for (int i = 0; i < 100; ++i)
        text += "0 INDI\n1 NOTE @N1@\n";
    const auto family = imported(text);
    EXPECT_EQ(member(family, 63).additional()->size(), 1024 * 1024);
    EXPECT_EQ(member(family, 64).additional(), std::nullopt);
    EXPECT_EQ(family.report.notTaken, 36u);
}

TEST(ImportedPersons, AreMadeOfRecordsWithoutOrWithTheSameCrossReferenceToo)
{
    const auto family =
        imported("0 INDI\n1 NAME A\n0 @I1@ INDI\n1 NAME B\n0 @I1@ INDI\n1 NAME C\n0 @I2@ INDI\n1 NAME D\n"
                 "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n");
    EXPECT_EQ(names(membersOf(family)), "A B C D");
    EXPECT_EQ(names(member(family, 3).partners()), "B");
    EXPECT_THAT(notesOf(family), HasSubstr("line 1: INDI has no cross-reference"));
    EXPECT_THAT(notesOf(family), HasSubstr("line 5: \"I1\" is defined by line 3 already"));
}

} // namespace
} // namespace lineara
