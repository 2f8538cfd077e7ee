// What the imported records tell of a person beyond the person's own fields.

#include "interchange/further_facts.h"

#include "imported.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace lineara {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// "Occupation=Miller", a "-" more for each step down, headings with a "#" before them.
std::vector<std::string> factsOf(const ImportedFamily& family, std::size_t person)
{
    ImportedFacts facts(*family.context);
    std::vector<std::string> list;
    std::size_t counted = 0;
    for (const auto& [label, value, depth, isHeading] : facts.of(member(family, person))) {
        const std::string step(static_cast<std::size_t>(depth), '-');
        list.push_back(isHeading ? '#' + label.toStdString() : step + label.toStdString() + '=' + value.toStdString());
        counted += isHeading ? 0U : 1U;
    }
    EXPECT_EQ(facts.count(member(family, person)), counted);
    return list;
}

/// Of a file with one person, "@I1@", that has these lines, and with these further records.
std::vector<std::string> factsOf(const QByteArray& lines, const QByteArray& records = {})
{
    return factsOf(imported("0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n" + lines + records + "0 TRLR\n"), 0);
}

TEST(FurtherFacts, AreWhatNoFieldHolds)
{
    EXPECT_THAT(
        factsOf("1 NAME Ann /Hathaway/\n2 SURN Hathaway\n1 NAME Ann /Shakespeare/\n1 SEX F\n"
                "1 BIRT\n2 DATE ABT 1556\n2 PLAC Shottery\n1 DEAT\n2 DATE 6 AUG 1623\n1 OCCU brewer\n2 CONT and wife\n"
                "2 DATE 1600\n3 TIME noon\n1 NOTE taken\n1 NOTE @N1@\n1 _MILT yes\n",
                "0 @N1@ NOTE taken, too\n"),
        ElementsAre("Name=Ann /Shakespeare/", "Sex=F", "Birth: Date=ABT 1556", "Birth: Place=Shottery",
                    "Occupation=brewer\nand wife", "-Date=1600", "--Time=noon", "_MILT=yes"));
}

TEST(FurtherFacts, AreListedOfBrokenRecordsToo)
{
    EXPECT_THAT(factsOf("junk\n4 DATE 1900\n"), ElementsAre("Unreadable line=junk", "Date=1900"));
}

TEST(FurtherFacts, AreNoneOfSomebodyWhoWasMadeHere)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 SEX M\n0 TRLR\n");
    ImportedFacts facts(*family.context);
    const Person& person = family.context->insertPerson();
    EXPECT_THAT(facts.of(person), IsEmpty());
    EXPECT_EQ(facts.count(person), 0U);
}

TEST(FurtherFacts, TellPointersByWhatTheyPointAt)
{
    EXPECT_THAT(
        factsOf("1 OCCU Miller\n2 SOUR @S1@\n3 PAGE 7\n3 NOTE @N1@\n2 SOUR @S2@\n2 SOUR @S3@\n2 SOUR @S4@\n"
                "3 REPO @R1@\n1 OBJE @M1@\n1 OBJE @M2@\n1 OBJE @M3@\n1 SUBM @U1@\n1 _PLACE @L1@\n1 ASSO @I2@\n",
                "0 @S1@ SOUR\n1 AUTH Bert Smith\n1 TITL The Mills\n2 CONC  of Ely\n"
                "0 @S2@ SOUR\n1 AUTH Bert Smith\n1 PUBL 1850\n0 @S3@ SOUR\n1 PUBL 1850\n"
                "0 @S4@ SOUR\n1 ABBR Ely\n0 @R1@ REPO\n1 NAME The Library\n0 @N1@ NOTE Long\n1 CONT words\n"
                "0 @M1@ OBJE\n1 FILE mill.txt\n1 TITL The mill\n0 @M2@ OBJE\n1 NOTE by Tom\n1 FILE mill.txt\n2 TITL A "
                "mill\n"
                "0 @M3@ OBJE\n1 NOTE by Tom\n1 FILE mill.txt\n0 @U1@ SUBM\n1 NAME Carl Smith\n0 @L1@ _LOC\n1 NAME Ely\n"
                "0 @I2@ INDI\n1 NAME Dora /Smith/\n"),
        ElementsAre("Occupation=Miller", "-Source=The Mills of Ely", "--Page=7", "--Note=Long\nwords",
                    "-Source=Bert Smith", "-Source=1850", "-Source=Ely", "--Repository=The Library",
                    "Picture or recording=The mill", "Picture or recording=A mill", "Picture or recording=mill.txt",
                    "Submitter=Carl Smith", "_PLACE=Ely", "Associate=Dora Smith"));
}

