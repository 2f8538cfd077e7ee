// Who stands in the list, and in which order.

#include "shown_list.h"

#include "platform/log.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;

namespace {

class PersonRows : public testing::Test
{
protected:
    ShownList shown;
    QAbstractItemModelTester tester{&shown.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

QStringList list(std::initializer_list<const char*> names)
{
    QStringList all;
    for (const char* const name : names)
        all << QString::fromUtf8(name);
    return all;
}

} // namespace

TEST(PersonList, TellsTheLogThatItIsMade)
{
    ObjectContext context;
    const LogCapture log;
    const PersonTableViewController made(context.insertPool());
    EXPECT_EQ(log.text(), "Initializing Person List\n");
}

TEST_F(PersonRows, OldestGenerationStandsOnTopAndWhoHasNoneBelowAllNumbers)
{
    shown.add(QStringLiteral("free"));
    shown.add(QStringLiteral("child"), 1);
    shown.add(QStringLiteral("below"), -3);
    shown.add(QStringLiteral("elder"), 3);
    shown.add(QStringLiteral("zero"), 0);
    shown.list->rearrangeObjects();
    EXPECT_EQ(shown.names(), list({"elder", "child", "zero", "below", "free"}));
}

TEST_F(PersonRows, NewcomersStandAtTheEndUntilRowsAreRearranged)
{
    shown.add(QStringLiteral("a"), 1);
    shown.add(QStringLiteral("b"), 2);
    EXPECT_EQ(shown.names(), list({"a", "b"}));
    shown.list->rearrangeObjects();
    EXPECT_EQ(shown.names(), list({"b", "a"}));
}

TEST_F(PersonRows, AGenerationThatChangesMovesNobodyUntilAsked)
{
    Person& a = shown.add(QStringLiteral("a"), 2);
    shown.add(QStringLiteral("b"), 1);
    shown.list->rearrangeObjects();
    shown.select(a);
    a.setGeneration(0);
    ShownList::deliver();
    EXPECT_EQ(shown.names(), list({"a", "b"}));
    shown.list->rearrangeObjects();
    EXPECT_EQ(shown.names(), list({"b", "a"}));
    EXPECT_EQ(shown.selected(), a.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(49, 421));
    ASSERT_NE(shown.cell(), nullptr);
    EXPECT_EQ(shown.line("name").text(), QStringLiteral("a"));
}

TEST_F(PersonRows, WithinAGenerationTheOrderOfTheFamilyHoldsAndNotThatOfTheRowsBefore)
{
    Person& a = shown.add(QStringLiteral("a"), 2);
    Person& b = shown.add(QStringLiteral("b"), 1);
    shown.list->rearrangeObjects();
    b.setGeneration(3);
    shown.list->rearrangeObjects();
    ASSERT_EQ(shown.names(), list({"b", "a"}));
    a.setGeneration(3);
    shown.list->rearrangeObjects();
    EXPECT_EQ(shown.names(), list({"a", "b"}));
}

TEST_F(PersonRows, WhoIsNoMemberYetComesAfterTheMembersOfTheSameHeight)
{
    Person& joining = shown.context.insertPerson({.name = QStringLiteral("joining")});
    shown.list->addObject(joining);
    shown.add(QStringLiteral("member"));
    shown.list->rearrangeObjects();
    EXPECT_EQ(shown.names(), list({"member", "joining"}));
}

TEST_F(PersonRows, ObjectsThatAreSetComeAndGoAroundTheOpenRow)
{
    std::vector<Person*> persons;
    for (const char* const name : {"a", "b", "c", "d", "e"})
        persons.push_back(&shown.add(QString::fromLatin1(name), 1));
    shown.select(*persons[2]);
    PersonTableCellView* const cell = shown.cell();
    Person& newcomer = shown.context.insertPerson({.name = QStringLiteral("new")});
    shown.list->setObjects({persons[4], persons[2], persons[1], &newcomer});
    EXPECT_EQ(shown.names(), list({"b", "c", "e", "new"}));
    EXPECT_THAT(shown.heights(), ElementsAre(49, 421, 49, 49));
    EXPECT_EQ(shown.cell(), cell);
    EXPECT_EQ(shown.selected(), persons[2]->recordId());
}

TEST_F(PersonRows, SettingObjectsWithoutTheSelectedOneSelectsNoNeighbour)
{
    Person& a = shown.add(QStringLiteral("a"));
    Person& b = shown.add(QStringLiteral("b"));
    shown.select(b);
    shown.announced.clear();
    shown.list->setObjects({&a});
    ShownList::deliver();
    EXPECT_EQ(shown.selected(), std::nullopt);
    EXPECT_THAT(shown.heights(), ElementsAre(49));
    EXPECT_TRUE(shown.announced.empty());
}
