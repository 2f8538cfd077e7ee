#include "imported.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

/// Records of persons named by their cross-references.
QByteArray persons(const QByteArray& letters)
{
    QByteArray text;
    for (const char letter : letters)
        text += QByteArray("0 @") + letter + "@ INDI\n1 NAME " + letter + "\n";
    return text;
}

TEST(ImportedFamilies, SpousesBecomePartnersAndParents)
{
    const auto family = imported(persons("ABCD") + "0 @F1@ FAM\n1 CHIL @C@\n1 HUSB @A@\n1 WIFE @B@\n1 CHIL @D@\n");
    EXPECT_EQ(names(member(family, 0).partners()), "B");
    EXPECT_EQ(names(member(family, 1).children()), "C D");
    EXPECT_EQ(names(member(family, 3).parents()), "A B");
    EXPECT_EQ(family.report.families, 1u);
    EXPECT_EQ(family.report.partnerLinks, 1u);
    EXPECT_EQ(family.report.offspringLinks, 4u);
    EXPECT_EQ(notesOf(family), "");
}

TEST(ImportedFamilies, EachPairIsLinkedOnce)
{
    const auto family = imported(persons("ABC") + "0 @F1@ FAM\n1 HUSB @A@\n1 HUSB @B@\n1 CHIL @C@\n"
                                                  "0 @F2@ FAM\n1 HUSB @B@\n1 WIFE @A@\n1 CHIL @C@\n1 CHIL @C@\n");
    EXPECT_EQ(names(member(family, 0).partners()), "B");
    EXPECT_EQ(names(member(family, 2).parents()), "A B");
    EXPECT_EQ(family.report.partnerLinks, 1u);
    EXPECT_EQ(family.report.offspringLinks, 2u);
    EXPECT_EQ(family.report.refusedLinks, 0u);
}

TEST(ImportedFamilies, AThirdParentIsRefusedAndToldByName)
{
    const auto family = imported(persons("ABCD") + "0 @F1@ FAM\n1 HUSB @A@\n1 WIFE @B@\n1 CHIL @D@\n"
                                                   "0 @F2@ FAM\n1 HUSB @A@\n1 WIFE @C@\n1 CHIL @D@\n");
    EXPECT_EQ(names(member(family, 3).parents()), "A B");
    EXPECT_EQ(family.report.refusedLinks, 1u);
    EXPECT_EQ(notesOf(family), "line 16: FAM.CHIL \"@D@\" was refused: C would be a third parent of D");
}

TEST(ImportedFamilies, ParentsByBirthComeBeforeOthers)
{
    const QByteArray families = "0 @F1@ FAM\n1 HUSB @A@\n1 CHIL @D@\n0 @F2@ FAM\n1 HUSB @B@\n1 WIFE @C@\n1 CHIL @D@\n";
    const auto parents = [&](const QByteArray& claims) {
        return names(member(imported(persons("ABCD") + claims + families), 3).parents());
    };
    EXPECT_EQ(parents("1 FAMC @F1@\n2 PEDI adopted\n1 FAMC @F2@\n2 PEDI birth\n"), "B C");
    EXPECT_EQ(parents("1 FAMC @F1@\n2 PEDI FOSTER\n1 FAMC @F2@\n"), "B C");
    EXPECT_EQ(parents("1 FAMC @F1@\n2 PEDI adopted\n"), "B C");
    EXPECT_EQ(parents("1 FAMC @F1@\n2 PEDI Birth\n1 FAMC @F2@\n"), "A B");
    EXPECT_EQ(parents("1 FAMC @F2@\n2 PEDI adopted\n"), "A B");
}

TEST(ImportedFamilies, AnAdoptionThatNamesItsFamilyCountsBehindTheOthers)
{
    const QByteArray families = "0 @F1@ FAM\n1 HUSB @A@\n1 WIFE @B@\n1 CHIL @E@\n"
                                "0 @F2@ FAM\n1 HUSB @C@\n1 WIFE @D@\n1 CHIL @E@\n";
    const auto parents = [&](const QByteArray& claims) {
        return names(member(imported(persons("ABCDE") + claims + families), 4).parents());
    };
    EXPECT_EQ(parents("1 FAMC @F1@\n1 FAMC @F2@\n1 ADOP\n2 FAMC @F1@\n3 ADOP BOTH\n"), "C D");
    EXPECT_EQ(parents("1 ADOP\n2 FAMC @F1@\n1 FAMC @F1@\n1 FAMC @F2@\n"), "C D");
    EXPECT_EQ(parents("1 ADOP\n2 FAMC @F1@\n"), "C D");
    EXPECT_EQ(parents("1 ADOP\n2 FAMC @F2@\n"), "A B");
    EXPECT_EQ(parents("1 ADOP\n1 FAMC @F1@\n1 FAMC @F2@\n"), "A B");
    EXPECT_EQ(parents("1 FAMC @F1@\n1 FAMC @F2@\n1 BIRT\n2 FAMC @F2@\n"), "C D");
    EXPECT_EQ(parents("1 FAMC @F1@\n1 FAMC @F2@\n2 PEDI birth\n"), "C D");
    EXPECT_EQ(parents("1 FAMC @F1@\n2 PEDI unknown\n1 FAMC @F2@\n2 PEDI adopted\n"), "A B");
}

