// Records that pointers don't mean: an earlier one is called the same, or the name stands for nobody.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr const char* doubledHead = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n";

/// Two persons and two families of one name each, and a person of the name of another family.
const QByteArray doubled = QByteArray(doubledHead) +
                           "0 @I1@ INDI\n1 NAME Ann\n1 FAMS @F1@\n"
                           "0 @I1@ INDI\n1 NAME Bea\n1 OCCU miller\n1 FAMS @F1@\n"
                           "0 @I2@ INDI\n1 NAME Carl\n1 FAMC @F1@\n1 FAMS @F1@\n1 ASSO @I1@\n2 RELA friend\n"
                           "0 @F1@ FAM\n1 WIFE @I1@\n1 CHIL @I2@\n1 MARR\n2 DATE 1900\n"
                           "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 MARR\n2 DATE 1920\n"
                           "0 @F2@ FAM\n1 HUSB @I1@\n"
                           "0 @F2@ INDI\n1 NAME Dan\n"
                           "0 @I3@ INDI\n1 NAME Eve\n1 FAMS @F1@\n0 TRLR\n";

class Doubled : public testing::Test
{
protected:
    ImportedFamily read = imported(doubled);
    Person& ann = member(read, 0);
    Person& bea = member(read, 1);
    Person& carl = member(read, 2);
    Person& dan = member(read, 3);
    Person& eve = member(read, 4);

    std::vector<std::string> changes()
    {
        const QByteArray text = exported(*read.context);
        EXPECT_EQ(familyText(*imported(text).context), familyText(*read.context));
        const QByteArray seven = exported(*read.context, GedcomFormat::Gedcom70);
        EXPECT_EQ(familyText(*imported(seven).context), familyText(*read.context));
        return difference(doubled, text);
    }
};

} // namespace

TEST_F(Doubled, BothAreReadAndGivenBackAndPointersMeanTheFirst)
{
    EXPECT_EQ(read.report.persons, 5u);
    EXPECT_EQ(read.report.families, 3u);
    EXPECT_EQ(names(ann.children()), "Carl");
    EXPECT_EQ(names(carl.partners()), "Eve");
    EXPECT_THAT(notesOf(read), HasSubstr("\"I1\" is defined by line 6 already"));
    EXPECT_THAT(notesOf(read), HasSubstr("\"F2\" is defined by line 29 already"));
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(Doubled, WhenTheFirstIsRemovedTheSecondDoesNotTakeItsPlace)
{
    read.context->remove(ann);
    EXPECT_THAT(changes(), UnorderedElementsAre("-0 @I1@ INDI", "-1 NAME Ann", "-1 FAMS @F1@", "-1 ASSO @I1@",
                                                "-2 RELA friend", "-1 WIFE @I1@", "-0 @F2@ FAM", "-1 HUSB @I1@"));
}

TEST_F(Doubled, AFamilyOfThatNameTakesNoClaimFromTheFirst)
{
    carl.removePartner(eve);
    const auto found = changes();
    EXPECT_THAT(found, testing::Not(testing::Contains("-1 FAMC @F1@")));
    EXPECT_THAT(found, testing::Not(testing::Contains("-1 FAMS @F1@")));
}

TEST_F(Doubled, WhoeverIsLinkedGetsANameOfHerOwn)
{
    bea.addPartner(dan);
    const std::string text = exported(*read.context).toStdString();
    EXPECT_THAT(text, HasSubstr("INDI\n1 NAME Bea"));
    EXPECT_THAT(text, testing::Not(HasSubstr("@I1@ INDI\n1 NAME Bea")));
    changes();
}

TEST_F(Doubled, InVersionSevenEachHasItsOwnName)
{
    const auto lines = linesOf(exported(*read.context, GedcomFormat::Gedcom70));
    std::set<std::string> seen;
    for (const std::string& line : lines) {
        const bool isNamed = line.starts_with("0 @");
        EXPECT_TRUE(!isNamed || seen.insert(line.substr(0, line.find("@ "))).second) << line;
    }
    EXPECT_EQ(seen.size(), 8u);
    EXPECT_THAT(lines, testing::Contains("0 @I1_2@ INDI"));
}

TEST(NobodysName, IsNoNameOfARecord)
{
    const QByteArray text = QByteArray(doubledHead) +
                            "0 @VOID@ INDI\n1 NAME Ann\n0 @void@ INDI\n1 NAME Bea\n1 ASSO @VOID@\n"
                            "0 @F1@ FAM\n1 HUSB @VOID@\n1 CHIL @void@\n0 TRLR\n";
    const auto read = imported(text);
    EXPECT_THAT(notesOf(read), HasSubstr("line 6: nothing can point at this record"));
    EXPECT_THAT(difference(text, exported(*read.context)), IsEmpty());
    const QByteArray seven = exported(*read.context, GedcomFormat::Gedcom70);
    EXPECT_THAT(seven.toStdString(), HasSubstr("0 @VOID_2@ INDI\n1 NAME Ann\n0 @VOID_3@ INDI\n1 NAME Bea\n"
                                               "1 ASSO @VOID@\n"));
    EXPECT_THAT(seven.toStdString(), HasSubstr("1 HUSB @VOID@\n1 CHIL @VOID_3@\n"));
    EXPECT_EQ(familyText(*imported(seven).context), familyText(*read.context));

    member(read, 0).addPartner(member(read, 1));
    for (const auto format : {GedcomFormat::Gedcom551, GedcomFormat::Gedcom70})
        EXPECT_EQ(familyText(*imported(exported(*read.context, format)).context), familyText(*read.context));
}

TEST(ForbiddenNames, AreChangedEverywhereTheyStand)
{
    const QByteArray text =
        QByteArray(doubledHead) +
        "0 @a b@ INDI\n1 NAME Ann\n1 FAMS @f.1@\n1 ASSO @\u00e9@\n1 NOTE @A_B@ @a b@\n2 CONT @a b@\n"
        "0 @A_B@ INDI\n1 NAME Bea\n1 FAMC @f.1@ \n0 @a.b@ INDI\n1 NAME Carl\n"
        "0 @\u00e9@ INDI\n1 NAME Dan\n0 @f.1@ FAM\n1 HUSB @a b@\n1 WIFE @a.b@\n1 CHIL @A_B@\n"
        "1 CHIL @\u00e9@\n1 SOUR @s@\n0 @s@ SOUR\n0 TRLR\n";
    const auto read = imported(text);
    const QByteArray seven = exported(*read.context, GedcomFormat::Gedcom70);
    EXPECT_EQ(familyText(*imported(seven).context), familyText(*read.context));
    EXPECT_EQ(exported(*imported(seven).context, GedcomFormat::Gedcom70), seven);
    const auto wrong = [](const std::string& line) {
        const bool isText = line.find("CONT") != std::string::npos || line.find("NOTE") != std::string::npos;
        const auto open = line.find('@');
        const auto close = line.find('@', open + 1);
        return !isText && open != std::string::npos &&
               line.substr(open + 1, close - open - 1).find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") !=
                   std::string::npos;
    };
    for (const std::string& line : linesOf(seven))
        EXPECT_FALSE(wrong(line)) << line;
}
