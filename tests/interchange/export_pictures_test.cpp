// Pictures travel in archives.

#include "exported.h"

#include "gedzip.h"
#include "store/family_content.h"
#include "store/family_file.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray red = png(Qt::red);
const QByteArray blue = png(Qt::blue);
const QByteArray green = png(Qt::green);

std::vector<std::string> filesIn(const QByteArray& archive)
{
    std::vector<std::string> files;
    for (const QString& file : Gedzip::openBytes(archive, {}).value()->ownFiles())
        files.push_back(file.toStdString());
    return files;
}

QByteArray person(const QByteArray& xref, const QByteArray& lines)
{
    return "0 @" + xref + "@ INDI\n1 NAME " + xref + "\n" + lines;
}

QByteArray versionSeven(const QByteArray& records)
{
    return "0 HEAD\n1 GEDC\n2 VERS 7.0\n" + records + "0 TRLR\n";
}

/// A genealogy in a folder, which may hold files that no archive can.
class Folder
{
public:
    void write(const QString& name, const QByteArray& bytes) const
    {
        ASSERT_TRUE(QFileInfo(at(name)).dir().mkpath(QStringLiteral(".")));
        QFile file(at(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray read(const QString& name) const
    {
        QFile file(at(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    ImportedFamily importedHere(const QByteArray& text) const
    {
        write(QStringLiteral("in.ged"), text);
        return std::move(importGedcomFile(at(QStringLiteral("in.ged"))).value());
    }
    QString at(const QString& name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
};

/// What the FILE lines say, in order.
std::vector<std::string> fileLinesOf(const QByteArray& text)
{
    std::vector<std::string> names;
    for (const std::string& line : linesOf(text)) {
        if (line.substr(1).starts_with(" FILE "))
            names.push_back(line.substr(7));
    }
    return names;
}

ExportReport reportOf(const ImportedFamily& family, const QString& path, GedcomFormat format)
{
    return exportGedcomFile(FamilyContent(*family.context), path, format).value();
}

} // namespace

// Whatever the file is called, the second archive is the first one, byte by byte.
TEST(ArchivedPictures, KeepTheirNamesThroughEveryRoundTrip)
{
    const QByteArray text =
        "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n" + person("I1", "1 OBJE\n2 FILE my%20photo.png\n") +
        person("I2", "1 OBJE\n2 FILE Zo\xC3\xAB M\xC3\xBCller.png\n") +
        person("I3", "1 OBJE\n2 FILE C:\\Pictures\\a.png\n") + person("I4", "1 OBJE\n2 FILE ../../b.png\n") +
        person("I5", "1 OBJE @O1@\n") + person("I6", "1 OBJE @O1@\n") + person("I7", "1 OBJE\n2 FILE ./c/100%.png\n") +
        person("I8", "1 OBJE\n2 FILE c/what?.png\n") + "0 @O1@ OBJE\n1 FILE /home/me/Tom.png\n0 TRLR\n";
    const Folder folder;
    for (const char* name :
         {"my photo.png", "Zo\xC3\xAB M\xC3\xBCller.png", "Pictures/a.png", "b.png", "c/100%.png", "c/what?.png"})
        folder.write(QString::fromUtf8(name), red + name);
    folder.write(QStringLiteral("Tom.png"), blue);
    const auto family = folder.importedHere(text);
    ASSERT_EQ(family.report.pictures, 8u) << notesOf(family);

    const QByteArray first = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(filesIn(first), ElementsAre("Pictures/a.png", "Zo\xC3\xAB M\xC3\xBCller.png", "b.png", "c/100%.png",
                                            "c/what?.png", "home/me/Tom.png", "my photo.png"));
    EXPECT_THAT(fileLinesOf(genealogyIn(first)),
                ElementsAre("my%20photo.png", "Zo%C3%AB%20M%C3%BCller.png", "Pictures/a.png", "b.png", "./c/100%25.png",
                            "c/what%3F.png", "home/me/Tom.png"));
    const auto again = imported(first);
    EXPECT_EQ(again.report.pictures, 8u) << notesOf(again);
    for (std::size_t at = 0; at < 8; ++at)
        EXPECT_EQ(pictureOf(member(again, at)), pictureOf(member(family, at))) << at;
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == first);
}

TEST(ArchivedPictures, OfTwoNamesForOnePlaceOneIsChanged)
{
    const Folder folder;
    folder.write(QStringLiteral("a b.png"), red);
    folder.write(QStringLiteral("a%20b.png"), blue);
    const auto family =
        folder.importedHere(person("I1", "1 OBJE\n2 FILE a b.png\n") + person("I2", "1 OBJE\n2 FILE a%20b.png\n"));
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), red);
    EXPECT_EQ(pictureOf(member(again, 1)), blue);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
}

TEST(ArchivedPictures, LieUnderTheNameThatTheyWereTakenFrom)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE @O1@\n1 OBJE @O2@\n2 _PRIM Y\n") +
                                         "0 @O1@ OBJE\n1 FILE a.png\n0 @O2@ OBJE\n1 FILE b.png\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    ASSERT_EQ(pictureOf(member(family, 0)), blue);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_TRUE(archive == archiveOf(text, {{"b.png", blue}}));
}

TEST(ArchivedPictures, OfPersonsWithoutARecordOrALineGetOne)
{
    const auto family = imported(versionSeven(person("I1", "1 SEX F\n")));
    ObjectContext& context = *family.context;
    Person& other = context.insertPerson();
    context.allPools().at(0)->addPerson(other);
    member(family, 0).changePic(red);
    other.changePic(blue);
    const QByteArray archive = exported(context, GedcomFormat::Gedzip);
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), red);
    EXPECT_EQ(pictureOf(member(again, 1)), blue);
    EXPECT_TRUE(exported(context, GedcomFormat::Gedzip) == archive);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);
}

