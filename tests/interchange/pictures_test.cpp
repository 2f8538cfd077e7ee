#include "hang_guard.h"
#include "imported.h"

#include "media_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <zip.h>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const QByteArray tomsPicture("\x89PNG Tom");
const QByteArray annsPicture("\xFF\xD8\xFF Ann");

std::vector<std::string> places(const char* name)
{
    std::vector<std::string> places;
    for (const QString& place : placesOf(QString::fromUtf8(name)))
        places.push_back(place.toStdString());
    return places;
}

TEST(MediaFiles, NamesNeverLeadOutOfTheFolder)
{
    EXPECT_THAT(places("Tom.jpg"), ElementsAre("Tom.jpg"));
    EXPECT_THAT(places("./media/Tom.jpg"), ElementsAre("media/Tom.jpg", "Tom.jpg"));
    EXPECT_THAT(places("/etc/passwd"), ElementsAre("etc/passwd", "passwd"));
    EXPECT_THAT(places("../../etc/passwd"), ElementsAre("etc/passwd", "passwd"));
    EXPECT_THAT(places("a/../b/Tom.jpg"), ElementsAre("b/Tom.jpg", "Tom.jpg"));
    EXPECT_THAT(places("C:\\Pictures\\Tom.jpg"), ElementsAre("Pictures/Tom.jpg", "Tom.jpg"));
    EXPECT_THAT(places("file:///home/me/Tom.jpg"), ElementsAre("home/me/Tom.jpg", "me/Tom.jpg", "Tom.jpg"));
    EXPECT_THAT(places("Tom%20B.jpg"), ElementsAre("Tom%20B.jpg", "Tom B.jpg"));
    EXPECT_THAT(places("%2E%2E/x"), ElementsAre("%2E%2E/x", "x"));
    EXPECT_THAT(places("https://example.com/Tom.jpg"), IsEmpty());
    EXPECT_THAT(places(".."), IsEmpty());
    EXPECT_THAT(places(""), IsEmpty());
}

/// A genealogy in a folder with some pictures, and a secret beside the folder.
class PicturesInAFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        write(QStringLiteral("secret.png"), "\x89PNG secret");
        ASSERT_TRUE(QDir(root_.path()).mkpath(QStringLiteral("family/media")));
        write(QStringLiteral("family/Tom.png"), tomsPicture);
        write(QStringLiteral("family/media/Ann.jpg"), annsPicture);
        write(QStringLiteral("family/notes.png"), "no picture");
        ASSERT_TRUE(QFile::link(root_.filePath(QStringLiteral("secret.png")),
                                root_.filePath(QStringLiteral("family/link.png"))));
    }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(root_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    ImportedFamily importedHere(const QByteArray& text)
    {
        write(QStringLiteral("family/family.ged"), text);
        auto family = importGedcomFile(root_.filePath(QStringLiteral("family/family.ged")));
        EXPECT_FALSE(family.failed());
        return std::move(family.value());
    }

    static QByteArray pictureOf(const ImportedFamily& family)
    {
        const Pic* pic = member(family, 0).pic();
        return pic ? pic->data() : QByteArray();
    }

    const QTemporaryDir root_;
};

TEST_F(PicturesInAFolder, BecomeThePersons)
{
    const auto inPlace = importedHere("0 @I1@ INDI\n1 OBJE\n2 FORM png\n2 FILE Tom.png\n");
    EXPECT_EQ(pictureOf(inPlace), tomsPicture);
    EXPECT_EQ(inPlace.report.pictures, 1u);
    EXPECT_EQ(keptOf(inPlace), "INDI.OBJE.FORM 1");
    const auto pointed =
        importedHere("0 @I1@ INDI\n1 OBJE @O1@\n0 @O1@ OBJE\n1 FILE C:\\old\\media\\Ann.jpg\n2 FORM jpg\n");
    EXPECT_EQ(pictureOf(pointed), annsPicture);
    EXPECT_EQ(notesOf(pointed), "");
}

TEST_F(PicturesInAFolder, ThePrimaryOneCountsAndElseTheFirst)
{
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE Tom.png\n1 OBJE\n2 FILE media/Ann.jpg\n2 _PRIM Y\n")),
              annsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE Tom.png\n1 _PHOTO @O1@\n"
                                     "0 @O1@ OBJE\n1 FILE media/Ann.jpg\n")),
              annsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE voice.mp3\n1 OBJE\n2 FILE Tom.png\n1 OBJE\n"
                                     "2 FILE media/Ann.jpg\n2 _PRIM N\n")),
              tomsPicture);
}

