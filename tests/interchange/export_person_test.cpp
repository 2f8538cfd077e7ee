// What becomes of a person's own lines when name and dates change.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;

namespace {

const QByteArray headOfPerson = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n0 @I1@ INDI\n";

/// What becomes of "Ann /Oak/" with her pieces when she gets this name.
class RenamedAnn : public testing::Test
{
protected:
    static std::vector<std::string> changes(const QString& name)
    {
        const QByteArray text = headOfPerson + "1 NAME Ann /Oak/\n2 GIVN Ann\n2 NICK Nan\n"
                                               "2 SURN Oak\n0 TRLR\n";
        const auto read = imported(text);
        member(read, 0).setName(name);
        return difference(text, exported(*read.context));
    }
};

/// What changes of a record when its person is edited.
class EditedRecordOf : public testing::Test
{
protected:
    template<class Edit>
    static std::vector<std::string> changes(const QByteArray& lines, Edit edit)
    {
        const QByteArray text = headOfPerson + lines + "0 TRLR\n";
        const auto read = imported(text);
        edit(member(read, 0));
        const QByteArray after = exported(*read.context);
        EXPECT_EQ(familyText(*imported(after).context), familyText(*read.context));
        return difference(text, after);
    }
};

} // namespace

TEST_F(RenamedAnn, KeepsNoPieceThatIsOnlyPartOfAWord)
{
    EXPECT_THAT(
        changes(QStringLiteral("Anna Nancy Oakley")),
        ElementsAre("-1 NAME Ann /Oak/", "-2 GIVN Ann", "-2 NICK Nan", "-2 SURN Oak", "+1 NAME Anna Nancy /Oakley/"));
    EXPECT_THAT(changes(QStringLiteral("O'Ann \"Nan\" Oak-Ash")),
                ElementsAre("-1 NAME Ann /Oak/", "-2 GIVN Ann", "+1 NAME O'Ann /Oak-Ash/", "-2 SURN Oak"));
}

TEST_F(RenamedAnn, KeepsPiecesThatAreWholeWords)
{
    EXPECT_THAT(changes(QStringLiteral("Mary Ann (Nan) Oak")),
                ElementsAre("-1 NAME Ann /Oak/", "+1 NAME Mary Ann (Nan) /Oak/"));
}

TEST_F(RenamedAnn, HasANicknameThatIsNoPartOfTheName)
{
    EXPECT_THAT(changes(QStringLiteral("Ann \"Nan\" Ash")),
                ElementsAre("-1 NAME Ann /Oak/", "+1 NAME Ann /Ash/", "-2 SURN Oak"));
    EXPECT_THAT(changes(QStringLiteral("Eve \"Nan\" Oak")),
                ElementsAre("-1 NAME Ann /Oak/", "-2 GIVN Ann", "+1 NAME Eve /Oak/"));
    EXPECT_THAT(changes(QStringLiteral("Ann \"Nana\" Oak")),
                ElementsAre("-1 NAME Ann /Oak/", "+1 NAME Ann \"Nana\" /Oak/", "-2 NICK Nan"));
}

TEST_F(RenamedAnn, MayWriteTheNicknameElsewhere)
{
    EXPECT_THAT(changes(QStringLiteral("Ann Oak \"Nan\"")),
                ElementsAre("-1 NAME Ann /Oak/", "+1 NAME Ann /Oak/ \"Nan\""));
}

TEST_F(EditedRecordOf, ANicknameStaysBesideASurnameAlone)
{
    const auto wed = [](Person& person) { person.setName(QStringLiteral("\"Bob\" Elm")); };
    EXPECT_THAT(changes("1 NAME /Oak/\n2 NICK Bob\n", wed), ElementsAre("-1 NAME /Oak/", "+1 NAME /Elm/"));
    EXPECT_THAT(changes("1 NAME \"Bob\" /Oak/\n2 NICK Bob\n", wed),
                ElementsAre("-1 NAME \"Bob\" /Oak/", "+1 NAME \"Bob\" /Elm/"));
}