TEST(FurtherFacts, TellPointersOfBrokenLinesByWhatTheyPointAt)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 SEX M\n3 SOUR @S1@\n3 ASSO @I2@\n3 ASSO @I9@\n"
                                 "0 @I2@ INDI\n1 NAME Bert\n0 @S1@ SOUR\n1 TITL The Mills\n0 TRLR\n");
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Sex=M", "Source=The Mills", "Associate=Bert", "Associate=@I9@"));
    family.context->remove(member(family, 1));
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Sex=M", "Source=The Mills", "Associate=@I9@"));
}

TEST(FurtherFacts, TellPointersThatNothingSaysAsTheyStand)
{
    EXPECT_THAT(factsOf("1 SOUR @S1@\n1 SOUR @S9@\n1 SOUR @VOID@\n1 NOTE @N9@\n1 FAMC @F9@\n1 ASSO @I9@\n",
                        "0 @S1@ SOUR\n1 REFN 5\n"),
                ElementsAre("Source=Source without a title", "Source=@S9@", "Source=not in the file", "Note=@N9@",
                            "Family as a child=@F9@", "Associate=@I9@"));
}

TEST(FurtherFacts, CallPersonsWhatTheyAreCalledNow)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 ASSO @I2@\n1 ASSO @I3@\n0 @I2@ INDI\n1 NAME Bert\n"
                                 "0 @I3@ INDI\n0 TRLR\n");
    member(family, 1).setName(QStringLiteral("Bertram %1"));
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Associate=Bertram %1", "Associate=a person without a name"));
}

TEST(FurtherFacts, AreReadAsTheVersionOfTheirFileWritesThem)
{
    const QByteArray person = "0 @I1@ INDI\n1 OCCU @@home and@@away\n0 TRLR\n";
    EXPECT_THAT(factsOf(imported("0 HEAD\n1 GEDC\n2 VERS 7.0\n" + person), 0),
                ElementsAre("Occupation=@home and@@away"));
    EXPECT_THAT(factsOf(imported("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n" + person), 0),
                ElementsAre("Occupation=@home and@away"));
}

TEST(FurtherFacts, DoNotNameWhoWasRemoved)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 ASSO @I2@\n2 RELA godfather\n1 ASSO @I9@\n1 SEX M\n"
                                 "0 @I2@ INDI\n1 NAME Bert\n0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 MARR Y\n0 TRLR\n");
    family.context->journal().begin(QStringLiteral("Remove"));
    ImportedFacts before(*family.context);
    const std::size_t count = before.count(member(family, 0));
    family.context->remove(member(family, 1));
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Associate=@I9@", "Sex=M", "#Family without a partner", "-Marriage=Y"));
    EXPECT_EQ(before.count(member(family, 0)), count - 2);
    family.context->journal().undo();
    EXPECT_EQ(before.count(member(family, 0)), count);
}

TEST(FurtherFacts, TellSourcesWithoutATitleByWhatElseTheySay)
{
    EXPECT_THAT(factsOf("1 SOUR @S1@\n1 SOUR @S2@\n1 SOUR @S3@\n1 SOUR @S4@\n",
                        "0 @S1@ SOUR\n1 TITL\n1 TEXT A letter\n0 @S2@ SOUR\n1 NOTE A visit\n"
                        "0 @S3@ SOUR\n1 OBJE @M1@\n0 @S4@ SOUR\n1 NOTE @N1@\n1 CHAN\n2 DATE 2000\n"
                        "0 @M1@ OBJE\n1 FILE letter.jpg\n0 @N1@ NOTE\n1 SOUR @S4@\n"),
                ElementsAre("Source=A letter", "Source=A visit", "Source=letter.jpg", "Source=Source without a title"));
}

