// Pictures, recordings and documents are written in one way by 5.5.1 and in another by 7.0.

#include "exported.h"
#include "hang_guard.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ObjectsIn7, BecomeRecordsThatArePointedAt)
{
    const auto family = imported(versionFive("0 @I1@ INDI\n1 NAME Ada /Oak/\n1 OBJE\n2 FORM jpeg\n2 FILE x.jpg\n"
                                             "2 TITL Ada as a child\n1 SEX F\n"));
    EXPECT_THAT(inSeven(family), ElementsAre("0 @I1@ INDI", "1 NAME Ada /Oak/", "1 OBJE @O1@", "1 SEX F", "0 @O1@ OBJE",
                                             "1 FILE x.jpg", "2 FORM image/jpeg", "2 TITL Ada as a child", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, HaveNamesThatNothingHas)
{
    const auto family = imported(versionFive("0 @I1@ INDI\n1 NAME Ada\n1 OBJE @O1@\n1 OBJE @O3@\n1 OBJE\n2 FILE a.png\n"
                                             "1 SOUR @S1@\n2 OBJE\n3 FILE b.png\n0 @O1@ OBJE\n1 FILE c.png\n"
                                             "0 @O2@ INDI\n1 NAME Ben\n1 OBJE\n2 FILE d.png\n0 @S1@ SOUR\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "1 NAME Ada", "1 OBJE @O1@", "1 OBJE @O3@", "1 OBJE @O4@", "1 SOUR @S1@",
                            "2 OBJE @O5@", "0 @O4@ OBJE", "1 FILE a.png", "2 FORM image/png", "0 @O5@ OBJE",
                            "1 FILE b.png", "2 FORM image/png", "0 @O1@ OBJE", "1 FILE c.png", "2 FORM image/png",
                            "0 @O2@ INDI", "1 NAME Ben", "1 OBJE @O6@", "0 @O6@ OBJE", "1 FILE d.png",
                            "2 FORM image/png", "0 @S1@ SOUR", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, ShareWhatIsSaidOfThemWithTheirLinks)
{
    const auto family = imported(
        versionFive("0 @F1@ FAM\n1 OBJE\n2 _PRIM Y\n3 _BY me\n2 FILE a.png\n3 FORM png\n4 MEDI photo\n2 NOTE one\n"
                    "3 CONT two\n2 REFN 7\n2 FILE b.tif\n3 FORM tif\n2 _PHOTO_RIN 5\n2 SOUR @S1@\n3 PAGE 4\n"
                    "3 OBJE\n4 FILE scan.pdf\n0 @S1@ SOUR\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @F1@ FAM", "1 OBJE @O1@", "2 _PRIM Y", "3 _BY me", "2 _PHOTO_RIN 5", "0 @O1@ OBJE",
                            "1 FILE a.png", "2 FORM image/png", "3 MEDI PHOTO", "1 NOTE one", "2 CONT two", "1 REFN 7",
                            "1 FILE b.tif", "2 FORM image/tiff", "1 SOUR @S1@", "2 PAGE 4", "2 OBJE @O2@",
                            "0 @O2@ OBJE", "1 FILE scan.pdf", "2 FORM application/pdf", "0 @S1@ SOUR", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, SayTheMediumOfTheirFormats)
{
    const auto family = imported(versionFive("0 @I1@ INDI\n1 OBJE\n2 FORM jpg\n3 TYPE photo\n2 FILE a.jpg\n"
                                             "1 OBJE\n2 FILE b.tif\n3 FORM tif\n4 TYPE photo\n3 FORM bmp\n"));
    EXPECT_THAT(inSeven(family), ElementsAre("0 @I1@ INDI", "1 OBJE @O1@", "1 OBJE @O2@", "0 @O1@ OBJE", "1 FILE a.jpg",
                                             "2 FORM image/jpeg", "3 MEDI PHOTO", "0 @O2@ OBJE", "1 FILE b.tif",
                                             "2 FORM image/tiff", "3 MEDI PHOTO", "2 _LINEARA_FORM bmp", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, BelowTheTrailerAreRecordsBeforeIt)
{
    const auto family = imported("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n0 @I1@ INDI\n0 TRLR\n1 OBJE\n2 FILE a.png\n");
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "0 @O1@ OBJE", "1 FILE a.png", "2 FORM image/png", "0 TRLR", "1 OBJE @O1@"));
}

TEST(ObjectsIn7, SayTheFormatOfEachFileBelowIt)
{
    const auto family = imported(
        versionFive("0 @O1@ OBJE\n1 FORM jpeg\n1 TITL Both\n1 FILE a.jpg\n1 FILE b.jpg\n1 NOTE of both\n"
                    "0 @O2@ OBJE\n1 FILE c.jpg\n2 FORM JPG\n3 TYPE photo\n2 TITL See\n1 TITL Other\n"
                    "0 @O3@ OBJE\n1 FORM wav\n2 TYPE audio\n1 FILE d\n0 @O4@ OBJE\n1 FILE e.doc\n2 FORM Word file\n"
                    "0 @O5@ OBJE\n1 FORM 8BPS\n1 FILE f.psd\n0 @O6@ OBJE\n1 FILE g\n0 @O7@ OBJE\n1 FILE h.png\n2 FORM "
                    "image/png\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @O1@ OBJE", "1 FILE a.jpg", "2 FORM image/jpeg", "2 TITL Both", "1 FILE b.jpg",
                            "2 FORM image/jpeg", "1 NOTE of both", "0 @O2@ OBJE", "1 FILE c.jpg", "2 FORM image/jpeg",
                            "3 MEDI PHOTO", "2 TITL See", "1 _LINEARA_TITL Other", "0 @O3@ OBJE", "1 FILE d",
                            "2 FORM audio/wav", "3 MEDI AUDIO", "0 @O4@ OBJE", "1 FILE e.doc",
                            "2 _LINEARA_FORM Word file", "2 FORM application/msword", "0 @O5@ OBJE", "1 FILE f.psd",
                            "2 FORM application/x-8bps", "0 @O6@ OBJE", "1 FILE g", "2 FORM application/octet-stream",
                            "0 @O7@ OBJE", "1 FILE h.png", "2 FORM image/png", "0 TRLR"));
}

TEST(ObjectsIn7, KeepFormatsThatCanBeNoMediaTypes)
{
    const QByteArray text =
        versionFive("0 @O1@ OBJE\n1 FILE a.png\n2 FORM N/A\n3 TYPE photo\n1 FILE b.jpg\n2 FORM image/ png\n2 TITL B\n"
                    "1 FILE c.doc\n2 FORM Word file\n1 FILE d\n2 FORM see\n3 CONT below\n1 FILE e\n2 FORM text/\n"
                    "1 FILE f\n2 FORM text/plain; charset=utf-8\n1 FILE g\n2 FORM Model/vnd.x+y\n");
    const auto family = imported(text);
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @O1@ OBJE", "1 FILE a.png", "2 _LINEARA_FORM N/A", "3 MEDI PHOTO", "2 FORM image/png",
                            "1 FILE b.jpg", "2 _LINEARA_FORM image/ png", "2 TITL B", "2 FORM image/jpeg",
                            "1 FILE c.doc", "2 _LINEARA_FORM Word file", "2 FORM application/msword", "1 FILE d",
                            "2 _LINEARA_FORM see", "3 CONT below", "2 FORM application/octet-stream", "1 FILE e",
                            "2 _LINEARA_FORM text/", "2 FORM application/octet-stream", "1 FILE f",
                            "2 FORM text/plain; charset=utf-8", "1 FILE g", "2 FORM Model/vnd.x+y", "0 TRLR"));
    expectToComeBack(family);
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty());
}

TEST(ObjectsIn7, MoveFormatsThatCanBeNoMediaTypesBelowTheirFiles)
{
    const auto family = imported(versionFive("0 @I1@ INDI\n1 OBJE\n2 FORM n/a\n3 TYPE photo\n2 FILE a.png\n"));
    EXPECT_THAT(inSeven(family), ElementsAre("0 @I1@ INDI", "1 OBJE @O1@", "0 @O1@ OBJE", "1 FILE a.png",
                                             "2 _LINEARA_FORM n/a", "3 MEDI PHOTO", "2 FORM image/png", "0 TRLR"));
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(linesOf(exported(*again.context)),
                ElementsAre("0 HEAD", "1 GEDC", "2 VERS 5.5.1", "2 FORM LINEAGE-LINKED", "1 CHAR UTF-8", "0 @I1@ INDI",
                            "1 OBJE @O1@", "0 @O1@ OBJE", "1 FILE a.png", "2 FORM n/a", "3 TYPE photo", "0 TRLR"));
}

TEST(ObjectsIn7, SayOnceWhatIsSaidAtLengthOfAllTheirFormats)
{
    const QByteArray words(300, 'x');
    const auto family = imported(versionFive("0 @O1@ OBJE\n1 FORM bmp\n2 NOTE " + words +
                                             "\n1 FILE a.png\n1 FILE b.png\n0 @O2@ OBJE\n1 FORM bmp\n2 TYPE photo\n"
                                             "1 FILE c.png\n1 FILE d.png\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @O1@ OBJE", "1 FILE a.png", "2 FORM image/bmp", "3 NOTE " + words.toStdString(),
                            "1 FILE b.png", "2 FORM image/bmp", "0 @O2@ OBJE", "1 FILE c.png", "2 FORM image/bmp",
                            "3 MEDI PHOTO", "1 FILE d.png", "2 FORM image/bmp", "3 MEDI PHOTO", "0 TRLR"));
}

TEST(ObjectsIn7, WithoutAFileKeepWhatTheySay)
{
    const auto family = imported(
        versionFive("0 @I1@ INDI\n1 OBJE see the album\n1 OBJE\n1 OBJE\n2 _ALBUM 3\n1 _ALBUM\n0 @O1@ OBJE\n1 FORM bmp\n"
                    "1 TITL Flower\n1 BLOB\n2 CONT .HM.......k.1\n2 CONT a@@b\n1 OBJE @O2@\n0 @O2@ OBJE\n1 BLOB x\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "1 OBJE @O3@", "1 OBJE @VOID@", "1 OBJE @VOID@", "2 _ALBUM 3", "1 _ALBUM",
                            "0 @O3@ OBJE", "1 NOTE see the album", "1 FILE", "2 FORM application/octet-stream",
                            "0 @O1@ OBJE", "1 _LINEARA_BLOB", "2 CONT .HM.......k.1", "2 CONT a@b",
                            "1 _LINEARA_OBJE @O2@", "1 FILE", "2 FORM image/bmp", "2 TITL Flower", "0 @O2@ OBJE",
                            "1 _LINEARA_BLOB x", "1 FILE", "2 FORM application/octet-stream", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, KeepLinesThatCanNotBeRead)
{
    const auto family = imported(versionFive("0 @I1@ INDI\n1 OBJE\n3 FORM lost\n2 FILE a.png\nwords\n4 deep 1\n"
                                             "2 _PRIM Y\n4 deep 2\n1 NAME Ada\n"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "1 OBJE @O1@", "2 _PRIM Y", "4 deep 2", "1 NAME Ada", "0 @O1@ OBJE",
                            "2 FORM lost", "1 FILE a.png", "words", "3 deep 1", "2 FORM image/png", "0 TRLR"));
    expectToComeBack(family);
}

TEST(ObjectsIn7, AreThePicturesThatTheyWere)
{
    const QByteArray red = png(Qt::red);
    const QByteArray blue = png(Qt::blue);
    const QByteArray text = versionFive("0 @I1@ INDI\n1 NAME Ada\n1 OBJE\n2 FILE a.png\n2 FORM png\n1 OBJE\n2 _PRIM Y\n"
                                        "2 FILE b.png\n2 FORM png\n1 OBJE\n2 FILE c.pcx\n2 FORM pcx\n"
                                        "0 @I2@ INDI\n1 NAME Ben\n1 OBJE\n2 FORM photo\n2 FILE d\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}, {"d", red}}));
    ASSERT_EQ(pictureOf(member(family, 0)), blue);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedzip) == archive);
    EXPECT_FALSE(genealogyIn(archive).contains("1 OBJE\n"));
    const auto again = imported(archive);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_EQ(pictureOf(member(again, 0)), blue);
    EXPECT_EQ(pictureOf(member(again, 1)), red);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
}

TEST(ObjectsIn7, ComeOutAsTheUserLeftThem)
{
    const QByteArray red = png(Qt::red);
    const QByteArray blue = png(Qt::blue);
    const QByteArray text = versionFive("0 @I1@ INDI\n1 NAME Ada\n1 OBJE\n2 FILE a.png\n2 TITL Ada\n1 OBJE\n"
                                        "2 FILE will.pdf\n0 @I2@ INDI\n1 NAME Ben\n1 OBJE\n2 FILE b.png\n2 FORM png\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    member(family, 0).removePic();
    member(family, 1).changePic(red);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(linesOf(genealogyIn(archive)),
                ElementsAre("0 HEAD", "1 GEDC", "2 VERS 7.0", "0 @I1@ INDI", "1 NAME Ada", "1 OBJE @O1@", "0 @O1@ OBJE",
                            "1 FILE will.pdf", "2 FORM application/pdf", "0 @I2@ INDI", "1 NAME Ben", "1 OBJE @O105@",
                            "0 @O105@ OBJE", "1 FILE pictures/p105.png", "2 FORM image/png", "0 TRLR"));
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), "none");
    EXPECT_EQ(pictureOf(member(again, 1)), red);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
}

TEST(ObjectsIn7, WithLongNotesTakeNoLongerThanTheirLinesDo)
{
#ifdef LINEARA_SANITIZED
    constexpr int lines = 20'000;
#else
    constexpr int lines = 300'000;
#endif
    const QByteArray note = "2 NOTE long\n" + QByteArray("3 CONT a\n").repeated(lines);
    const auto family = imported(versionFive("0 @I1@ INDI\n1 OBJE\n" + note + "2 FILE a.png\n"));
    const HangGuard guard;
    EXPECT_EQ(exported(*family.context, GedcomFormat::Gedcom70).count("\n2 CONT a"), lines);
}

TEST(ObjectsIn551, KeepFormatsBesideThoseOfOtherWords)
{
    const QByteArray seven =
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @O1@ OBJE\n1 FILE a.png\n2 _LINEARA_FORM n/a\n2 FORM image/webp\n"
        "1 FILE b.png\n2 FORM image/png\n2 _LINEARA_FORM n/a\n1 FILE c.png\n2 _LINEARA_FORM n/a\n2 FORM image/png\n"
        "0 TRLR\n";
    EXPECT_THAT(difference(seven, exported(*imported(seven).context)),
                ElementsAre("-2 VERS 7.0", "+2 VERS 5.5.1", "+2 FORM LINEAGE-LINKED", "+1 CHAR UTF-8",
                            "-2 _LINEARA_FORM n/a", "-2 FORM image/webp", "+2 FORM n/a", "+2 FORM webp",
                            "-2 FORM image/png", "-2 _LINEARA_FORM n/a", "+2 FORM png", "+2 FORM n/a",
                            "-2 _LINEARA_FORM n/a", "-2 FORM image/png", "+2 FORM n/a"));
}

/// Exported to 7.0, imported, and exported to 5.5.1 again.
QByteArray thereAndBack(const QByteArray& text)
{
    return exported(*imported(exported(*imported(text).context, GedcomFormat::Gedcom70)).context);
}

TEST(ObjectsIn551, LeaveShortTagsToOtherPrograms)
{
    const QByteArray text = versionFive("0 @O1@ OBJE\n1 FILE a.png\n2 _FILE other.png\n3 NOTE kept\n2 _FORM Word file\n"
                                        "2 FORM png\n1 FILE C:/b.png\n2 _FILE 4711\n2 _FORM bmp\n2 FORM N/A\n"
                                        "0 @U1@ SUBM\n1 NAME Ada\n1 LANG Plattdeutsch\n1 _LANG Dutch\n");
    EXPECT_THAT(difference(text, thereAndBack(text)), IsEmpty());
}

TEST(ObjectsIn551, HaveAllTheFormatsThatTheyHad)
{
    const QByteArray text = versionFive("0 @O1@ OBJE\n1 FILE a.png\n2 FORM png\n2 FORM N/A\n2 FORM bmp\n"
                                        "1 FILE b.png\n2 FORM N/A\n2 FORM png\n1 FILE c\n2 FORM application/x-\n");
    EXPECT_THAT(difference(text, thereAndBack(text)), IsEmpty());
}

TEST(ObjectsIn551, HaveWhatTheySaidOfThemAsAWhole)
{
    const QByteArray text = versionFive("0 @O1@ OBJE\n1 FILE a.jpg\n2 FORM jpg\n2 TITL A\n1 TITL Album\n1 FORM n/a\n"
                                        "1 BLOB\n2 CONT .HM.......k.1\n1 OBJE @O2@\n1 _TITL Title of another\n"
                                        "0 @O2@ OBJE\n1 FILE b.png\n2 FORM png\n");
    EXPECT_THAT(difference(text, thereAndBack(text)), IsEmpty());
}

TEST(ObjectsIn551, HaveFormatsThatPointSomewhere)
{
    const QByteArray text = versionFive("0 @O1@ OBJE\n1 FILE a.png\n2 FORM @X1@\n3 TYPE photo\n0 @X1@ _FORM\n");
    EXPECT_THAT(difference(text, thereAndBack(text)), IsEmpty());
    const auto common = imported(versionFive("0 @O1@ OBJE\n1 FORM @X1@\n2 TYPE photo\n1 FILE a.png\n0 @X1@ _FORM\n"));
    EXPECT_THAT(inSeven(common), ElementsAre("0 @O1@ OBJE", "1 FILE a.png", "2 _LINEARA_FORM @X1@", "3 MEDI PHOTO",
                                             "2 FORM image/png", "0 @X1@ _FORM", "0 TRLR"));
}

TEST(ObjectsIn551, HaveItsFormats)
{
    const QByteArray seven = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @O1@ OBJE\n1 FILE a.jpg\n2 FORM image/jpeg\n3 MEDI OTHER\n"
                             "2 TITL A\n1 FILE b\n2 FORM application/x-8bps\n1 FILE c\n2 FORM chemical/x-pdb\n0 TRLR\n";
    EXPECT_THAT(difference(seven, exported(*imported(seven).context)),
                ElementsAre("-2 VERS 7.0", "+2 VERS 5.5.1", "+2 FORM LINEAGE-LINKED", "+1 CHAR UTF-8",
                            "-2 FORM image/jpeg", "-3 MEDI OTHER", "+2 FORM jpg", "+3 TYPE other",
                            "-2 FORM application/x-8bps", "+2 FORM 8bps"));
}
