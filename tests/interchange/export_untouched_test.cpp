// What was imported and not changed comes back as it was.

#include "exported.h"

#include "store/family_content.h"
#include "told_family.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

using namespace lineara;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

namespace {

/// UTF-8 files among the data; their header differs in what says how they are written, and in nothing else.
class Untouched : public testing::TestWithParam<const char*>
{
protected:
    QByteArray text = dataFile(QString::fromLatin1(GetParam()));
    ImportedFamily family = imported(text);
};

bool isFrame(const std::string& line)
{
    static const std::vector<std::string> frame = {"1 CHAR", "1 GEDC", "2 VERS", "2 FORM", "3 VERS"};
    return std::ranges::any_of(frame, [&](const auto& start) { return line.substr(1).starts_with(start); });
}

} // namespace

TEST_P(Untouched, ComesBackLineByLine)
{
    auto changes = difference(text, exported(*family.context));
    std::erase_if(changes, isFrame);
    std::erase(changes, "+0 TRLR");
    EXPECT_THAT(changes, IsEmpty());
}

TEST(UntouchedHeader, KeepsWhatCanNotBeReadBelowItsForm)
{
    const QByteArray strays = "0\u00a0@I1@ INDI\n1\u00a0NAME A /B/\n";
    const auto family = imported("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n" + strays + "2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n" +
                                 strays + "0 TRLR\n");
    for (const auto format : {GedcomFormat::Gedcom551, GedcomFormat::Gedcom70}) {
        const QByteArray text = exported(*family.context, format);
        EXPECT_EQ(text.count(strays), 2);
        EXPECT_EQ(exported(*imported(text).context, format), text);
    }
}

TEST(UntouchedHeader, TakesNothingBelowItsFormThatHadNoPlace)
{
    for (const QByteArray form : {"2 GEDC\n2 VERS 5.5\n", "1 GEDC\n3 VERS 5.5\n3 FORM LINEAGE-LINKED\n"}) {
        const auto family = imported("0 HEAD\n" + form + "0 @I1@ INDI\n1 NAME A /B/\n0 TRLR\n");
        for (const auto format : {GedcomFormat::Gedcom551, GedcomFormat::Gedcom70}) {
            const QByteArray text = exported(*family.context, format);
            EXPECT_EQ(exported(*imported(text).context, format), text);
            EXPECT_FALSE(text.contains("5.5\n") && text.indexOf("5.5\n") > text.indexOf("1 GEDC\n")) << text.data();
        }
    }
}

TEST(UntouchedHeader, IfThereWasNoneNamesASubmitterThatIsThere)
{
    const QByteArray text = "0 @I1@ INDI\n1 NAME Ada /Oak/\n1 SUBM @U1@\n1 NOTE @U2@\n0 @U2@ NOTE one\n";
    const auto family = imported(text);
    const QByteArray five = exported(*family.context);
    EXPECT_THAT(difference(text, five), ElementsAre("+0 HEAD", "+1 GEDC", "+2 VERS 5.5.1", "+2 FORM LINEAGE-LINKED",
                                                    "+1 SOUR LINEARA", "+2 NAME Lineara", "+1 SUBM @U3@",
                                                    "+1 CHAR UTF-8", "+0 @U3@ SUBM", "+1 NAME Lineara", "+0 TRLR"));
    const auto again = imported(five);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_EQ(exported(*again.context), five);
    EXPECT_FALSE(exported(*family.context, GedcomFormat::Gedcom70).contains("SUBM @U3@"));
}

TEST_P(Untouched, TellsTheSameWithoutItsRecordsBeingKept)
{
    const auto told = familyToldBy(text, QStringLiteral("records"), {});
    ASSERT_FALSE(told.failed());
    EXPECT_EQ(familyText(*told.value()), familyText(*family.context));
    EXPECT_TRUE(told.value()->allSources().empty());
}