TEST(FurtherFacts, TellRecordsThatSayNothingByWhatIsBehindThem)
{
    EXPECT_THAT(factsOf("1 SOUR @S1@\n1 OCCU Miller\n2 NOTE @N1@\n2 NOTE @N2@\n1 SOUR @S2@\n3 REPO @R2@\n1 OBJE @M1@\n"
                        "1 SUBM @U1@\n1 _PLACE @L1@\n",
                        "0 @S1@ SOUR\n1 REPO @R1@\n0 @N1@ NOTE\n1 SOUR @S3@\n0 @N2@ NOTE\n0 @S2@ SOUR\n1 REPO @R2@\n"
                        "0 @R1@ REPO\n1 NAME The Library\n0 @R2@ REPO\n0 @S3@ SOUR\n1 TITL The Mills\n0 @M1@ OBJE\n"
                        "0 @U1@ SUBM\n0 @L1@ _LOC\n"),
                ElementsAre("Source=The Library", "Occupation=Miller", "-Note=The Mills", "-Note=Note without a text",
                            "Source=Source without a title", "Picture or recording=Picture or recording without a file",
                            "Submitter=Submitter without a name", "_PLACE=@L1@",
                            "Repository=Repository without a name"));
}

/// Somebody may be removed before anything was asked, and come back afterwards.
TEST(FurtherFacts, NameWhoCameBack)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 ASSO @I2@\n0 @I2@ INDI\n1 NAME Bert\n0 TRLR\n");
    family.context->journal().begin(QStringLiteral("Remove"));
    family.context->remove(member(family, 1));
    ImportedFacts facts(*family.context);
    EXPECT_THAT(facts.of(member(family, 0)), IsEmpty());
    family.context->journal().undo();
    ASSERT_EQ(facts.of(member(family, 0)).size(), 1U);
    EXPECT_EQ(facts.of(member(family, 0)).front().value, QStringLiteral("Bert"));
}

TEST(FurtherFacts, DoNotTakeALaterRecordForOneThatWasRemoved)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 ASSO @I2@\n0 @I2@ INDI\n1 NAME Bert\n"
                                 "0 @I2@ INDI\n1 NAME Carl\n0 TRLR\n");
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Associate=Bert"));
    family.context->remove(member(family, 1));
    EXPECT_THAT(factsOf(family, 0), IsEmpty());
}

TEST(FurtherFacts, DoNotNameARemovedNamesake)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 NAME Bert\n0 @I1@ INDI\n1 NAME Carl\n1 ASSO @I1@\n0 TRLR\n");
    EXPECT_THAT(factsOf(family, 1), ElementsAre("Associate=Bert"));
    family.context->remove(member(family, 0));
    // The second one is the first now.
    EXPECT_THAT(factsOf(family, 0), IsEmpty());
}

/// Of a person who names pictures of that kind, of which the import took `taken`.
std::vector<std::string> factsBesidePicture(const QByteArray& lines, const TakenPicture& taken)
{
    const auto family =
        imported("0 HEAD\n0 @I1@ INDI\n" + lines + "0 @M1@ OBJE\n1 FILE a.jpg\n0 @M2@ OBJE\n1 FILE b.jpg\n0 TRLR\n");
    member(family, 0).source()->setTakenPicture(std::make_shared<TakenPicture>(taken));
    return factsOf(family, 0);
}

