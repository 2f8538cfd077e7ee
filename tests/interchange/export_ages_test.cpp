// 7.0 says ages by a strict grammar.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What becomes of lines below an event in 7.0; and that they come back from there as they were.
std::vector<std::string> eventInSeven(const QByteArray& lines)
{
    const QByteArray text = versionFive("0 @I1@ INDI\n1 DEAT\n" + lines);
    const auto family = imported(text);
    expectToComeBack(family);
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty()) << lines.toStdString();
    auto seven = inSeven(family);
    return {seven.begin() + 2, seven.end() - 1};
}

} // namespace

TEST(AgesIn7, FollowItsGrammar)
{
    for (const QByteArray age : {"76y", "< 1y", "76y 3m 2w 1d", "> 5d"})
        EXPECT_THAT(eventInSeven("2 AGE " + age + "\n"), ElementsAre("2 AGE " + age.toStdString()));
    EXPECT_THAT(eventInSeven("2 AGE\n"), ElementsAre("2 AGE"));
    EXPECT_THAT(eventInSeven("2 AGE 76\n"), ElementsAre("2 AGE 76y", "3 PHRASE 76"));
    EXPECT_THAT(eventInSeven("2 AGE 76Y 3M\n"), ElementsAre("2 AGE 76y 3m", "3 PHRASE 76Y 3M"));
    EXPECT_THAT(eventInSeven("2 AGE <1y2d\n"), ElementsAre("2 AGE < 1y 2d", "3 PHRASE <1y2d"));
    EXPECT_THAT(eventInSeven("2 AGE > 4 years, 3 months\n"),
                ElementsAre("2 AGE > 4y 3m", "3 PHRASE > 4 years, 3 months"));
    EXPECT_THAT(eventInSeven("2 AGE 3 wks.\n"), ElementsAre("2 AGE 3w", "3 PHRASE 3 wks."));
    EXPECT_THAT(eventInSeven("2 AGE 76y \n"), ElementsAre("2 AGE 76y", "3 PHRASE 76y "));
}

TEST(AgesIn7, SayTheWordsOf551AsNumbers)
{
    EXPECT_THAT(
        eventInSeven("2 AGE CHILD\n2 AGE Infant\n2 AGE stillborn\n"),
        ElementsAre("2 AGE < 8y", "3 PHRASE CHILD", "2 AGE < 1y", "3 PHRASE Infant", "2 AGE 0y", "3 PHRASE stillborn"));
}

TEST(AgesIn7, LeaveOtherWordsToAPhrase)
{
    for (const QByteArray age :
         {"about 76", "76 1/2", "76.5", "3m 76y", "76y 76y", "76 parsecs", "very old", "<", "< CHILD", "-1"})
        EXPECT_THAT(eventInSeven("2 AGE " + age + "\n"), ElementsAre("2 AGE", "3 PHRASE " + age.toStdString()));
    EXPECT_THAT(eventInSeven("2 AGE @@home\n"), ElementsAre("2 AGE", "3 PHRASE @@home"));
    EXPECT_THAT(eventInSeven("2 AGE 76\n3 CONT or more\n2 AGE 76\n3 PHRASE or more\n"),
                ElementsAre("2 AGE 76", "3 CONT or more", "2 AGE 76", "3 PHRASE or more"));
}

TEST(AgesIn7, OfBothPartnersAreSaidSo)
{
    EXPECT_THAT(eventInSeven("0 @F1@ FAM\n1 MARR\n2 HUSB\n3 AGE 25\n2 WIFE\n3 AGE 24y\n"),
                ElementsAre("0 @F1@ FAM", "1 MARR", "2 HUSB", "3 AGE 25y", "4 PHRASE 25", "2 WIFE", "3 AGE 24y"));
}

TEST(AgesIn551, KeepPhrasesThatSayMore)
{
    const QByteArray seven = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 DEAT\n2 AGE 76y\n3 PHRASE said his son\n"
                             "1 BURI\n2 AGE\n3 PHRASE 76y\n1 BIRT\n2 AGE < 8y\n3 PHRASE Child\n0 TRLR\n";
    const QByteArray five = exported(*imported(seven).context);
    EXPECT_TRUE(five.contains("2 AGE 76y\n3 PHRASE said his son\n1 BURI\n2 AGE\n3 PHRASE 76y\n1 BIRT\n2 AGE Child\n"))
        << five.toStdString();
    EXPECT_TRUE(exported(*imported(five).context, GedcomFormat::Gedcom70) == seven);
}
