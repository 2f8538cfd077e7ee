// An object may have several files, of which somebody's picture is one.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray taken = png(Qt::red);
const QByteArray other = png(Qt::blue);
const QByteArray fresh = png(Qt::green);

/// An album of two pictures and a document.
const QByteArray album = "0 @O1@ OBJE\n1 FILE a.png\n2 FORM image/png\n2 TITL Ada\n1 FILE b.png\n2 FORM image/png\n"
                         "1 FILE will.pdf\n2 FORM application/pdf\n1 NOTE found in the attic\n";

QByteArray albumText(const QByteArray& records)
{
    return "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 NAME Ada\n1 OBJE @O1@\n" + records + album + "0 TRLR\n";
}

ImportedFamily importedAlbum(const QByteArray& text)
{
    auto family = imported(archiveOf(text, {{"a.png", taken}, {"b.png", other}}));
    EXPECT_EQ(pictureOf(member(family, 0)), taken);
    return family;
}

/// Expects the picture in the archive, and the same archive whenever it is exported again.
void expectPicture(const QByteArray& archive, const QByteArray& picture)
{
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), picture);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
}

} // namespace

TEST(RemovedPictures, OfAnAlbumLeaveItsOtherFiles)
{
    const QByteArray text = albumText({});
    const auto family = importedAlbum(text);
    member(family, 0).removePic();
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(difference(text, genealogyIn(archive)),
                ElementsAre("+1 _PHOTO @VOID@", "-1 FILE a.png", "-2 FORM image/png", "-2 TITL Ada"));
    expectPicture(archive, "none");
    const auto again = imported(archiveOf(genealogyIn(archive), {{"a.png", taken}, {"b.png", other}}));
    EXPECT_EQ(pictureOf(member(again, 0)), "none");
    EXPECT_THAT(linesOf(exported(*family.context)), testing::Contains("1 OBJE @O1@"));
}

TEST(RemovedPictures, OfAnAlbumThatOthersUseLeaveItAsItIs)
{
    for (const QByteArray user : {"0 @I2@ INDI\n1 NAME Ben\n1 OBJE @O1@\n", "0 @S1@ SOUR\n1 OBJE @O1@\n",
                                  "0 @F1@ FAM\n1 HUSB @I1@\n1 MARR\n2 OBJE @O1@\n"}) {
        const QByteArray text = albumText(user);
        const auto family = importedAlbum(text);
        member(family, 0).removePic();
        const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
        EXPECT_THAT(difference(text, genealogyIn(archive)), ElementsAre("+1 _PHOTO @VOID@"));
        expectPicture(archive, "none");
        const auto again = imported(archiveOf(genealogyIn(archive), {{"a.png", taken}, {"b.png", other}}));
        EXPECT_EQ(pictureOf(member(again, 0)), "none");
    }
}

TEST(RemovedPictures, OfAnAlbumGoFromItWhenAllLostThem)
{
    const QByteArray text = albumText("1 _PHOTO @O1@\n0 @I2@ INDI\n1 NAME Ben\n1 OBJE @O1@\n");
    const auto family = importedAlbum(text);
    member(family, 0).removePic();
    member(family, 1).removePic();
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(
        difference(text, genealogyIn(archive)),
        ElementsAre("+1 _PHOTO @VOID@", "+1 _PHOTO @VOID@", "-1 FILE a.png", "-2 FORM image/png", "-2 TITL Ada"));
    expectPicture(archive, "none");
}

TEST(RemovedPictures, OfAnAlbumThatSomebodyRemovedUsedGoFromIt)
{
    const auto family = importedAlbum(albumText("0 @I2@ INDI\n1 NAME Ben\n1 OBJE @O1@\n"));
    member(family, 0).removePic();
    family.context->remove(member(family, 1));
    EXPECT_FALSE(exported(*family.context, GedcomFormat::Gedcom70).contains("a.png"));
}

TEST(ReplacedPictures, OfAnAlbumLeaveItsOtherFiles)
{
    for (const QByteArray user : {"", "0 @I2@ INDI\n1 NAME Ben\n1 OBJE @O1@\n"}) {
        const auto family = importedAlbum(albumText(user));
        member(family, 0).changePic(fresh);
        const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
        EXPECT_EQ(genealogyIn(archive).contains("a.png"), !user.isEmpty());
        EXPECT_TRUE(genealogyIn(archive).contains("1 OBJE @O1@\n"));
        EXPECT_TRUE(genealogyIn(archive).contains("1 FILE b.png\n"));
        expectPicture(archive, fresh);
        const QByteArray five = exported(*family.context);
        EXPECT_TRUE(five.contains("1 _PHOTO @VOID@\n1 OBJE @O1@\n"));
    }
}