TEST_F(PicturesInAFolder, AreFoundInOtherCapitals)
{
    for (const char* name : {"TOM.PNG", "tom.png", "C:\\Family\\Tom.Png"})
        EXPECT_EQ(pictureOf(importedHere(QByteArray("0 @I1@ INDI\n1 OBJE\n2 FILE ") + name + "\n")), tomsPicture)
            << name;
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE D:\\Media\\ANN.JPG\n")), annsPicture);
    EXPECT_EQ(notesOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE tom.PNG\n")), "");
}

TEST_F(PicturesInAFolder, AreFoundHoweverAccentsAreWritten)
{
    write(QStringLiteral("family/Zo\u00eb.png"), tomsPicture);
    write(QStringLiteral("family/media/Rene\u0301.jpg"), annsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE Zoe\xCC\x88.png\n")), tomsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE media/Ren\xC3\xA9.jpg\n")), annsPicture);
}

TEST_F(PicturesInAFolder, TheOneThatIsCalledExactlySoComesFirst)
{
    write(QStringLiteral("family/TOM.png"), annsPicture);
    write(QStringLiteral("family/tom.png"), annsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE Tom.png\n")), tomsPicture);
}

TEST_F(PicturesInAFolder, AreFoundBesideOthersOfLikeNames)
{
    ASSERT_TRUE(QDir(root_.path()).mkpath(QStringLiteral("family/MEDIA")));
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE media/ANN.jpg\n")), annsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE Media/Ann.jpg\n")), annsPicture);
    ASSERT_TRUE(QDir(root_.path()).mkpath(QStringLiteral("family/TOM.PNG")));
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE tom.png\n")), tomsPicture);
    write(QStringLiteral("family/MEDIA/ann.jpg"), tomsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE MEDIA/ANN.jpg\n")), tomsPicture);
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE media/ANN.jpg\n")), annsPicture);
}

TEST_F(PicturesInAFolder, AreLookedForWhereLinksLeadRoundInCircles)
{
    for (const char* const name : {"ab", "aB", "Ab", "AB"})
        ASSERT_TRUE(QFile::link(root_.filePath(QStringLiteral("family")),
                                root_.filePath(QStringLiteral("family/") + QLatin1String(name))));
    const HangGuard guard;
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE " + QByteArray("ab/").repeated(15) + "x.jpg\n")), "");
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE ab/Ab/Tom.png\n")), tomsPicture);
}

TEST_F(PicturesInAFolder, AreLookedForAmongThousandsOfLikeNames)
{
    const QByteArray letters = "abcdefghijkl";
    QByteArray persons;
    for (int mixture = 1; mixture < 1 << letters.size(); ++mixture) {
        QByteArray name = letters;
        for (int letter = 0; letter < letters.size(); ++letter)
            name[letter] = static_cast<char>(mixture >> letter & 1 ? name[letter] - 32 : name[letter]);
        ASSERT_TRUE(QDir(root_.path()).mkpath(QStringLiteral("family/%1.png").arg(QLatin1String(name))));
        persons += "0 @I" + QByteArray::number(mixture) + "@ INDI\n1 OBJE\n2 FILE q/" + name + ".png\n";
    }
    const HangGuard guard;
    EXPECT_EQ(pictureOf(importedHere(persons)), "");
}

TEST_F(PicturesInAFolder, OtherCapitalsLeadNowhereElseEither)
{
    EXPECT_EQ(pictureOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE LINK.png\n1 OBJE\n2 FILE ../SECRET.png\n")), "");
}

TEST_F(PicturesInAFolder, OnesThatCanNotBeTakenAreTold)
{
    const auto family = importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE gone.png\n1 OBJE\n2 FILE notes.png\n1 OBJE @O9@\n"
                                     "1 OBJE\n2 FILE https://example.com/Tom.jpg\n1 OBJE\n2 FILE Tom.png\n");
    EXPECT_EQ(pictureOf(family), tomsPicture);
    EXPECT_EQ(
        notesOf(family),
        "line 3: INDI.OBJE.FILE \"gone.png\" was not taken: the picture \"gone.png\" can't be taken, as the file is "
        "not there\n"
        "line 5: INDI.OBJE.FILE \"notes.png\" was not taken: the picture \"notes.png\" can't be taken, as the file "
        "is no picture of a known kind\n"
        "line 6: INDI.OBJE \"@O9@\" was not taken: it points at a record that is not in the file\n"
        "line 8: INDI.OBJE.FILE \"https://example.com/Tom.jpg\" was not taken: the picture "
        "\"https://example.com/Tom.jpg\" can't be taken, as it is on the web");
}