TEST(ArchivedPictures, GetNoNameThatAnotherIsLookedForBy)
{
    const auto family = imported(versionSeven(person("I1", {}) + person("I2", {})));
    member(family, 0).changePic(red);
    const std::string made = filesIn(exported(*family.context, GedcomFormat::Gedzip)).at(0);
    const QByteArray missing = QByteArray::fromStdString(made).toUpper();
    const auto both = imported(versionSeven(person("I1", {}) + person("I2", "1 OBJE\n2 FILE " + missing + "\n")));
    member(both, 0).changePic(red);
    const auto again = imported(exported(*both.context, GedcomFormat::Gedzip));
    EXPECT_EQ(pictureOf(member(again, 0)), red);
    EXPECT_EQ(pictureOf(member(again, 1)), "none");
}

// The name that came with it ends in another way than the one in the archive.
TEST(ArchivedPictures, GetNoFormatThatTheyDidNotHave)
{
    const Folder folder;
    folder.write(QStringLiteral("sc\u00ADan.jpg"), red);
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n" +
                            person("I1", "1 OBJE @O1@\n") +
                            "0 @O1@ OBJE\n1 FILE sc\xC2\xAD"
                            "an.jpg\n2 FORM N/A\n0 TRLR\n";
    const auto family = folder.importedHere(text);
    ASSERT_EQ(pictureOf(member(family, 0)), red);
    const auto archived = imported(exported(*family.context, GedcomFormat::Gedzip));
    EXPECT_THAT(difference(text, exported(*archived.context)), ElementsAre());
}