TEST(ImportedFamilies, OneOfACoupleMayHaveAdoptedAlone)
{
    // A and B had the child; C, whom B married later, adopted it.
    const QByteArray families = "0 @F1@ FAM\n1 HUSB @C@\n1 WIFE @B@\n1 CHIL @D@\n"
                                "0 @F2@ FAM\n1 HUSB @A@\n1 CHIL @D@\n";
    const auto parents = [&](const QByteArray& claims) {
        return names(
            member(imported(persons("ABCD") + "1 FAMC @F1@\n2 PEDI adopted\n1 FAMC @F2@\n" + claims + families), 3)
                .parents());
    };
    EXPECT_EQ(parents("1 ADOP\n2 FAMC @F1@\n3 ADOP HUSB\n"), "B A");
    EXPECT_EQ(parents("1 ADOP\n2 FAMC @F1@\n3 ADOP WIFE\n"), "C A");
}

TEST(ImportedFamilies, WhatTheFamilySaysOfEachParentCountsBeforeAllElse)
{
    const QByteArray beginning = persons("ABCDE") + "1 FAMC @F1@\n1 FAMC @F2@\n0 @F1@ FAM\n1 HUSB @A@\n1 WIFE @B@\n"
                                                    "1 CHIL @E@\n";
    const QByteArray end = "0 @F2@ FAM\n1 HUSB @C@\n1 WIFE @D@\n1 CHIL @E@\n";
    const auto parents = [&](const QByteArray& first, const QByteArray& second) {
        return names(member(imported(beginning + first + end + second), 4).parents());
    };
    EXPECT_EQ(parents("", ""), "A B");
    EXPECT_EQ(parents("2 _FREL Adopted\n2 _MREL Adopted\n", "2 _FREL Natural\n2 _MREL Natural\n"), "C D");
    EXPECT_EQ(parents("2 _FREL step\n2 _MREL natural\n", "2 _FREL natural\n2 _MREL step\n"), "B C");
    EXPECT_EQ(parents("2 _FREL unknown\n2 _MREL private\n", ""), "A B");
    const auto family = imported(beginning + "2 _FREL Adopted\n2 _MREL Adopted\n" + end);
    EXPECT_EQ(keptOf(family), "FAM.CHIL._FREL 1, FAM.CHIL._MREL 1");
    EXPECT_EQ(family.report.refusedLinks, 2u);
}

TEST(ImportedFamilies, OfSeveralFamiliesTheFirstThatTheChildNamesCounts)
{
    const QByteArray families = "0 @F1@ FAM\n1 HUSB @A@\n1 CHIL @D@\n0 @F2@ FAM\n1 HUSB @B@\n1 WIFE @C@\n1 CHIL @D@\n";
    const auto named = imported(persons("ABCD") + "1 FAMC @F2@\n1 FAMC @F1@\n" + families);
    EXPECT_EQ(names(member(named, 3).parents()), "B C");
    EXPECT_EQ(notesOf(named), "line 13: FAM.CHIL \"@D@\" was refused: A would be a third parent of D");
    EXPECT_EQ(names(member(imported(persons("ABCD") + families), 3).parents()), "A B");
}

TEST(ImportedFamilies, AParentInBothFamiliesCountsWithTheBetterOne)
{
    const auto family = imported(persons("ABCD") + "1 FAMC @F2@\n0 @F1@ FAM\n1 WIFE @B@\n1 HUSB @A@\n1 CHIL @D@\n"
                                                   "0 @F2@ FAM\n1 HUSB @A@\n1 WIFE @C@\n1 CHIL @D@\n");
    EXPECT_EQ(names(member(family, 3).parents()), "A C");
    EXPECT_EQ(family.report.offspringLinks, 2u);
    EXPECT_EQ(family.report.refusedLinks, 1u);
}

