// An object may have several files, of which somebody's picture is one.

#include "exported.h"

#include <gmock/gmock.h>

#include <array>
#include <random>

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

namespace {

/// Persons who share albums, point at them in every way and keep others in their own records.
class RandomAlbums
{
public:
    explicit RandomAlbums(unsigned seed) : random_(seed) {}

    int pick(int choices) { return static_cast<int>(random_() % static_cast<unsigned>(choices)); }
    bool happens() { return pick(2) == 0; }

    QByteArray genealogy()
    {
        const bool isSeven = happens();
        QByteArray text = QByteArray("0 HEAD\n1 GEDC\n2 VERS ") + (isSeven ? "7.0" : "5.5.1") + "\n";
        for (int person = 1 + pick(4); person > 0; --person)
            text += "0 INDI\n1 NAME Ada\n" + lines(pick(4), isSeven);
        text += "0 SOUR\n1 TITL Letters\n" + pointer();
        for (const char* const xref : {"@O1@", "@O2@"}) {
            text += QByteArray("0 ") + xref + " OBJE\n" + files(1) + (happens() ? "1 NOTE found in the attic\n" : "");
        }
        return text + "0 TRLR\n";
    }

    void edit(const ImportedFamily& family)
    {
        for (Person* const person : membersOf(family)) {
            const int what = pick(4);
            if (what == 0)
                person->removePic();
            else if (what == 1)
                person->changePic(fresh);
            else if (what == 2)
                person->changePic(other); // which somebody else may have
        }
    }

private:
    QByteArray lines(int count, bool isSeven)
    {
        QByteArray text;
        for (; count > 0; --count)
            text += isSeven || happens() ? pointer() : "1 OBJE\n" + files(2);
        return text;
    }

    QByteArray pointer()
    {
        const QByteArray xref = happens() ? "@O1@\n" : "@O2@\n";
        return pick(4) == 0 ? "1 _PHOTO " + xref : "1 OBJE " + xref + (pick(4) == 0 ? "2 _PRIM Y\n" : "");
    }

    QByteArray files(int level)
    {
        static const std::array<const char*, 5> names = {"a.png", "b.png", "media/c d.png", "missing.png", "will.pdf"};
        QByteArray text;
        for (int count = 1 + pick(3); count > 0; --count)
            text += QByteArray::number(level) + " FILE " + names[static_cast<std::size_t>(pick(names.size()))] + '\n';
        return text;
    }

    std::mt19937 random_;
};

} // namespace

TEST(EditedAlbums, GiveEverybodyThePictureThatTheyHadAtLast)
{
    for (unsigned seed = 0; seed < 500; ++seed) {
        SCOPED_TRACE(seed);
        RandomAlbums albums(seed);
        const ArchiveFiles pictures = {{"a.png", taken}, {"b.png", other}, {"media/c d.png", png(Qt::yellow)}};
        const auto family = imported(archiveOf(albums.genealogy(), pictures));
        albums.edit(family);
        const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
        const auto again = imported(archive);
        for (std::size_t person = 0; person < membersOf(family).size(); ++person)
            ASSERT_EQ(pictureOf(member(again, person)), pictureOf(member(family, person)));
        ASSERT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
    }
}