TEST(RemovedPictures, TakeTheirLinesWithThem)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE @O1@\n1 _PHOTO @O1@\n1 OBJE @O2@\n") +
                                         person("I2", "1 OBJE\n2 FILE b.png\n2 TITL Ben\n") +
                                         person("I3", "1 OBJE\n2 FILE voice.mp3\n2 FILE c.png\n") +
                                         "0 @O1@ OBJE\n1 FILE a.png\n" + "0 @O2@ OBJE\n1 FILE will.pdf\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}, {"c.png", green}}));
    for (std::size_t at = 0; at < 3; ++at) {
        ASSERT_NE(member(family, at).pic(), nullptr) << at;
        member(family, at).removePic();
    }
    const std::vector<std::string> gone = {"-1 OBJE @O1@", "-1 _PHOTO @O1@", "-1 OBJE",      "-2 FILE b.png",
                                           "-2 TITL Ben",  "-2 FILE c.png",  "-0 @O1@ OBJE", "-1 FILE a.png"};
    EXPECT_EQ(difference(text, exported(*family.context, GedcomFormat::Gedcom70)), gone);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_EQ(difference(text, genealogyIn(archive)), gone);
    EXPECT_THAT(filesIn(archive), IsEmpty());
    EXPECT_EQ(imported(archive).report.pictures, 0u);
}

TEST(RemovedPictures, LeaveNoOtherInTheirPlace)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE\n2 FILE a.png\n1 OBJE\n2 FILE b.png\n2 TITL Old\n") +
                                         person("I2", "1 OBJE\n2 FILE b.png\n"));
    const Folder folder;
    folder.write(QStringLiteral("b.png"), blue);
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    member(family, 0).removePic();
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(difference(text, genealogyIn(archive)), ElementsAre("-1 OBJE", "-2 FILE a.png", "+1 _PHOTO @VOID@"));
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), "none");
    EXPECT_EQ(pictureOf(member(again, 1)), blue);
    EXPECT_EQ(notesOf(again), "");
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);

    const QString plain = folder.at(QStringLiteral("a.ged"));
    reportOf(family, plain, GedcomFormat::Gedcom551);
    const auto beside = importGedcomFile(plain);
    EXPECT_EQ(pictureOf(member(beside.value(), 0)), "none");
    EXPECT_EQ(pictureOf(member(beside.value(), 1)), blue);

    member(again, 0).changePic(green);
    const QByteArray replaced = exported(*again.context, GedcomFormat::Gedzip);
    EXPECT_EQ(pictureOf(member(imported(replaced), 0)), green);
    EXPECT_FALSE(genealogyIn(replaced).contains("_PHOTO"));
}

TEST(ReplacedPictures, LeaveNoOtherInTheirPlaceWhereTheyCanNotGoAlong)
{
    const Folder folder;
    folder.write(QStringLiteral("a.png"), red);
    folder.write(QStringLiteral("b.png"), blue);
    const QString path = folder.at(QStringLiteral("a.ged"));
    folder.write(QStringLiteral("a.ged"), "0 HEAD\n" + person("I1", "1 OBJE\n2 FILE a.png\n1 OBJE\n2 FILE b.png\n"));
    const auto family = importGedcomFile(path);
    ASSERT_EQ(pictureOf(member(family.value(), 0)), red);
    member(family.value(), 0).changePic(green);
    reportOf(family.value(), path, GedcomFormat::Gedcom551);
    EXPECT_EQ(pictureOf(member(importGedcomFile(path).value(), 0)), "none");
}