TEST_P(Untouched, ReadAgainIsTheSameFamilyInEveryFormat)
{
    for (const auto format : {GedcomFormat::Gedcom551, GedcomFormat::Gedcom70}) {
        const auto again = imported(exported(*family.context, format));
        EXPECT_EQ(familyText(*again.context), familyText(*family.context));
        EXPECT_EQ(exported(*again.context, format), exported(*family.context, format));
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Untouched,
                         testing::Values("bronte.ged", "calendar-dates.ged", "family-structure-variants.ged",
                                         "relationships-complex.ged", "royal92.ged", "shakespeare.ged", "utf8-cr.ged",
                                         "malformed/blank-lines.ged", "malformed/circular-reference.ged",
                                         "malformed/duplicate-xref.ged", "malformed/level-jump-skip.ged"));

TEST(UntouchedIn7, DiffersOnlyInWhatHasOtherNamesThere)
{
    const QByteArray text = "0 HEAD\n1 SOUR X\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n"
                            "0 @I1@ INDI\n1 NAME Ada /Oak/\n2 _AKA a@@b\n1 EMAIL @@ada\n1 NOTE @N1@\n1 BIRT\n"
                            "2 DATE @#DJULIAN@ 1 MAR 44 B.C.\n1 DEAT\n2 DATE INT 1900 (about then)\n"
                            "1 RESI\n2 DATE (long ago)\n1 OCCU mil\n2 CONC ler\n2 CONT and more\n2 CONC  than that\n"
                            "0 @N1@ NOTE one\n1 CONT t\n1 CONC wo\n0 TRLR\n";
    EXPECT_THAT(difference(text, exported(*imported(text).context, GedcomFormat::Gedcom70)),
                ElementsAre("-2 VERS 5.5.1", "-2 FORM LINEAGE-LINKED", "-1 CHAR UTF-8", "+2 VERS 7.0", "-2 _AKA a@@b",
                            "+2 _AKA a@b", "-1 NOTE @N1@", "+1 SNOTE @N1@", "-2 DATE @#DJULIAN@ 1 MAR 44 B.C.",
                            "+2 DATE JULIAN 1 MAR 44 BCE", "-2 DATE INT 1900 (about then)", "+2 DATE 1900",
                            "+3 PHRASE about then", "-2 DATE (long ago)", "-1 OCCU mil", "-2 CONC ler",
                            "-2 CONT and more", "-2 CONC  than that", "-0 @N1@ NOTE one", "-1 CONT t", "-1 CONC wo",
                            "+2 DATE", "+3 PHRASE long ago", "+1 OCCU miller", "+2 CONT and more than that",
                            "+0 @N1@ SNOTE one", "+1 CONT two"));
}

TEST(UntouchedIn7, WordsBelowAPointerStayBesideIt)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n"
                            "0 @I1@ INDI\n1 NAME A /B/\n1 FAMS @F1@\n2 CONT first\n2 CONC  second\n1 NOTE @N1@\n"
                            "2 CONC a@@b\n2 CONC  c\n0 @I2@ INDI\n1 NAME C /D/\n1 FAMS @F1@\n2 CONC @x@\n"
                            "0 @F1@ FAM\n1 HUSB @I1@\n2 CONC words\n1 WIFE @I2@\n0 @N1@ NOTE one\n0 TRLR\n";
    const auto family = imported(text);
    const QByteArray seven = exported(*family.context, GedcomFormat::Gedcom70);
    EXPECT_THAT(difference(text, seven),
                ElementsAre("-2 VERS 5.5.1", "-2 FORM LINEAGE-LINKED", "-1 CHAR UTF-8", "+2 VERS 7.0", "-2 CONT first",
                            "-2 CONC  second", "-1 NOTE @N1@", "-2 CONC a@@b", "-2 CONC  c", "+2 CONT first second",
                            "+1 SNOTE @N1@", "+2 CONT a@b c", "-2 CONC @x@", "+2 CONT @@x@", "-2 CONC words",
                            "+2 CONT words", "-0 @N1@ NOTE one", "+0 @N1@ SNOTE one"));
    const auto again = imported(seven);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    EXPECT_EQ(exported(*again.context, GedcomFormat::Gedcom70), seven);
}

TEST(UntouchedIn7, CrossReferencesAreWrittenAs7Allows)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 SUBM @sub 1@\n"
                            "0 @i-1@ INDI\n1 NAME Ada\n1 FAMS @F1@\n1 ASSO @I-1@\n1 NOTE @void@\n1 SOUR @s\xC3\xA4@\n"
                            "0 @I-1@ INDI\n1 NAME @I 1@\n1 FAMC @F1@\n0 @I_1@ INDI\n1 EMAIL i-1@@home\n"
                            "0 @void@ NOTE nothing\n0 @F1@ FAM\n1 WIFE @i-1@\n1 CHIL @I-1@\n0 @sub 1@ SUBM\n0 TRLR\n";
    const auto family = imported(text);
    const QByteArray seven = exported(*family.context, GedcomFormat::Gedcom70);
    EXPECT_THAT(difference(text, seven),
                ElementsAre("-2 VERS 5.5.1", "-2 FORM LINEAGE-LINKED", "-1 SUBM @sub 1@", "-0 @i-1@ INDI",
                            "+2 VERS 7.0", "+1 SUBM @SUB_1@", "+0 @I_1_2@ INDI", "-1 ASSO @I-1@", "-1 NOTE @void@",
                            "-1 SOUR @s\xC3\xA4@", "-0 @I-1@ INDI", "-1 NAME @I 1@", "+1 ASSO @I_1_3@",
                            "+1 SNOTE @VOID_2@", "+1 SOUR @S_@", "+0 @I_1_3@ INDI", "+1 NAME @I_1_4@",
                            "-1 EMAIL i-1@@home", "-0 @void@ NOTE nothing", "+1 EMAIL i-1@home",
                            "+0 @VOID_2@ SNOTE nothing", "-1 WIFE @i-1@", "-1 CHIL @I-1@", "-0 @sub 1@ SUBM",
                            "+1 WIFE @I_1_2@", "+1 CHIL @I_1_3@", "+0 @SUB_1@ SUBM"));
    EXPECT_EQ(familyText(*imported(seven).context), familyText(*family.context));
}