TEST_F(PicturesInAFolder, AreReadOnceForAllWhoNameThem)
{
    QByteArray text = "0 @O1@ OBJE\n1 FILE Tom.png\n";
    for (int i = 0; i < 100; ++i)
        text += "0 INDI\n1 OBJE @O1@\n";
    const auto family = importedHere(text);
    EXPECT_EQ(family.report.pictures, 100u);
    EXPECT_EQ(member(family, 99).pic()->data().constData(), member(family, 0).pic()->data().constData());
}

TEST_F(PicturesInAFolder, OnlyAFewAreTriedForOnePerson)
{
    QByteArray text = "0 @I1@ INDI\n";
    for (int i = 0; i < 100; ++i)
        text += "1 OBJE\n2 FILE gone" + QByteArray::number(i) + ".png\n";
    const auto family = importedHere(text);
    EXPECT_EQ(family.report.notTaken, 8u);
    EXPECT_EQ(family.report.keptLines, 192u);
}

// One archive could otherwise keep the program unpacking for hours.
TEST_F(PicturesInAFolder, NotMoreIsReadThanCanBeTaken)
{
    QByteArray text;
    for (int i = 0; i < 12; ++i) {
        const QString name = QStringLiteral("family/large%1.png").arg(i);
        write(name, tomsPicture);
        ASSERT_TRUE(QFile::resize(root_.filePath(name), MediaFiles::mostBytes + 1));
        text += "0 INDI\n1 OBJE\n2 FILE large" + QByteArray::number(i) + ".png\n";
    }
    const auto family = importedHere(text);
    EXPECT_EQ(family.report.notes.filter(QStringLiteral("more than 64 MB")).size(), 8);
    EXPECT_EQ(family.report.notes.filter(QStringLiteral("too large in all")).size(), 4);
}

TEST_F(PicturesInAFolder, NothingIsReadOutsideOfIt)
{
    for (const QByteArray& name : {QByteArray("../secret.png"), root_.filePath(QStringLiteral("secret.png")).toUtf8(),
                                   QByteArray("link.png"), QByteArray("media/../../secret.png"), QByteArray("media")}) {
        const auto family = importedHere("0 @I1@ INDI\n1 OBJE\n2 FORM png\n2 FILE " + name + "\n");
        EXPECT_EQ(pictureOf(family), QByteArray()) << name.toStdString();
        EXPECT_THAT(notesOf(family), HasSubstr("the file is not there"));
    }
}

TEST_F(PicturesInAFolder, TooLargeOnesAreRefused)
{
    QFile large(root_.filePath(QStringLiteral("family/large.png")));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write(tomsPicture);
    ASSERT_TRUE(large.resize(MediaFiles::mostBytes + 1));
    large.close();
    EXPECT_THAT(notesOf(importedHere("0 @I1@ INDI\n1 OBJE\n2 FILE large.png\n")), HasSubstr("more than 64 MB"));
}

