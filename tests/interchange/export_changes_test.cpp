// What was changed comes out changed, and nothing else.

#include "exported.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* head = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n";

/// Father and mother with two children, each with a line of its own that no family has a field for.
const QByteArray family = QByteArray(head) +
                          "0 @I1@ INDI\n1 NAME John /Oak/\n1 SEX M\n1 BIRT\n2 DATE ABT 12 MAR 1850\n2 PLAC Rome\n"
                          "1 FAMS @F1@\n"
                          "0 @I2@ INDI\n1 NAME Ada /Ash/\n2 GIVN Ada\n2 SURN Ash\n1 SEX F\n1 NOTE first\n2 SOUR book\n"
                          "1 NOTE @N1@\n1 FAMS @F1@\n"
                          "0 @I3@ INDI\n1 NAME Kid /Oak/ Jr\n1 DEAT\n2 DATE 1900\n1 FAMC @F1@\n2 PEDI birth\n"
                          "0 @I4@ INDI\n1 NAME Bea /Oak/\n1 OCCU miller\n1 FAMC @F1@\n1 ASSO @I3@\n2 RELA twin\n"
                          "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 CHIL @I3@\n2 _MREL natural\n1 CHIL @I4@\n1 MARR\n"
                          "2 DATE 1870\n0 @N1@ NOTE shared\n0 TRLR\n";

std::string joined(std::initializer_list<std::string> pieces)
{
    std::string whole;
    for (const std::string& piece : pieces)
        whole += piece;
    return whole;
}

class Changed : public testing::Test
{
protected:
    ImportedFamily read = imported(family);
    Person& john = member(read, 0);
    Person& ada = member(read, 1);
    Person& kid = member(read, 2);
    Person& bea = member(read, 3);

    std::vector<std::string> changes()
    {
        const QByteArray text = exported(*read.context);
        EXPECT_EQ(familyText(*imported(text).context), familyText(*read.context));
        EXPECT_EQ(exported(*read.context), text);
        return difference(family, text);
    }

    Person& add(const QString& name)
    {
        Person& person = read.context->insertPerson({.name = name});
        read.context->allPools().front()->addPerson(person);
        return person;
    }

    /// "@I105@" for a person that has got that name, "@F105@" for a family of it alone.
    static std::string pointer(char letter, const Person& person)
    {
        return joined({"@", std::string(1, letter), std::to_string(person.recordId().number), "@"});
    }
};

} // namespace

