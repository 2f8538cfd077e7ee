// Dates of 5.5.1, and texts in their place, become dates of 7.0; what these can't say is told by a phrase.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QByteArray bornAt(const QByteArray& date)
{
    return versionFive("0 @I1@ INDI\n1 NAME Ada /Oak/\n1 BIRT\n2 DATE " + date + "\n3 TIME 12:00\n");
}

/// What becomes of a date in 7.0: "11 FEB 1732|11 FEB 1731/32".
std::string dateInSeven(const QByteArray& date)
{
    const auto family = imported(bornAt(date));
    expectToComeBack(family);
    auto lines = inSeven(family);
    std::string said = lines[3].substr(std::min<std::size_t>(7, lines[3].size()));
    return lines[4].starts_with("3 PHRASE ") ? said + '|' + lines[4].substr(9) : said;
}

/// The same, by way of 7.0 and back.
std::string dateComingBack(const QByteArray& date)
{
    const auto family = imported(bornAt(date));
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    auto lines = linesOf(exported(*again.context));
    EXPECT_EQ(lines.size(), linesOf(bornAt(date)).size()) << date.data();
    return lines[8].substr(7);
}

} // namespace

TEST(DatesIn7, OfTwoYearsAreTheLaterOne)
{
    EXPECT_EQ(dateInSeven("11 FEB 1731/32"), "11 FEB 1732|11 FEB 1731/32");
    EXPECT_EQ(dateInSeven("ABT 1731/32"), "ABT 1732|ABT 1731/32");
    EXPECT_EQ(dateInSeven("@#DJULIAN@ 11 FEB 1731/32"), "JULIAN 11 FEB 1732|@@#DJULIAN@ 11 FEB 1731/32");
    EXPECT_EQ(dateInSeven("5 FEB 45/44 B.C."), "5 FEB 44 BCE|5 FEB 45/44 B.C.");
    EXPECT_EQ(dateInSeven("BET 1 FEB 1699/00 AND 2 MAR 1731/2"),
              "BET 1 FEB 1700 AND 2 MAR 1732|BET 1 FEB 1699/00 AND 2 MAR 1731/2");
    EXPECT_EQ(dateInSeven("FROM JUN 1731/1732 TO 1740"), "FROM JUN 1731 TO 1740|FROM JUN 1731/1732 TO 1740")
        << "these are alternatives";
}

TEST(DatesIn7, FollowItsGrammar)
{
    EXPECT_EQ(dateInSeven("5 JAN 44 B.C."), "5 JAN 44 BCE");
    EXPECT_EQ(dateInSeven("abt. 1150 bc"), "ABT 1150 BCE|abt. 1150 bc");
    EXPECT_EQ(dateInSeven("5 Mar 1900"), "5 MAR 1900");
    EXPECT_EQ(dateInSeven("5 March 1900"), "5 MAR 1900|5 March 1900");
    EXPECT_EQ(dateInSeven("   ABT     1900"), "ABT 1900");
    EXPECT_EQ(dateInSeven("circa 1900"), "ABT 1900|circa 1900");
    EXPECT_EQ(dateInSeven("1066 A.D."), "1066|1066 A.D.");
    EXPECT_EQ(dateInSeven("BET @#DHEBREW@ 1 NSN 5700 AND @#DFRENCH R@ 1 VEND 2"),
              "BET HEBREW 1 NSN 5700 AND FRENCH_R 1 VEND 2");
    EXPECT_EQ(dateInSeven("FROM 1900 TO 5 JUL 1901"), "FROM 1900 TO 5 JUL 1901");
}

TEST(DatesIn7, ThatAreNoneAreThoseThatAreRead)
{
    EXPECT_EQ(dateInSeven("soon after 1304"), "1304|soon after 1304");
    EXPECT_EQ(dateInSeven("abt. 25 BC (or abt. 30 BC)"), "25 BCE|abt. 25 BC (or abt. 30 BC)");
    EXPECT_EQ(dateInSeven("1840 or 1841"), "1840|1840 or 1841");
    EXPECT_EQ(dateInSeven("May 12, 1900"), "12 MAY 1900|May 12, 1900");
    EXPECT_EQ(dateInSeven("@#DROMAN@ 5 MAR 700"), "|@@#DROMAN@ 5 MAR 700");
    EXPECT_EQ(dateInSeven("unknown"), "|unknown");
    EXPECT_EQ(dateInSeven("(long ago)"), "|long ago");
    EXPECT_EQ(dateInSeven("INT 1900 (about a@@b)"), "1900|about a@b");
    EXPECT_EQ(dateInSeven("INT 45 (a guess)"), "|INT 45 (a guess)") << "this is not read as a year";
    EXPECT_EQ(dateInSeven("10 JAN"), "10 JAN") << "the day of a person would be lost";
    EXPECT_EQ(dateInSeven("31 FEB 1900"), "31 FEB 1900");
}

