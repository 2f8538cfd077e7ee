// A pointer at nobody (@VOID@) is known to 7.0 only.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

QByteArray genealogyWithVoids()
{
    return "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 NAME Ada /Oak/\n1 FAMS @VOID@\n2 NOTE the first marriage\n"
           "1 FAMS @F1@\n1 FAMC @VOID@\n1 FAMC @VOID@\n2 PEDI ADOPTED\n1 ALIA @VOID@\n1 ASSO @VOID@\n2 PHRASE Mr Ash\n"
           "2 ROLE FRIEND\n1 SNOTE @VOID@\n1 SOUR @VOID@\n2 PAGE 7\n1 _PHOTO @VOID@\n1 OBJE @VOID@\n2 TITL none\n"
           "1 NOTE see\n2 CONT @@VOID@\n0 @F1@ FAM\n1 HUSB @VOID@\n1 WIFE @I1@\n1 CHIL @VOID@\n2 PHRASE stillborn\n"
           "1 CHIL @VOID@\n0 TRLR\n";
}

} // namespace

TEST(VoidPointersIn551, LeaveTheWordsBelowThem)
{
    const auto family = imported(genealogyWithVoids());
    const QByteArray five = exported(*family.context);
    auto lines = linesOf(five);
    lines.erase(lines.begin(), lines.begin() + 5);
    EXPECT_THAT(lines,
                ElementsAre("0 @I1@ INDI", "1 NAME Ada /Oak/", "1 FAMS", "2 NOTE the first marriage", "1 FAMS @F1@",
                            "1 FAMC", "2 PEDI adopted", "1 ASSO", "2 PHRASE Mr Ash", "2 RELA FRIEND", "1 SOUR",
                            "2 PAGE 7", "1 _PHOTO @VOID@", "1 OBJE", "2 TITL none", "1 NOTE see", "2 CONT @@VOID@@",
                            "0 @F1@ FAM", "1 WIFE @I1@", "1 CHIL", "2 PHRASE stillborn", "0 TRLR"));
    const auto again = imported(five);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_TRUE(exported(*again.context) == five);
}

TEST(VoidPointersIn551, KeepWhatStandsBehindALineThatCannotBeRead)
{
    const auto family = imported("0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 BIRT\n2 DATE 1900\n2 SOUR @VOID@\n"
                                 "garbage\n3 PAGE 5\n0 TRLR\n");
    EXPECT_THAT(exported(*family.context).toStdString(), HasSubstr("2 DATE 1900\n2 SOUR\ngarbage\n3 PAGE 5\n"));
}

TEST(VoidPointersIn551, StayBelowTagsOfOtherPrograms)
{
    const auto family =
        imported("0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 _FOO\n2 ASSO @VOID@\n1 ALIA @VOID@\n0 TRLR\n");
    EXPECT_THAT(exported(*family.context).toStdString(), HasSubstr("1 _FOO\n2 ASSO @VOID@\n0 TRLR\n"));
}

TEST(VoidPointersIn551, AreThereAgainIn7)
{
    const auto again = imported(exported(*imported(genealogyWithVoids()).context));
    const std::string seven = exported(*again.context, GedcomFormat::Gedcom70).toStdString();
    EXPECT_THAT(seven, HasSubstr("1 FAMS @VOID@\n2 NOTE the first marriage\n"));
    EXPECT_THAT(seven, HasSubstr("1 FAMC @VOID@\n2 PEDI ADOPTED\n1 ASSO @VOID@\n2 PHRASE Mr Ash\n2 ROLE FRIEND\n"));
    EXPECT_THAT(seven, HasSubstr("1 CHIL @VOID@\n2 PHRASE stillborn\n"));
}

TEST(VoidPointersIn551, AtObjectsAreThereAgainIn7WithAllLinesBelow)
{
    const QByteArray seven =
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 OBJE @VOID@\n2 TITL none\n1 OBJE @VOID@\n2 CROP\n3 TOP 5\n2 TITL "
        "x\n"
        "2 _PRIM Y\n1 BIRT\n2 OBJE @VOID@\n3 TITL y\n4 CONT z\n1 OBJE @VOID@\n2 NOTE where is it?\n2 SOUR @S1@\n"
        "3 OBJE @VOID@\n4 TITL deep\n0 @S1@ SOUR\n0 TRLR\n";
    const auto five = imported(exported(*imported(seven).context));
    EXPECT_THAT(difference(seven, exported(*five.context, GedcomFormat::Gedcom70)), testing::IsEmpty());
}

TEST(EmptyPointersIn7, AreThoseOfMembersOnly)
{
    const auto family =
        imported(versionFive("0 @I1@ INDI\n1 FAMC\n0 @F1@ FAM\n1 HUSB\n1 WIFE @I1@\n1 CHIL\n2 CONT nobody\n"
                             "1 MARR\n2 HUSB\n3 AGE 25y\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "1 FAMC @VOID@", "0 @F1@ FAM", "1 HUSB @VOID@", "1 WIFE @I1@", "1 CHIL",
                            "2 CONT nobody", "1 MARR", "2 HUSB", "3 AGE 25y", "0 TRLR"));
    expectToComeBack(family);
}