TEST_F(Changed, NothingIsNothing)
{
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(Changed, NameKeepsItsSurname)
{
    john.setName(QStringLiteral("Johnny Oak"));
    EXPECT_THAT(changes(), ElementsAre("-1 NAME John /Oak/", "+1 NAME Johnny /Oak/"));
}

TEST_F(Changed, SurnameStandsWhereTheFormerOneStood)
{
    kid.setName(QStringLiteral("Kid von Stein Jr"));
    EXPECT_THAT(changes(), ElementsAre("-1 NAME Kid /Oak/ Jr", "+1 NAME Kid /von Stein/ Jr"));
}

TEST_F(Changed, NameTakesAwayThePiecesThatContradictIt)
{
    ada.setName(QStringLiteral("Ada Oak"));
    EXPECT_THAT(changes(), ElementsAre("-1 NAME Ada /Ash/", "+1 NAME Ada /Oak/", "-2 SURN Ash"));
}

TEST_F(Changed, NameThatIsGone)
{
    bea.setName(std::nullopt);
    EXPECT_THAT(changes(), ElementsAre("-1 NAME Bea /Oak/"));
}

TEST_F(Changed, YearOfADateLeavesTheRestOfIt)
{
    john.setBirthYear(1851);
    EXPECT_THAT(changes(), ElementsAre("-2 DATE ABT 12 MAR 1850", "+2 DATE ABT 12 MAR 1851"));
}

TEST_F(Changed, DayAndMonthLikewise)
{
    john.setBirthDay(1);
    john.setBirthMonth(11);
    EXPECT_THAT(changes(), ElementsAre("-2 DATE ABT 12 MAR 1850", "+2 DATE ABT 1 NOV 1850"));
}

TEST_F(Changed, DateThatHasMoreThanBefore)
{
    kid.setDeathMonth(2);
    kid.setDeathDay(28);
    EXPECT_THAT(changes(), ElementsAre("-2 DATE 1900", "+2 DATE 28 FEB 1900"));
}

TEST_F(Changed, DateThatIsGoneLeavesThePlace)
{
    john.setBirthDay(std::nullopt);
    john.setBirthMonth(std::nullopt);
    john.setBirthYear(std::nullopt);
    EXPECT_THAT(changes(), ElementsAre("-2 DATE ABT 12 MAR 1850"));
}

TEST_F(Changed, DateThatIsGoneTakesAnEmptyEventWithIt)
{
    kid.setDeathYear(std::nullopt);
    EXPECT_THAT(changes(), ElementsAre("-1 DEAT", "-2 DATE 1900"));
}

TEST_F(Changed, DatesThatCame)
{
    ada.setBirthYear(-44);
    ada.setDeathYear(12);
    EXPECT_THAT(changes(), ElementsAre("+1 BIRT", "+2 DATE 44 B.C.", "+1 DEAT", "+2 DATE 12"));
}

TEST_F(Changed, NoteLeavesTheOthers)
{
    ada.setAdditional(QStringLiteral("first\nand more\n\nshared"));
    EXPECT_THAT(changes(), ElementsAre("+2 CONT and more"));
}

TEST_F(Changed, SharedNoteBecomesOnesOwn)
{
    ada.setAdditional(QStringLiteral("first\n\nnot shared"));
    EXPECT_THAT(changes(), ElementsAre("-1 NOTE @N1@", "+1 NOTE not shared"));
}

TEST_F(Changed, NotesThatCameAndWent)
{
    ada.setAdditional(std::nullopt);
    bea.setAdditional(QStringLiteral("me@home"));
    EXPECT_THAT(changes(), ElementsAre("-1 NOTE first", "-2 SOUR book", "-1 NOTE @N1@", "+1 NOTE me@@home"));
}

TEST_F(Changed, NoteAtTheEnd)
{
    ada.setAdditional(QStringLiteral("first\n\nshared\n\nthird"));
    EXPECT_THAT(changes(), ElementsAre("+1 NOTE third"));
}

TEST_F(Changed, RemovedChildTakesAlongWhatPointsAtIt)
{
    read.context->remove(kid);
    EXPECT_THAT(changes(),
                ElementsAre("-0 @I3@ INDI", "-1 NAME Kid /Oak/ Jr", "-1 DEAT", "-2 DATE 1900", "-1 FAMC @F1@",
                            "-2 PEDI birth", "-1 ASSO @I3@", "-2 RELA twin", "-1 CHIL @I3@", "-2 _MREL natural"));
}

TEST_F(Changed, RemovedFatherLeavesTheFamily)
{
    read.context->remove(john);
    EXPECT_THAT(changes(), ElementsAre("-0 @I1@ INDI", "-1 NAME John /Oak/", "-1 SEX M", "-1 BIRT",
                                       "-2 DATE ABT 12 MAR 1850", "-2 PLAC Rome", "-1 FAMS @F1@", "-1 HUSB @I1@"));
}

TEST_F(Changed, FamilyOfNobodyVanishes)
{
    for (Person* const person : {&john, &ada, &kid})
        read.context->remove(*person);
    read.context->remove(bea);
    const QByteArray text = exported(*read.context);
    EXPECT_FALSE(text.contains("FAM"));
    EXPECT_TRUE(text.contains("0 @N1@ NOTE shared"));
}

TEST_F(Changed, FamilyThatSaysNothingMoreVanishes)
{
    const QByteArray couple = QByteArray(head) + "0 @I1@ INDI\n1 FAMS @F1@\n0 @I2@ INDI\n1 FAMS @F1@\n"
                                                 "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n0 TRLR\n";
    const auto two = imported(couple);
    member(two, 0).removePartner(member(two, 1));
    EXPECT_THAT(difference(couple, exported(*two.context)),
                ElementsAre("-1 FAMS @F1@", "-1 FAMS @F1@", "-0 @F1@ FAM", "-1 HUSB @I1@", "-1 WIFE @I2@"));
}

TEST_F(Changed, UnlinkedChildLeavesTheFamily)
{
    john.removeChild(bea);
    ada.removeChild(bea);
    EXPECT_THAT(changes(), ElementsAre("-1 FAMC @F1@", "-1 CHIL @I4@"));
}

TEST_F(Changed, ChildOfOneParentOnlyGetsAFamilyOfThat)
{
    john.removeChild(bea);
    const std::string other = pointer('F', ada);
    EXPECT_THAT(changes(), ElementsAre(joined({"+1 FAMS ", other}), "-1 FAMC @F1@", joined({"+1 FAMC ", other}),
                                       "-1 CHIL @I4@", joined({"+0 ", other, " FAM"}), "+1 WIFE @I2@", "+1 CHIL @I4@"));
}

TEST_F(Changed, PartedParentsHaveAFamilyEach)
{
    john.removePartner(ada);
    const std::string other = pointer('F', ada);
    EXPECT_THAT(changes(), ElementsAre("-1 FAMS @F1@", joined({"+1 FAMS ", other}), joined({"+1 FAMC ", other}),
                                       joined({"+1 FAMC ", other}), "-1 WIFE @I2@", joined({"+0 ", other, " FAM"}),
                                       "+1 WIFE @I2@", "+1 CHIL @I3@", "+1 CHIL @I4@"));
}

TEST_F(Changed, NewChildJoinsTheFamilyOfItsParents)
{
    Person& child = add(QStringLiteral("Tom Oak"));
    john.addChild(child);
    ada.addChild(child);
    const std::string own = pointer('I', child);
    EXPECT_THAT(changes(), ElementsAre(joined({"+1 CHIL ", own}), joined({"+0 ", own, " INDI"}), "+1 NAME Tom /Oak/",
                                       "+1 FAMC @F1@"));
}

TEST_F(Changed, NewPartnerMakesAFamily)
{
    Person& partner = add(QStringLiteral("Tom"));
    bea.addPartner(partner);
    const std::string own = pointer('I', partner);
    const std::string couple =
        joined({"@F", std::to_string(bea.recordId().number), "_", std::to_string(partner.recordId().number), "@"});
    EXPECT_THAT(changes(), ElementsAre(joined({"+1 FAMS ", couple}), joined({"+0 ", own, " INDI"}), "+1 NAME Tom",
                                       joined({"+1 FAMS ", couple}), joined({"+0 ", couple, " FAM"}), "+1 HUSB @I4@",
                                       joined({"+1 WIFE ", own})));
}

TEST_F(Changed, NewParentsAndGrandparents)
{
    Person& father = add(QStringLiteral("Old Oak"));
    Person& mother = add(QStringLiteral("Old Ash"));
    father.addChild(john);
    mother.addChild(john);
    father.addPartner(mother);
    EXPECT_EQ(changes().size(), 11U);
}

/// Adopted by the one, the child of two others.
class Adopted : public testing::Test
{
protected:
    const QByteArray text = QByteArray(head) +
                            "0 @I1@ INDI\n1 NAME Carer\n1 FAMS @F1@\n0 @I2@ INDI\n1 NAME Father\n1 FAMS @F2@\n"
                            "0 @I3@ INDI\n1 NAME Mother\n1 FAMS @F2@\n0 @I4@ INDI\n1 NAME Kid\n1 FAMC @F2@\n"
                            "2 PEDI birth\n1 FAMC @F1@\n2 PEDI adopted\n0 @F1@ FAM\n1 HUSB @I1@\n1 CHIL @I4@\n"
                            "0 @F2@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I4@\n0 TRLR\n";
    ImportedFamily read = imported(text);

    std::vector<std::string> changes()
    {
        const QByteArray after = exported(*read.context);
        EXPECT_EQ(familyText(*imported(after).context), familyText(*read.context));
        return difference(text, after);
    }
};

TEST_F(Adopted, StaysWithTheOthersWhenTheCarerIsRemoved)
{
    read.context->remove(member(read, 0));
    EXPECT_THAT(changes(), ElementsAre("-0 @I1@ INDI", "-1 NAME Carer", "-1 FAMS @F1@", "-1 FAMC @F1@",
                                       "-2 PEDI adopted", "-0 @F1@ FAM", "-1 HUSB @I1@", "-1 CHIL @I4@"));
}

TEST_F(Adopted, StillSaysSoWhenAParentIsRemoved)
{
    read.context->remove(member(read, 1));
    EXPECT_THAT(changes(),
                ElementsAre("-0 @I2@ INDI", "-1 NAME Father", "-1 FAMS @F2@", "-1 CHIL @I4@", "-1 HUSB @I2@"));
}

TEST(ChangedHalfFamily, TakesUpTheOtherParent)
{
    const QByteArray text = QByteArray(head) + "0 @I1@ INDI\n1 SEX F\n1 FAMS @F1@\n0 @I2@ INDI\n1 FAMC @F1@\n"
                                               "0 @I3@ INDI\n0 @F1@ FAM\n1 WIFE @I1@\n1 CHIL @I2@\n0 TRLR\n";
    const auto read = imported(text);
    member(read, 2).addChild(member(read, 1));
    member(read, 2).addPartner(member(read, 0));
    EXPECT_THAT(difference(text, exported(*read.context)), ElementsAre("+1 FAMS @F1@", "+1 HUSB @I3@"));
}

TEST(ChangedRecord, WithoutACrossReferenceGetsOneWhereItIsNeeded)
{
    const QByteArray text = QByteArray(head) + "0 INDI\n1 NAME Ada\n0 @I1@ INDI\n1 NAME Ben\n0 @I1@ INDI\n1 NAME Cid\n"
                                               "0 TRLR\n";
    const auto read = imported(text);
    member(read, 0).addChild(member(read, 2));
    const QByteArray after = exported(*read.context);
    EXPECT_EQ(familyText(*imported(after).context), familyText(*read.context));
    EXPECT_TRUE(after.contains("0 @I1@ INDI\n1 NAME Ben\n"));
}

TEST(ChangedRecord, PointersThatNeverLedAnywhereStay)
{
    const QByteArray text = QByteArray(head) + "0 @I1@ INDI\n1 NAME Ada\n1 FAMS @F9@\n0 @F1@ FAM\n1 HUSB @I7@\n"
                                               "1 WIFE @I1@\n0 TRLR\n";
    const auto read = imported(text);
    EXPECT_THAT(difference(text, exported(*read.context)), IsEmpty());
    member(read, 0).setName(QStringLiteral("Eve"));
    EXPECT_THAT(difference(text, exported(*read.context)), ElementsAre("-1 NAME Ada", "+1 NAME Eve"));
}

/// A person is removed from a family with pointers that never led anywhere.
class RemovedFrom : public testing::Test
{
protected:
    static std::vector<std::string> changes(const QByteArray& text, std::size_t removed)
    {
        const auto read = imported(text);
        read.context->remove(member(read, removed));
        return difference(text, exported(*read.context));
    }
};

TEST_F(RemovedFrom, DanglingPointersStayAndOnlyThoseAtThePersonGo)
{
    const QByteArray text = QByteArray(head) +
                            "0 @I1@ INDI\n1 NAME Ada\n1 SOUR @S9@\n2 PAGE 12\n1 NOTE @N9@\n1 FAMS @F9@\n"
                            "1 ASSO @I9@\n2 RELA friend\n1 _GODP @I2@\n2 DATE 1900\n"
                            "0 @I2@ INDI\n1 NAME Ben\n1 FAMC @F1@\n"
                            "0 @F1@ FAM\n1 HUSB @I7@\n1 CHIL @I8@\n1 CHIL @I2@\n0 @F2@ FAM\n1 CHIL @I8@\n0 TRLR\n";
    EXPECT_THAT(changes(text, 1), ElementsAre("-1 _GODP @I2@", "-2 DATE 1900", "-0 @I2@ INDI", "-1 NAME Ben",
                                              "-1 FAMC @F1@", "-1 CHIL @I2@"));
}

TEST_F(RemovedFrom, ThePersonsRecordMayBeTheLastOne)
{
    const QByteArray text = QByteArray(head) + "0 @I1@ INDI\n1 NAME Ada\n1 ASSO @I2@\n2 RELA friend\n1 ASSO @I3@\n"
                                               "0 @I2@ INDI\n1 NAME Ben\n";
    EXPECT_THAT(changes(text, 1),
                ElementsAre("-1 ASSO @I2@", "-2 RELA friend", "-0 @I2@ INDI", "-1 NAME Ben", "+0 TRLR"));
}

TEST_F(RemovedFrom, ThePersonsRecordMayBeTheFirstOne)
{
    const QByteArray text = "0 @I1@ INDI\n1 NAME Ada\n0 @I2@ INDI\n1 NAME Ben\n1 ASSO @I1@\n1 ASSO @I3@\n0 TRLR\n";
    const auto read = imported(text);
    read.context->remove(member(read, 0));
    const QByteArray after = exported(*read.context);
    EXPECT_FALSE(after.contains("@I1@"));
    EXPECT_TRUE(after.contains("0 @I2@ INDI\n1 NAME Ben\n1 ASSO @I3@\n"));
}

TEST_F(RemovedFrom, ThePersonMayBeTheOnlyOneInAFileWithoutFrame)
{
    const QByteArray text = "0 @I1@ INDI\n1 NAME Ada\n0 @N1@ NOTE about her\n1 REFN @I1@\n1 REFN @I3@\n";
    const auto read = imported(text);
    read.context->remove(member(read, 0));
    const QByteArray after = exported(*read.context);
    EXPECT_FALSE(after.contains("@I1@"));
    EXPECT_TRUE(after.contains("0 @N1@ NOTE about her\n1 REFN @I3@\n"));
}