TEST_F(EditedRecordOf, OfANameThatIsAllNewTheLastWordIsTheSurname)
{
    const auto named = [](const char* name) {
        return [name](Person& person) { person.setName(QString::fromLatin1(name)); };
    };
    const QByteArray maria = "1 NAME Maria /von Berg/ Jr.\n";
    EXPECT_THAT(changes(maria, named("Mary Mountain")),
                ElementsAre("-1 NAME Maria /von Berg/ Jr.", "+1 NAME Mary /Mountain/"));
    EXPECT_THAT(changes(maria, named("Mary Mountain Jr.")),
                ElementsAre("-1 NAME Maria /von Berg/ Jr.", "+1 NAME Mary /Mountain/ Jr."));
    EXPECT_THAT(changes(maria, named("Mary")), ElementsAre("-1 NAME Maria /von Berg/ Jr.", "+1 NAME Mary"));
    EXPECT_THAT(changes(maria, named("Mary Jr.")), ElementsAre("-1 NAME Maria /von Berg/ Jr.", "+1 NAME Mary Jr."));
}

TEST_F(EditedRecordOf, ADateThatIsGoneIsGoneFromEveryEvent)
{
    const auto cleared = [](Person& person) { person.setBirthYear(std::nullopt); };
    EXPECT_THAT(changes("1 BIRT\n2 DATE 1850\n1 BIRT\n2 DATE 1851\n2 PLAC Rome\n1 BIRT\n2 DATE (at dawn)\n", cleared),
                ElementsAre("-2 DATE 1850", "-1 BIRT", "-2 DATE 1851"));
    EXPECT_THAT(changes("1 BIRT\n2 DATE (harvest)\n2 DATE 1850\n2 DATE 1851\n", cleared),
                ElementsAre("-2 DATE 1850", "-2 DATE 1851"));
}

TEST_F(EditedRecordOf, ANameThatIsGoneIsNotFollowedByTheNext)
{
    EXPECT_THAT(
        changes("1 NAME Ann /Oak/\n2 SOUR book\n1 SEX F\n1 NAME\n2 TYPE aka\n1 NAME Ann /Ash/\n1 NAME\n2 SURN Elm\n",
                [](Person& person) { person.setName(std::nullopt); }),
        ElementsAre("-1 NAME Ann /Oak/", "-2 SOUR book", "-1 NAME Ann /Ash/", "-1 NAME", "-2 SURN Elm"));
}

TEST_F(EditedRecordOf, TheDateThatCountsIsChanged)
{
    EXPECT_THAT(changes("1 BIRT\n2 DATE (about harvest)\n2 DATE 12 MAR 1850\n2 DATE 1850\n",
                        [](Person& person) { person.setBirthYear(1851); }),
                ElementsAre("-2 DATE 12 MAR 1850", "+2 DATE 12 MAR 1851"));
}

TEST_F(EditedRecordOf, WordsAboutTheFormerDateGo)
{
    const auto later = [](Person& person) { person.setBirthYear(1902); };
    EXPECT_THAT(changes("1 BIRT\n2 DATE INT 1900 (about 1900)\n3 SOUR book\n", later),
                ElementsAre("-2 DATE INT 1900 (about 1900)", "+2 DATE 1902"));
    EXPECT_THAT(changes("1 BIRT\n2 DATE 1900\n3 PHRASE about 1900\n3 SOUR book\n", later),
                ElementsAre("-2 DATE 1900", "-3 PHRASE about 1900", "+2 DATE 1902"));
}

TEST_F(EditedRecordOf, ARangeStaysAsLongAsItEndsBehindItsBeginning)
{
    const auto born = [](int year) { return [year](Person& person) { person.setBirthYear(year); }; };
    const QByteArray between = "1 BIRT\n2 DATE BET 1850 AND 1860\n";
    EXPECT_THAT(changes(between, born(1860)), ElementsAre("-2 DATE BET 1850 AND 1860", "+2 DATE BET 1860 AND 1860"));
    EXPECT_THAT(changes(between, born(1870)), ElementsAre("-2 DATE BET 1850 AND 1860", "+2 DATE 1870"));
    EXPECT_THAT(changes("1 BIRT\n2 DATE From 1900 to 1910\n", born(1920)),
                ElementsAre("-2 DATE From 1900 to 1910", "+2 DATE 1920"));
    EXPECT_THAT(changes("1 BIRT\n2 DATE FROM 50 B.C. TO 40 B.C.\n", born(-30)),
                ElementsAre("-2 DATE FROM 50 B.C. TO 40 B.C.", "+2 DATE 30 B.C."));
    EXPECT_THAT(changes("1 BIRT\n2 DATE FROM 1900\n", born(1920)),
                ElementsAre("-2 DATE FROM 1900", "+2 DATE FROM 1920"));
    EXPECT_THAT(changes("1 BIRT\n2 DATE TO 1910\n", born(1920)), ElementsAre("-2 DATE TO 1910", "+2 DATE TO 1920"));
}
