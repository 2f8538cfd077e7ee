// Where the standard lists the words that may stand in a line, 5.5.1 and 7.0 list others.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What becomes of lines below a person in 7.0; and that they come back from there as they were.
std::vector<std::string> linesInSeven(const QByteArray& lines)
{
    const QByteArray text = versionFive("0 @I1@ INDI\n" + lines + "0 @F1@ FAM\n");
    const auto family = imported(text);
    expectToComeBack(family);
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty());
    auto seven = inSeven(family);
    return {seven.begin() + 1, seven.end() - 2};
}

} // namespace

TEST(EnumerationsIn7, AreItsWords)
{
    EXPECT_THAT(
        linesInSeven("1 NAME Ada /Oak/\n2 TYPE birth\n1 NAME Ada /Elm/\n2 TYPE married\n1 NAME Addie\n2 TYPE aka\n"
                     "1 SEX F\n1 FAMC @F1@\n2 PEDI adopted\n2 STAT proven\n2 RESN locked\n"
                     "1 FAMC @F1@\n2 PEDI birth\n1 ADOP\n2 FAMC @F1@\n3 ADOP BOTH\n1 RESN confidential, locked\n"),
        ElementsAre("1 NAME Ada /Oak/", "2 TYPE BIRTH", "1 NAME Ada /Elm/", "2 TYPE MARRIED", "1 NAME Addie",
                    "2 TYPE AKA", "1 SEX F", "1 FAMC @F1@", "2 PEDI ADOPTED", "2 STAT PROVEN", "2 RESN LOCKED",
                    "1 FAMC @F1@", "2 PEDI BIRTH", "1 ADOP", "2 FAMC @F1@", "3 ADOP BOTH",
                    "1 RESN CONFIDENTIAL, LOCKED"));
}

TEST(EnumerationsIn7, LeaveOtherWordsToAPhrase)
{
    EXPECT_THAT(linesInSeven("1 NAME Ada /Oak/\n2 TYPE Stage name\n1 FAMC @F1@\n2 PEDI Guardian\n2 STAT maybe\n"
                             "1 FAMC @F1@\n2 PEDI natural\n1 NAME @@ da\n2 TYPE @@home\n"),
                ElementsAre("1 NAME Ada /Oak/", "2 TYPE OTHER", "3 PHRASE Stage name", "1 FAMC @F1@", "2 PEDI OTHER",
                            "3 PHRASE Guardian", "2 STAT _OTHER", "3 PHRASE maybe", "1 FAMC @F1@", "2 PEDI BIRTH",
                            "3 PHRASE natural", "1 NAME @@ da", "2 TYPE OTHER", "3 PHRASE @@home"));
}

TEST(EnumerationsIn7, TellTheRolesOfPersons)
{
    EXPECT_THAT(
        linesInSeven("1 ASSO @I1@\n2 RELA Godfather\n2 NOTE one\n1 ASSO @I1@\n2 RELA WITN\n1 SOUR @S1@\n2 EVEN BIRT\n"
                     "3 ROLE CHIL\n1 SOUR @S1@\n2 EVEN BIRT\n3 ROLE (Teacher)\n1 SOUR @S1@\n2 EVEN BIRT\n"
                     "3 ROLE (FRIEND)\n"),
        ElementsAre("1 ASSO @I1@", "2 ROLE OTHER", "3 PHRASE Godfather", "2 NOTE one", "1 ASSO @I1@", "2 ROLE WITN",
                    "1 SOUR @S1@", "2 EVEN BIRT", "3 ROLE CHIL", "1 SOUR @S1@", "2 EVEN BIRT", "3 ROLE OTHER",
                    "4 PHRASE Teacher", "1 SOUR @S1@", "2 EVEN BIRT", "3 ROLE FRIEND"));
}

TEST(EnumerationsIn7, StayWhereThereAreNoWordsForThem)
{
    EXPECT_THAT(linesInSeven("1 RESN none\n1 RESN locked, none\n1 SEX male\n1 EVEN\n2 TYPE birth\n1 FAMC @F1@\n2 PEDI\n"
                             "1 NAME Ada\n2 TYPE aka\n3 CONT and more\n"),
                ElementsAre("1 RESN none", "1 RESN locked, none", "1 SEX male", "1 EVEN", "2 TYPE birth", "1 FAMC @F1@",
                            "2 PEDI", "1 NAME Ada", "2 TYPE aka", "3 CONT and more"));
}

TEST(EnumerationsIn7, OfParentsChooseTheSameOnesAsBefore)
{
    for (const QByteArray said : {"birth", "natural", "adopted", "guardian", "unknown", "private"}) {
        const auto family = imported(versionFive(
            "0 @I1@ INDI\n1 NAME Father\n0 @I2@ INDI\n1 NAME Mother\n0 @I3@ INDI\n1 NAME Other\n"
            "0 @I4@ INDI\n1 NAME Child\n1 FAMC @F1@\n2 PEDI " +
            said +
            "\n1 FAMC @F2@\n2 PEDI foster\n0 @F2@ FAM\n1 HUSB @I3@\n1 CHIL @I4@\n"
            "0 @F3@ FAM\n1 HUSB @I3@\n1 WIFE @I1@\n1 CHIL @I4@\n0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 CHIL @I4@\n"));
        expectToComeBack(family);
    }
}

TEST(EnumerationsIn551, KeepPhrasesThatItHasNoPlaceFor)
{
    const QByteArray seven =
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 ASSO @I1@\n2 ROLE FRIEND\n3 PHRASE from school\n"
        "1 NAME Ada\n2 TYPE OTHER\n1 NAME Addie\n2 TYPE OTHER\n3 PHRASE Aka\n1 NAME A\n2 TYPE OTHER\n"
        "3 PHRASE at\n4 CONT school\n1 SOUR @S1@\n2 EVEN BIRT\n3 ROLE GODP\n0 TRLR\n";
    const QByteArray five = exported(*imported(seven).context);
    auto lines = linesOf(five);
    lines.erase(lines.begin(), lines.begin() + 6);
    EXPECT_THAT(lines,
                ElementsAre("1 ASSO @I1@", "2 RELA FRIEND", "3 PHRASE from school", "1 NAME Ada", "2 TYPE other",
                            "1 NAME Addie", "2 TYPE other", "3 PHRASE Aka", "1 NAME A", "2 TYPE other", "3 PHRASE at",
                            "4 CONT school", "1 SOUR @S1@", "2 EVEN BIRT", "3 ROLE (GODP)", "0 TRLR"));
    EXPECT_TRUE(exported(*imported(five).context, GedcomFormat::Gedcom70) == seven);
}
