// The languages of headers, submitters and texts, which the two versions call by names and by tags.

#include "exported.h"
#include "gedcom_export_languages.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ExportedLanguages, AreTagsInSeven)
{
    EXPECT_EQ(languageInSeven(QStringLiteral("English")), QStringLiteral("en"));
    EXPECT_EQ(languageInSeven(QStringLiteral("Anglo-Saxon")), QStringLiteral("ang"));
    EXPECT_EQ(languageInSeven(QStringLiteral(" german ")), QStringLiteral("de"));
    EXPECT_EQ(languageInSeven(QStringLiteral("Catalan_Spn")), QStringLiteral("ca-ES"));
}

TEST(ExportedLanguages, StayWhereTheyAreTagsAlready)
{
    EXPECT_EQ(languageInSeven(QStringLiteral("en-GB")), QStringLiteral("en-GB"));
    EXPECT_EQ(languageInSeven(QStringLiteral("zh-Hant-TW")), QStringLiteral("zh-Hant-TW"));
}

TEST(ExportedLanguages, OfOtherWordsAreNoneInSeven)
{
    EXPECT_EQ(languageInSeven(QStringLiteral("Plattdeutsch")), std::nullopt);
    EXPECT_EQ(languageInSeven(QStringLiteral("English and French")), std::nullopt);
    EXPECT_EQ(languageInSeven(QString()), std::nullopt);
}

TEST(ExportedLanguages, HaveTheirNamesInFive)
{
    EXPECT_EQ(languageInFive(QStringLiteral("en")), QStringLiteral("English"));
    EXPECT_EQ(languageInFive(QStringLiteral("cmn")), QStringLiteral("Mandrin"));
    EXPECT_EQ(languageInFive(QStringLiteral("en-GB")), QStringLiteral("en-GB"));
    EXPECT_EQ(languageInFive(QStringLiteral("ia")), QStringLiteral("ia"));
}

TEST(ExportedLanguages, ChangeWithTheVersionAndBack)
{
    const QByteArray text = versionFive("0 @U1@ SUBM\n1 NAME Ada Oak\n1 LANG English\n1 LANG Plattdeutsch\n"
                                        "1 _TALK\n2 LANG German\n");
    const auto family = imported(text);
    expectToComeBack(family);
    EXPECT_THAT(inSeven(family), ElementsAre("0 @U1@ SUBM", "1 NAME Ada Oak", "1 LANG en",
                                             "1 _LINEARA_LANG Plattdeutsch", "1 _TALK", "2 LANG German", "0 TRLR"));
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty());
}

TEST(ExportedLanguages, ChangeBelowOthersThatHaveNoTag)
{
    const QByteArray text = versionFive("0 @U1@ SUBM\n1 NAME Ada Oak\n1 LANG Plattdeutsch\n2 LANG German\n");
    const auto family = imported(text);
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @U1@ SUBM", "1 NAME Ada Oak", "1 _LINEARA_LANG Plattdeutsch", "2 LANG de", "0 TRLR"));
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty());
}

} // namespace
} // namespace lineara