TEST(FurtherFacts, ArePicturesThatWereNotTaken)
{
    EXPECT_THAT(factsBesidePicture("1 OBJE @M1@\n1 OBJE @M2@\n2 NOTE at home\n", {QStringLiteral("b.jpg"), {}}),
                ElementsAre("Picture or recording=a.jpg", "Picture or recording: Note=at home"));
    EXPECT_THAT(factsBesidePicture("1 OBJE\n2 FORM jpg\n2 FILE a.jpg\n2 TITL Anna\n2 _PRIM Y\n1 OBJE\n2 FILE b.jpg\n",
                                   {QStringLiteral("a.jpg"), {}}),
                ElementsAre("Picture or recording: Title=Anna", "Picture or recording=", "-File=b.jpg"));
    EXPECT_THAT(factsBesidePicture("1 OBJE @M1@\n1 _PHOTO @M1@\n", {QStringLiteral("a.jpg"), {}}), IsEmpty());
    EXPECT_THAT(factsBesidePicture("1 OBJE @M1@\n1 _PHOTO @VOID@\n", {}), ElementsAre("Picture or recording=a.jpg"));
}

TEST(FurtherFacts, AreTheFilesBesideTheOneThatWasTaken)
{
    const auto besideTheTaken = [](const QByteArray& person) {
        const auto family = imported("0 HEAD\n0 @I1@ INDI\n" + person +
                                     "0 @M1@ OBJE\n1 FILE a.jpg\n1 FILE b.jpg\n2 TITL At home\n1 FILE\n"
                                     "1 FILE voice.wav\n0 TRLR\n");
        member(family, 0).source()->setTakenPicture(
            std::make_shared<TakenPicture>(TakenPicture{QStringLiteral("a.jpg"), {}}));
        return factsOf(family, 0);
    };
    EXPECT_THAT(besideTheTaken("1 OBJE @M1@\n2 NOTE seen\n1 _PHOTO @M1@\n"),
                ElementsAre("Picture or recording: Note=seen", "Picture or recording=At home",
                            "Picture or recording=voice.wav"));
    EXPECT_THAT(besideTheTaken("1 OBJE\n2 FILE a.jpg\n2 FILE b.jpg\n3 TITL At home\n"),
                ElementsAre("Picture or recording: File=b.jpg", "-Title=At home"));
}

TEST(FurtherFacts, AreNotTheLinesOfAPictureThatWasRemoved)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 OBJE\n2 FILE a.jpg\n1 OBJE\n2 FILE b.jpg\n0 TRLR\n");
    member(family, 0).source()->setTakenPicture(
        std::make_shared<TakenPicture>(TakenPicture{QStringLiteral("a.jpg"), {}}));
    member(family, 0).changePic(QByteArray("\x89PNG"));
    member(family, 0).removePic();
    EXPECT_THAT(factsOf(family, 0), ElementsAre("Picture or recording=", "-File=b.jpg"));
}

/// Families of older versions know of a picture, but not which one it is.
TEST(FurtherFacts, AreNotTheFirstPictureWhereNobodyKnowsWhichWasTaken)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 OBJE\n2 FILE will.txt\n1 OBJE\n2 FILE a.jpg\n1 OBJE\n"
                                 "2 FILE b.jpg\n2 _PRIM Y\n0 TRLR\n");
    member(family, 0).source()->setTakenPicture(nullptr);
    EXPECT_THAT(factsOf(family, 0), Contains("-File=b.jpg"));
    member(family, 0).changePic(QByteArray("\x89PNG"));
    EXPECT_THAT(factsOf(family, 0),
                ElementsAre("Picture or recording=", "-File=will.txt", "Picture or recording=", "-File=a.jpg"));
}

const QByteArray smiths = "0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Anna /Smith/\n1 FAMS @F1@\n2 NOTE of one's own\n"
                          "0 @I2@ INDI\n1 NAME Bert /Smith/\n1 FAMS @F1@\n"
                          "0 @I3@ INDI\n1 NAME Carl /Smith/\n1 FAMC @F1@\n2 PEDI birth\n"
                          "0 @F1@ FAM\n1 HUSB @I2@\n2 AGE 25y\n1 WIFE @I1@\n1 CHIL @I3@\n2 _FREL Natural\n"
                          "2 NOTE @N1@\n1 MARR\n2 DATE 1850\n2 PLAC Ely\n2 SOUR @S1@\n1 NOTE @N1@\n1 _STAT together\n"
                          "8 broken\n0 @S1@ SOUR\n1 TITL The Book of Ely\n0 @N1@ NOTE shared\n0 TRLR\n";