TEST(DatesIn7, ComeBackAsTheyWere)
{
    for (const QByteArray date : {"11 FEB 1731/32",
                                  "@#DJULIAN@ 11 FEB 1731/32",
                                  "5 JAN 44 B.C.",
                                  "abt. 1150 bc",
                                  "5 March 1900",
                                  "circa 1900",
                                  "soon after 1304",
                                  "1840 or 1841",
                                  "@#DROMAN@ 5 MAR 700",
                                  "(long ago)",
                                  "INT 1900 (about a@@b)",
                                  "INT 1900 ()",
                                  "INT ()",
                                  "()",
                                  "( )",
                                  "INT ABT 1900 (x)",
                                  "INT 45 (a guess)",
                                  "10 JAN",
                                  "BET @#DHEBREW@ 1 NSN 5700 AND @#DFRENCH R@ 1 VEND 2",
                                  "INT @#DJULIAN@ 1700 (x)"})
        EXPECT_EQ(dateComingBack(date), date.toStdString());
    EXPECT_EQ(dateComingBack("unknown"), "(unknown)") << "5.5.1 has brackets around what is no date";
}

TEST(DatesIn7, OfTheFileItselfHaveNoPhrase)
{
    const QByteArray text = versionFive("0 @I1@ INDI\n1 CHAN\n2 DATE 7 Sep 2000\n1 CHAN\n2 DATE around Easter\n");
    EXPECT_THAT(inSeven(imported(text)),
                ElementsAre("0 @I1@ INDI", "1 CHAN", "2 DATE 7 SEP 2000", "1 CHAN", "2 DATE around Easter", "0 TRLR"));
}

TEST(DatesIn7, WithAPhraseOfTheirOwnKeepIt)
{
    const QByteArray text =
        versionFive("0 @I1@ INDI\n1 BIRT\n2 DATE 1731/32\n3 PHRASE in winter\n1 DEAT\n2 DATE (long\n"
                    "3 CONT ago)\n");
    EXPECT_THAT(inSeven(imported(text)), ElementsAre("0 @I1@ INDI", "1 BIRT", "2 DATE 1731/32", "3 PHRASE in winter",
                                                     "1 DEAT", "2 DATE (long", "3 CONT ago)", "0 TRLR"));
}

TEST(DatesIn7, ComeOutAsTheUserLeftThem)
{
    const auto family = imported(bornAt("11 FEB 1731/32"));
    member(family, 0).setBirthYear(1733);
    const auto lines = inSeven(family);
    EXPECT_EQ(lines[3], "2 DATE 11 FEB 1733");
    const auto again = imported(exported(*imported(bornAt("11 FEB 1731/32")).context, GedcomFormat::Gedcom70));
    member(again, 0).setBirthYear(1733);
    EXPECT_THAT(linesOf(exported(*again.context)), testing::Contains("2 DATE 11 FEB 1733"));
    EXPECT_FALSE(exported(*again.context).contains("1731"));
}

TEST(DatesIn551, SayThePhrasesOf7)
{
    const QByteArray seven =
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 BIRT\n2 DATE 1900\n3 PHRASE in @winter\n1 DEAT\n"
        "2 DATE\n3 PHRASE @@unknown\n1 RESI\n2 DATE BET 1900 AND 1901\n3 PHRASE a year\n1 RESI\n"
        "2 DATE 1900\n3 PHRASE a\n4 CONT b\n0 TRLR\n";
    const auto family = imported(seven);
    const QByteArray five = exported(*family.context);
    EXPECT_THAT(difference(seven, five),
                ElementsAre("-2 VERS 7.0", "+2 VERS 5.5.1", "+2 FORM LINEAGE-LINKED", "+1 CHAR UTF-8", "-2 DATE 1900",
                            "-3 PHRASE in @winter", "+2 DATE INT 1900 (in @@winter)", "-2 DATE", "-3 PHRASE @@unknown",
                            "+2 DATE (@@unknown)"));
    const auto again = imported(five);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedcom70) == seven);
}