TEST(RemovedPictures, OfOthersStay)
{
    const QByteArray text =
        versionSeven(person("I1", "1 OBJE @O1@\n") + person("I2", "1 OBJE @O1@\n") + "0 @O1@ OBJE\n1 FILE a.png\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}}));
    member(family, 0).removePic();
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(difference(text, genealogyIn(archive)), ElementsAre("-1 OBJE @O1@"));
    EXPECT_EQ(pictureOf(member(imported(archive), 1)), red);
}

TEST(ReplacedPictures, TakeThePlaceOfTheOldOnes)
{
    const QByteArray text =
        versionSeven(person("I1", "1 OBJE @O1@\n1 OBJE @O2@\n2 _PRIM Y\n1 SEX F\n") +
                     "0 @O1@ OBJE\n1 FILE a.png\n0 @O2@ OBJE\n1 FILE b.png\n2 FORM image/png\n1 NOTE mine\n");
    auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    member(family, 0).changePic(green);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    EXPECT_THAT(difference(text, genealogyIn(archive)),
                ElementsAre("+1 OBJE @O103@", "-1 OBJE @O2@", "-2 _PRIM Y", "+0 @O103@ OBJE",
                            "+1 FILE pictures/p103.png", "+2 FORM image/png"));
    const auto again = imported(archive);
    EXPECT_EQ(pictureOf(member(again, 0)), green);
    EXPECT_TRUE(exported(*again.context, GedcomFormat::Gedzip) == archive);

    member(again, 0).changePic(red);
    const auto third = imported(exported(*again.context, GedcomFormat::Gedzip));
    EXPECT_EQ(pictureOf(member(third, 0)), red);
    EXPECT_EQ(third.report.records, again.report.records) << "what only named the old picture is not needed";
}

TEST(ReplacedPictures, ComeBeforeOthersThatAreMarked)
{
    const QByteArray text =
        versionSeven(person("I1", "1 OBJE @O1@\n1 OBJE @O2@\n2 _PRIM Y\n") + person("I2", "1 OBJE @O2@\n") +
                     "0 @O1@ OBJE\n1 FILE a.png\n1 _PRIM Y\n0 @O2@ OBJE\n1 FILE b.png\n");
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    ASSERT_EQ(pictureOf(member(family, 0)), red);
    member(family, 0).changePic(green);
    const auto again = imported(exported(*family.context, GedcomFormat::Gedzip));
    EXPECT_EQ(pictureOf(member(again, 0)), green);
    EXPECT_EQ(pictureOf(member(again, 1)), blue);
}

TEST(ReplacedPictures, ComeBackAfterUndo)
{
    const QByteArray archive = archiveOf(versionSeven(person("I1", "1 OBJE\n2 FILE a.png\n")), {{"a.png", red}});
    const auto family = imported(archive);
    member(family, 0).changePic(green);
    EXPECT_FALSE(exported(*family.context, GedcomFormat::Gedzip) == archive);
    member(family, 0).changePic(red);
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedzip) == archive);
}

// A file of the family remembers what was taken, too.
TEST(TakenPictures, AreRememberedInTheFamilyFile)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE\n2 FILE gone.png\n1 OBJE\n2 FILE a<b>.png\n") +
                                         person("I2", "1 OBJE\n2 FILE gone.png\n") + person("I3", {}));
    const QByteArray archive = archiveOf(text, {{"a<b>.png", red}});
    const auto family = imported(archive);
    const Folder folder;
    const QString path = folder.at(QStringLiteral("a.lineara"));
    ASSERT_TRUE(saveFamilyFile(*family.context, path));
    const auto loaded = readFamilyFile(path);
    ASSERT_TRUE(loaded);
    const ObjectContext& context = *loaded.value().context;
    const auto taken = [&](std::size_t at) { return context.allPersons()[at]->source()->takenPicture(); };
    ASSERT_TRUE(taken(0) && taken(1));
    EXPECT_EQ(taken(0)->file, QStringLiteral("a<b>.png"));
    EXPECT_EQ(taken(0)->hash.size(), 64);
    EXPECT_EQ(*taken(1), TakenPicture{});
    EXPECT_FALSE(taken(2));
    EXPECT_TRUE(exported(context, GedcomFormat::Gedzip) == archive);
}

// Records that were kept by older versions do not say which picture was taken.
TEST(TakenPictures, AreGuessedWhereNothingIsRemembered)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE\n2 FILE a.png\n1 OBJE\n2 FILE b.png\n2 _PRIM Y\n") +
                                         person("I2", "1 OBJE\n2 FILE c.png\n"));
    const auto family = imported(archiveOf(text, {{"b.png", blue}, {"c.png", red}}));
    for (SourceRecord* const source : family.context->allSources())
        source->setTakenPicture(nullptr);
    member(family, 1).removePic();
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedzip) == archiveOf(text, {{"b.png", blue}}));
}