TEST(FurtherFactsOfFamilies, AreWhatTheFamilySaysOfItsPartners)
{
    const auto family = imported(smiths);
    EXPECT_THAT(factsOf(family, 0), ElementsAre("#Family with Bert Smith", "-Husband: Age=25y",
                                                "-Marriage=", "--Date=1850", "--Place=Ely", "--Source=The Book of Ely",
                                                "-Note=shared", "-_STAT=together", "-broken=", "-Note=of one's own"));
    EXPECT_THAT(factsOf(family, 1),
                ElementsAre("#Family with Anna Smith", "-Husband: Age=25y", "-Marriage=", "--Date=1850", "--Place=Ely",
                            "--Source=The Book of Ely", "-Note=shared", "-_STAT=together", "-broken="));
}

TEST(FurtherFactsOfFamilies, OfAChildAreHowItBelongsToItsParents)
{
    EXPECT_THAT(factsOf(imported(smiths), 2),
                ElementsAre("#Family of Bert Smith and Anna Smith", "-Relation to the father=Natural", "-Note=shared",
                            "-Relation to the parents=birth"));
}

TEST(FurtherFactsOfFamilies, HaveNoHeadingWhereThereIsNothingToTell)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 FAMS @F1@\n0 @I2@ INDI\n1 FAMC @F1@\n"
                                 "0 @F1@ FAM\n1 HUSB @I1@\n1 CHIL @I2@\n0 TRLR\n");
    EXPECT_THAT(factsOf(family, 0), IsEmpty());
    EXPECT_THAT(factsOf(family, 1), IsEmpty());
}

TEST(FurtherFactsOfFamilies, AreHeadedByWhoBelongsToThem)
{
    const auto heading = [](const QByteArray& members) {
        const auto facts = factsOf("1 NAME Anna\n", "0 @I2@ INDI\n1 NAME Bert\n0 @I3@ INDI\n1 NAME Carl\n"
                                                    "0 @I4@ INDI\n1 NAME Dora\n0 @I5@ INDI\n0 @F1@ FAM\n" +
                                                        members + "1 MARR Y\n");
        return facts.empty() ? std::string() : facts.front();
    };
    EXPECT_EQ(heading("1 HUSB @I2@\n1 WIFE @I1@\n"), "#Family with Bert");
    EXPECT_EQ(heading("1 WIFE @I1@\n"), "#Family without a partner");
    EXPECT_EQ(heading("1 HUSB\n1 WIFE @I1@\n"), "#Family without a partner");
    EXPECT_EQ(heading("1 HUSB @VOID@\n1 WIFE @I1@\n"), "#Family with an unknown partner");
    EXPECT_EQ(heading("1 HUSB @I9@\n1 WIFE @I1@\n"), "#Family with an unknown partner");
    EXPECT_EQ(heading("1 HUSB @I5@\n1 WIFE @I1@\n"), "#Family with a person without a name");
    EXPECT_EQ(heading("1 HUSB @I2@\n1 WIFE @I1@\n1 WIFE @I3@\n1 WIFE @I4@\n"), "#Family with Bert, Carl and Dora");
    EXPECT_EQ(heading("1 HUSB @I2@\n1 CHIL @I1@\n2 _FREL adopted\n"), "#Family of Bert");
    EXPECT_EQ(heading("1 CHIL @I1@\n2 _FREL adopted\n"), "#Family of unknown parents");
}