TEST(ImportedFamilies, ChildrenKeepTheirOrderWhateverTheyClaim)
{
    const auto family = imported(persons("AB") + "0 @C@ INDI\n1 NAME C\n1 FAMC @F2@\n1 FAMC @F1@\n" + persons("DE") +
                                 "0 @F1@ FAM\n1 HUSB @A@\n1 CHIL @C@\n0 @F2@ FAM\n1 HUSB @B@\n1 CHIL @D@\n1 CHIL @C@\n"
                                 "1 CHIL @E@\n");
    EXPECT_EQ(names(member(family, 1).children()), "D C E");
    EXPECT_EQ(names(member(family, 2).parents()), "A B");
}

TEST(ImportedFamilies, ACycleIsRefusedInFileOrder)
{
    const auto family =
        imported(persons("ABC") + "0 @F1@ FAM\n1 HUSB @A@\n1 CHIL @B@\n0 @F2@ FAM\n1 HUSB @B@\n1 CHIL @C@\n"
                                  "0 @F3@ FAM\n1 HUSB @C@\n1 CHIL @A@\n1 CHIL @C@\n");
    EXPECT_EQ(names(member(family, 0).parents()), "");
    EXPECT_EQ(names(member(family, 2).parents()), "B");
    EXPECT_EQ(notesOf(family), "line 15: FAM.CHIL \"@A@\" was refused: C as a parent of A would be a descendant of A\n"
                               "line 16: FAM.CHIL \"@C@\" was refused: C can't be a parent of the same person");
}

TEST(ImportedFamilies, APersonMarriedToHimselfIsRefused)
{
    const auto family = imported(persons("A") + "0 @F1@ FAM\n1 HUSB @A@\n1 WIFE @A@\n");
    EXPECT_EQ(names(member(family, 0).partners()), "");
    EXPECT_EQ(notesOf(family), "line 5: FAM.WIFE \"@A@\" was refused: A can't be a partner of the same person");
}

TEST(ImportedFamilies, WhatPointsNowhereIsTold)
{
    const auto family = imported(persons("A") + "0 @F1@ FAM\n1 HUSB @X@\n1 WIFE Jane\n1 CHIL @VOID@\n1 CHIL @F1@\n"
                                                "1 CHIL @A@\n");
    EXPECT_EQ(notesOf(family), "line 4: FAM.HUSB \"@X@\" was not taken: it points at a record that is not in the file\n"
                               "line 5: FAM.WIFE \"Jane\" was not taken: it does not point at a record\n"
                               "line 6: FAM.CHIL \"@VOID@\" was not taken: it points at nobody\n"
                               "line 7: FAM.CHIL \"@F1@\" was not taken: it points at a record of another kind\n"
                               "line 8: FAM.CHIL \"@A@\" was not taken: the family names no parent for A");
}

TEST(ImportedFamilies, TheFamilyDecidesAndClaimsBeyondItAreTold)
{
    const auto family = imported("0 @A@ INDI\n1 NAME A\n1 FAMS @F1@\n1 FAMC @F1@\n1 FAMS @F9@\n1 FAMC @VOID@\n"
                                 "0 @F1@ FAM\n1 HUSB @A@\n");
    EXPECT_EQ(notesOf(family),
              "line 4: INDI.FAMC \"@F1@\" was not taken: the family of line 7 does not name A as a child\n"
              "line 5: INDI.FAMS \"@F9@\" was not taken: it points at a record that is not in the file\n"
              "line 6: INDI.FAMC \"@VOID@\" was not taken: it points at nobody");
}

TEST(ImportedFamilies, ThousandsOfSpousesInOneFamilyDoNotAskForMillionsOfLinks)
{
    QByteArray text;
    QByteArray family = "0 @F1@ FAM\n";
    for (int i = 0; i < 5'000; ++i) {
        text += "0 @I" + QByteArray::number(i) + "@ INDI\n";
        family += "1 HUSB @I" + QByteArray::number(i) + "@\n";
    }
    const auto result = imported(text + family);
    EXPECT_EQ(result.report.partnerLinks, 64u * 63u / 2u);
    EXPECT_EQ(result.report.notTaken, 5'000u - 64u);
    EXPECT_THAT(notesOf(result),
                HasSubstr("line 5066: FAM.HUSB \"@I64@\" was not taken: one family can have 64 spouses"));
}

} // namespace
} // namespace lineara