TEST(ExportReports, TellWhatDoesNotGoAlong)
{
    const QByteArray text =
        versionSeven("0 @S1@ SOUR\n1 OBJE @O1@\n0 @O1@ OBJE\n1 FILE scan.pdf\n1 FILE https://a.b/c\n" +
                     person("I1", "1 OBJE\n2 FILE a.png\n") + person("I2", {}) +
                     person("I3", "1 OBJE\n2 FILE gone.png\n1 OBJE\n2 FILE gone.png\n"));
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"scan.pdf", "pdf"}}));
    member(family, 1).changePic(blue);
    const Folder folder;
    const auto packed = reportOf(family, folder.at(QStringLiteral("a.gdz")), GedcomFormat::Gedzip);
    EXPECT_EQ(packed.picturesLeftOut, 0u);
    EXPECT_EQ(packed.missingFiles, QStringList({QStringLiteral("scan.pdf"), QStringLiteral("gone.png")}));
    auto plain = reportOf(family, folder.at(QStringLiteral("a.ged")), GedcomFormat::Gedcom551);
    EXPECT_EQ(plain.picturesLeftOut, 2u);
    EXPECT_EQ(plain.missingFiles.size(), 3);
    folder.write(QStringLiteral("a.png"), red);
    plain = reportOf(family, folder.at(QStringLiteral("a.ged")), GedcomFormat::Gedcom551);
    EXPECT_EQ(plain.picturesLeftOut, 1u);
    EXPECT_EQ(exportSummary(plain).toStdString(),
              "Pictures that only an export with pictures (.gdz) takes along: 1\n"
              "Files that the genealogy names and that are not there: 2\n  scan.pdf\n  gone.png\n");
    EXPECT_EQ(exportSummary({}), QString());
}

// The file that is there stays, whenever the export is stopped.
TEST(ExportReports, TellNothingOfFilesThatReadersOfTheArchiveWillFind)
{
    const QByteArray text = versionSeven(person("I1", "1 OBJE\n2 FILE a.png\n") +
                                         person("I2", "1 OBJE\n2 FILE b.png\n1 OBJE\n2 FILE A.PNG\n"));
    const auto family = imported(archiveOf(text, {{"a.png", red}, {"b.png", blue}}));
    const Folder folder;
    const auto report = reportOf(family, folder.at(QStringLiteral("a.gdz")), GedcomFormat::Gedzip);
    EXPECT_TRUE(report.missingFiles.isEmpty()) << report.missingFiles.join(u' ').toStdString();
}

TEST(StoppedExports, LeaveTheFileAlone)
{
    QByteArray noise(4'000'000, Qt::Uninitialized);
    for (qsizetype at = 0; at < noise.size(); ++at)
        noise[at] = static_cast<char>((at * at) >> 3);
    const auto family =
        imported(archiveOf(versionSeven(person("I1", "1 OBJE\n2 FILE a.png\n")), {{"a.png", red + noise}}));
    const FamilyContent content(*family.context);
    const Folder folder;
    folder.write(QStringLiteral("a.gdz"), "old");
    std::size_t reports = 0;
    ASSERT_TRUE(exportGedcomFile(content, folder.at(QStringLiteral("b.gdz")), GedcomFormat::Gedzip,
                                 Progress([&](double) { ++reports; })));
    ASSERT_GT(reports, 10u);
    for (std::size_t stopAt = 1; stopAt <= reports; ++stopAt) {
        std::size_t heard = 0;
        std::stop_source stop;
        const auto listener = [&](double) {
            if (++heard == stopAt)
                stop.request_stop();
        };
        const auto stopped = exportGedcomFile(content, folder.at(QStringLiteral("a.gdz")), GedcomFormat::Gedzip,
                                              Progress(listener, stop.get_token()));
        ASSERT_TRUE(stopped.failed()) << stopAt << " of " << reports;
        EXPECT_THAT(stopped.failure().message.toStdString(), testing::HasSubstr("stopped"));
        ASSERT_EQ(folder.read(QStringLiteral("a.gdz")), "old") << stopAt;
    }
}