TEST(UntouchedIn7, NewFamiliesNameThePersonsAsTheyAreCalledThere)
{
    const auto family = imported("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n0 @i1@ INDI\n0 @i2@ INDI\n0 TRLR\n");
    member(family, 0).addPartner(member(family, 1));
    const QByteArray seven = exported(*family.context, GedcomFormat::Gedcom70);
    EXPECT_TRUE(seven.contains("1 HUSB @I1@\n1 WIFE @I2@\n"));
    EXPECT_EQ(familyText(*imported(seven).context), familyText(*family.context));
}

TEST(UntouchedOf7, ComesBackIn7AndIsRenamedIn551)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 NAME Ada /Oak/\n1 EMAIL @@ada@oak\n"
                            "1 SNOTE @N1@\n1 BIRT\n2 DATE JULIAN 1 MAR 44 BCE\n0 @N1@ SNOTE @@one\n0 TRLR\n";
    const auto family = imported(text);
    EXPECT_THAT(difference(text, exported(*family.context, GedcomFormat::Gedcom70)), IsEmpty());
    EXPECT_THAT(difference(text, exported(*family.context)),
                ElementsAre("-2 VERS 7.0", "+2 VERS 5.5.1", "+2 FORM LINEAGE-LINKED", "+1 CHAR UTF-8",
                            "-1 EMAIL @@ada@oak", "-1 SNOTE @N1@", "+1 EMAIL @@ada@@oak", "+1 NOTE @N1@",
                            "-2 DATE JULIAN 1 MAR 44 BCE", "-0 @N1@ SNOTE @@one", "+2 DATE @#DJULIAN@ 1 MAR 44 B.C.",
                            "+0 @N1@ NOTE @@one"));
}

TEST(UntouchedHeader, SaysHowTheFileIsWrittenNow)
{
    const auto family = imported(QByteArray("0 HEAD\n1 SOUR OLD\n1 CHAR ANSI\n2 VERS 1\n1 GEDC\n2 VERS 5.5\n"
                                            "0 @I1@ INDI\n1 NAME Zo\xEB\n0 TRLR\n"));
    EXPECT_THAT(linesOf(exported(*family.context)),
                ElementsAre("0 HEAD", "1 SOUR OLD", "1 CHAR UTF-8", "1 GEDC", "2 VERS 5.5.1", "2 FORM LINEAGE-LINKED",
                            "0 @I1@ INDI", "1 NAME Zo\xC3\xAB", "0 TRLR"));
}

TEST(ExportedFile, TakesThePlaceOfTheOldOneOrLeavesIt)
{
    const QTemporaryDir folder;
    const auto family = imported(dataFile(QStringLiteral("bronte.ged")));
    const FamilyContent content(*family.context);
    const QString path = folder.filePath(QStringLiteral("a.ged"));
    ASSERT_TRUE(exportGedcomFile(content, path, GedcomFormat::Gedcom551));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), exported(*family.context));
    const auto failed = exportGedcomFile(content, folder.filePath(QStringLiteral("none/a.ged")), GedcomFormat::Gedzip);
    ASSERT_TRUE(failed.failed());
    EXPECT_THAT(failed.failure().message.toStdString(), HasSubstr("a.ged"));
}

TEST(ExportProgress, RisesToItsEndAndCanBeStopped)
{
    const auto family = imported(dataFile(QStringLiteral("royal92.ged")));
    const FamilyContent content(*family.context);
    std::vector<double> parts;
    ASSERT_TRUE(gedcomOf(content, GedcomFormat::Gedcom551, Progress([&](double part) { parts.push_back(part); })));
    EXPECT_TRUE(std::ranges::is_sorted(parts));
    EXPECT_DOUBLE_EQ(parts.back(), 1);
    std::stop_source stop;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.ged"));
    const auto stopped = exportGedcomFile(content, path, GedcomFormat::Gedcom551,
                                          Progress([&](double) { stop.request_stop(); }, stop.get_token()));
    ASSERT_TRUE(stopped.failed());
    EXPECT_THAT(stopped.failure().message.toStdString(), HasSubstr("stopped"));
    EXPECT_FALSE(QFile::exists(path));
}