/// The bytes of an archive with these files.
QByteArray zipped(const std::vector<std::pair<const char*, QByteArray>>& files)
{
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("a.zip")).toLocal8Bit();
    zip_t* const archive = zip_open(path.constData(), ZIP_CREATE, nullptr);
    for (const auto& [name, bytes] : files)
        zip_file_add(archive, name,
                     zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0), 0);
    zip_close(archive);
    QFile file(QString::fromLocal8Bit(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(Gedzips, AreImportedWithTheirPictures)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 OBJE @O1@\n0 @O1@ OBJE\n1 FILE "
                            "media/Ann%20B.jpg\n2 FORM image/jpeg\n0 TRLR\n";
    const auto family = imported(zipped({{"gedcom.ged", text}, {"media/Ann B.jpg", annsPicture}}));
    ASSERT_NE(member(family, 0).pic(), nullptr);
    EXPECT_EQ(member(family, 0).pic()->data(), annsPicture);
    EXPECT_EQ(family.report.version, QStringLiteral("7.0"));
    EXPECT_EQ(notesOf(family), "");
    EXPECT_EQ(family.context->storeUuid(), imported(text).context->storeUuid());
}

TEST(Gedzips, PicturesAreFoundInOtherCapitals)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 OBJE @O1@\n0 @O1@ OBJE\n1 FILE Media/ann.JPG\n"
                            "2 FORM image/jpeg\n0 TRLR\n";
    const auto family =
        imported(zipped({{"gedcom.ged", text}, {"media/Ann.jpg", annsPicture}, {"b.png", tomsPicture}}));
    ASSERT_NE(member(family, 0).pic(), nullptr);
    EXPECT_EQ(member(family, 0).pic()->data(), annsPicture);
    EXPECT_EQ(family.report.leftFiles, QStringList{QStringLiteral("b.png")});
}

TEST(Gedzips, EveryFileIsTakenOrTold)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 OBJE\n2 FILE a/Ann.jpg\n1 OBJE\n"
                            "2 FILE b.png\n1 OBJE\n2 FILE voice.mp3\n2 FORM audio/mpeg\n0 TRLR\n";
    const auto family = imported(zipped({{"voice.mp3", "la"},
                                         {"gedcom.ged", text},
                                         {"b.png", tomsPicture},
                                         {"a/Ann.jpg", annsPicture},
                                         {"unnamed.txt", "x"},
                                         {"other.ged", text}}));
    const QStringList left = {QStringLiteral("voice.mp3"), QStringLiteral("b.png"), QStringLiteral("unnamed.txt"),
                              QStringLiteral("other.ged")};
    EXPECT_EQ(family.report.leftFiles, left);
    EXPECT_THAT(
        importSummary(family.report).toStdString(),
        HasSubstr("\nWhat stays in the archive alone\nFiles that Lineara does not keep, and does not export: 4\n"
                  "  voice.mp3\n  b.png\n  unnamed.txt\n  other.ged\n"));
    EXPECT_EQ(imported(zipped({{"gedcom.ged", text}})).report.leftFiles, QStringList());
}

TEST(Gedzips, FindTheGenealogyUnderOtherNames)
{
    const QByteArray text = "0 HEAD\n0 @I1@ INDI\n";
    EXPECT_EQ(imported(zipped({{"GEDCOM.GED", text}})).report.persons, 1u);
    EXPECT_EQ(imported(zipped({{"../../Smith.ged", text}, {"Tom.jpg", tomsPicture}})).report.persons, 1u);
    EXPECT_THAT(failureOf(zipped({{"a.ged", text}, {"b.ged", text}})), HasSubstr("holds several GEDCOM files"));
    EXPECT_THAT(failureOf(zipped({{"Tom.jpg", tomsPicture}})),
                HasSubstr("this archive holds no family: there is no gedcom.ged in it."));
}

TEST(Gedzips, BrokenAndEndlessOnesAreRefused)
{
    const QByteArray sound = zipped({{"gedcom.ged", "0 HEAD\n0 @I1@ INDI\n"}});
    EXPECT_THAT(failureOf(sound.left(sound.size() / 2)), HasSubstr("it is a ZIP archive that can't be read"));
    EXPECT_THAT(failureOf("PK\x03\x04"), HasSubstr("it is a ZIP archive that can't be read"));
    EXPECT_THAT(failureOf(zipped({{"gedcom.ged", sound}})), HasSubstr("it is not a GEDCOM file"));
    EXPECT_THAT(failureOf(zipped({{"gedcom.ged", QByteArray(50'000'000, '\0')}})), HasSubstr("nothing but zeros"));
    const QByteArray largePicture = tomsPicture + QByteArray(MediaFiles::mostBytes, '\0');
    const auto family =
        imported(zipped({{"gedcom.ged", "0 HEAD\n0 @I1@ INDI\n1 OBJE\n2 FILE Tom.png\n"}, {"Tom.png", largePicture}}));
    EXPECT_EQ(member(family, 0).pic(), nullptr);
    EXPECT_THAT(notesOf(family), HasSubstr("the file has more than 64 MB"));
}

} // namespace
} // namespace lineara