TEST(FurtherFactsOfFamilies, AreThoseOfParentsFirstAndInThePersonsOrder)
{
    const auto facts = factsOf("1 FAMS @F3@\n1 FAMS @F2@\n1 FAMC @F4@\n2 PEDI birth\n",
                               "0 @F1@ FAM\n1 WIFE @I1@\n1 MARR first\n0 @F2@ FAM\n1 WIFE @I1@\n1 MARR second\n"
                               "0 @F3@ FAM\n1 WIFE @I1@\n1 MARR third\n0 @F4@ FAM\n1 CHIL @I1@\n1 MARR none\n");
    EXPECT_THAT(facts, ElementsAre("#Family of unknown parents", "-Relation to the parents=birth",
                                   "#Family without a partner", "-Marriage=third", "#Family without a partner",
                                   "-Marriage=second", "#Family without a partner", "-Marriage=first"));
}

TEST(FurtherFactsOfFamilies, NameParentsBeyondTwo)
{
    const auto family = imported("0 HEAD\n0 @I1@ INDI\n1 NAME Anna\n1 FAMC @F1@\n1 FAMC @F2@\n2 PEDI adopted\n"
                                 "0 @I2@ INDI\n1 NAME Bert\n0 @I3@ INDI\n1 NAME Carla\n0 @I4@ INDI\n1 NAME Dora\n"
                                 "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n"
                                 "0 @F2@ FAM\n1 HUSB @I2@\n1 WIFE @I4@\n1 CHIL @I1@\n2 _MREL step\n0 TRLR\n");
    EXPECT_THAT(factsOf(family, 0), ElementsAre("#Family of Bert and Dora", "-Parent (not linked)=Dora",
                                                "-Relation to the mother=step", "-Relation to the parents=adopted"));
    EXPECT_THAT(factsOf(family, 3),
                ElementsAre("#Family with Bert", "-Child (not linked)=Anna", "--Relation to the mother=step"));
}

TEST(FurtherFactsOfFamilies, NameMembersWhoseLinkTheUserHasTaken)
{
    const auto family = imported(smiths);
    member(family, 0).removePartner(member(family, 1));
    member(family, 0).removeChild(member(family, 2));
    EXPECT_THAT(factsOf(family, 0), Contains("-Partner (not linked)=Bert Smith"));
    EXPECT_THAT(factsOf(family, 0), Contains("-Child (not linked)=Carl Smith"));
    EXPECT_THAT(factsOf(family, 0), Contains("--Place=Ely"));
    EXPECT_THAT(factsOf(family, 2), Contains("-Parent (not linked)=Anna Smith"));
    EXPECT_THAT(factsOf(family, 2), Not(Contains("-Parent (not linked)=Bert Smith")));
}

TEST(FurtherFactsOfFamilies, NameMembersWhoAreNotInTheFile)
{
    EXPECT_THAT(factsOf("", "0 @F1@ FAM\n1 HUSB @I9@\n1 WIFE @I1@\n1 CHIL @VOID@\n2 _NAME Tim\n1 CHIL Tom\n"),
                ElementsAre("#Family with an unknown partner", "-Husband=@I9@", "-Child=not in the file", "--_NAME=Tim",
                            "-Child=Tom"));
}

TEST(FurtherFactsOfFamilies, AreNoneOfLinesThatNameNobody)
{
    EXPECT_THAT(factsOf("", "0 @F1@ FAM\n1 HUSB\n1 WIFE @I1@\n1 CHIL\n"), IsEmpty());
    EXPECT_THAT(factsOf("", "0 @F1@ FAM\n1 HUSB\n2 AGE 25y\n1 WIFE\n1 CHIL @I1@\n"),
                ElementsAre("#Family of unknown parents", "-Husband: Age=25y"));
}

TEST(FurtherFactsOfFamilies, ThatDoNotNameThePersonAreTheClaimOfThatAlone)
{
    EXPECT_THAT(factsOf("1 FAMC @F1@\n2 PEDI adopted\n1 ADOP Y\n2 FAMC @F1@\n",
                        "0 @I2@ INDI\n1 NAME Bert\n0 @F1@ FAM\n1 HUSB @I2@\n1 MARR Y\n"),
                ElementsAre("Family as a child=Family of Bert", "-Relation to the parents=adopted", "Adoption=Y",
                            "-Family as a child=Family of Bert"));
}

} // namespace
} // namespace lineara
