// Which row is selected, who announces it, and which announcements are dropped.

#include "shown_list.h"

#include <QAccessible>
#include <QScrollBar>

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class PersonSelection : public testing::Test
{
protected:
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"), 3);
    Person& b = shown.add(QStringLiteral("b"), 2);
    Person& c = shown.add(QStringLiteral("c"), 1);

    void press(Qt::Key key)
    {
        QTest::keyClick(&shown.table(), key);
        ShownList::deliver();
    }
    std::vector<std::optional<RecordId>> announced() { return std::exchange(shown.announced, {}); }
};

} // namespace

TEST_F(PersonSelection, APressAnnouncesThePersonAndTheAnswerOpensTheRow)
{
    shown.answers = false;
    shown.press(b);
    EXPECT_THAT(announced(), ElementsAre(b.recordId()));
    EXPECT_EQ(shown.selected(), b.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49, 49));
    shown.list->select(b);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 421, 49));
    EXPECT_EQ(shown.list->heightOfRow(1), 421);
    EXPECT_EQ(shown.list->heightOfRow(2), 49);
}

TEST_F(PersonSelection, AnnouncementsNameTheFamilyTheyComeFrom)
{
    ShownList other;
    Person& stranger = other.add(QStringLiteral("stranger"));
    shown.press(a);
    EXPECT_THAT(other.announced, IsEmpty());
    other.press(stranger);
    EXPECT_THAT(announced(), ElementsAre(a.recordId()));
}

TEST_F(PersonSelection, APressBelowAllRowsAnnouncesNobodyAndTheRowCloses)
{
    shown.press(b);
    announced();
    shown.pressEmptyArea();
    EXPECT_THAT(announced(), ElementsAre(std::nullopt));
    EXPECT_EQ(shown.selected(), std::nullopt);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49, 49));
}

TEST_F(PersonSelection, ASelectionMadeByTheDocumentComesBackOnce)
{
    shown.select(b);
    EXPECT_THAT(announced(), ElementsAre(b.recordId()));
    shown.select(b);
    EXPECT_THAT(announced(), IsEmpty());
}

TEST_F(PersonSelection, SelectingOpensOneRowAndClosesEveryOther)
{
    shown.select(a);
    shown.select(c);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49, 421));
    shown.list->deselectAll();
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49, 49));
    EXPECT_EQ(shown.cell(), nullptr);
}

TEST_F(PersonSelection, AnAnnouncementIsDroppedOnceAnotherRowIsSelected)
{
    shown.list->select(a);
    shown.list->select(b);
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(b.recordId()));
    EXPECT_EQ(shown.selected(), b.recordId());
}

TEST_F(PersonSelection, NobodyAndSomebodyDoNotChaseEachOther)
{
    shown.select(a);
    announced();
    shown.list->deselectAll();
    shown.list->select(b);
    shown.list->deselectAll();
    shown.list->select(c);
    for (int round = 0; round < 20; ++round)
        ShownList::deliver();
    EXPECT_LE(shown.announced.size(), 2u);
    EXPECT_EQ(shown.selected(), c.recordId());
}

TEST_F(PersonSelection, ALinkThatIsSelectedMeanwhileIsNotTakenBackByAnAnnouncement)
{
    auto& center = NotificationCenter::defaultCenter();
    center.enqueue(LinkSelectionNotification{
        shown.pool, LinkSelectionNotification::Link{a.recordId(), b.recordId(), QStringLiteral("partner")}});
    // The document answers a click that came before, and the link is selected before the echo arrives.
    shown.list->select(a);
    ShownList::deliver();
    EXPECT_THAT(announced(), IsEmpty());
    EXPECT_EQ(shown.selected(), a.recordId());
}

TEST_F(PersonSelection, AnOpenRowLeavesThoughTheSelectionHasGoneOn)
{
    shown.select(a);
    shown.answers = false;
    shown.press(b);
    ASSERT_EQ(shown.selected(), b.recordId());
    shown.list->setObjects({&b, &c});
    ShownList::deliver();
    shown.list->setObjects({&a, &b, &c});
    shown.select(a);
    ASSERT_TRUE(shown.cell());
    EXPECT_EQ(shown.line("name").text(), a.name());
}

TEST_F(PersonSelection, APressOnTheSelectedRowAnnouncesItAgain)
{
    shown.select(a);
    announced();
    QTest::mouseClick(shown.cell(), Qt::LeftButton, {}, QPoint(shown.cell()->width() - 2, 3));
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(a.recordId()));
    QTest::mouseClick(&shown.line("name"), Qt::LeftButton);
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(a.recordId()));
}

TEST_F(PersonSelection, RemovingTheSelectedRowSelectsAndAnnouncesNoNeighbour)
{
    shown.select(b);
    announced();
    shown.list->removeObject(b);
    ShownList::deliver();
    EXPECT_THAT(announced(), IsEmpty());
    EXPECT_EQ(shown.selected(), std::nullopt);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49));
}

TEST_F(PersonSelection, RemovingAnotherRowLeavesTheOpenOne)
{
    shown.select(b);
    announced();
    shown.list->removeObject(a);
    ShownList::deliver();
    EXPECT_THAT(announced(), IsEmpty());
    EXPECT_EQ(shown.selected(), b.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(421, 49));
}

TEST_F(PersonSelection, SelectingAgainLeavesTheEditorAsItIs)
{
    shown.select(a);
    shown.list->editNameForPerson(a);
    QTest::keyClicks(&shown.line("name"), QStringLiteral("Ann"));
    QTest::keyClick(&shown.line("name"), Qt::Key_Left);
    const auto* const cell = shown.cell();
    shown.select(a);
    EXPECT_EQ(shown.cell(), cell);
    EXPECT_TRUE(shown.line("name").hasFocus());
    EXPECT_EQ(shown.line("name").text(), QStringLiteral("Ann"));
    EXPECT_EQ(shown.line("name").cursorPosition(), 2);
    EXPECT_EQ(a.name(), QStringLiteral("a"));
}

TEST_F(PersonSelection, WhoIsNotInTheListLeavesItWithoutASelectedRow)
{
    Person& stranger = shown.context.insertPerson();
    shown.select(a);
    announced();
    shown.select(stranger);
    EXPECT_EQ(shown.selected(), std::nullopt);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 49, 49));
    EXPECT_THAT(announced(), IsEmpty());
}

TEST_F(PersonSelection, ANewcomerCanBeNamedAtOnce)
{
    Person& newcomer = shown.context.insertPerson();
    shown.list->addObject(newcomer);
    shown.list->select(newcomer);
    shown.list->editNameForPerson(newcomer);
    QTest::keyClicks(&shown.line("name"), QStringLiteral("Ann"));
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(newcomer.recordId()));
    EXPECT_TRUE(shown.line("name").hasFocus());
    EXPECT_EQ(shown.line("name").text(), QStringLiteral("Ann"));
    EXPECT_TRUE(shown.list->isEditing());
}

TEST_F(PersonSelection, ArrowKeysWalkAndAnnounce)
{
    shown.table().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_THAT(announced(), ElementsAre(a.recordId(), b.recordId()));
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_THAT(announced(), ElementsAre(a.recordId(), a.recordId()));
    press(Qt::Key_End);
    EXPECT_THAT(announced(), ElementsAre(c.recordId()));
    press(Qt::Key_Home);
    EXPECT_THAT(announced(), ElementsAre(a.recordId()));
    EXPECT_TRUE(shown.table().hasFocus());
}

TEST_F(PersonSelection, ReturnInTheListEditsTheName)
{
    shown.table().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(shown.line("name").hasFocus());
    EXPECT_EQ(shown.line("name").selectedText(), QStringLiteral("a"));
}

TEST_F(PersonSelection, ADoubleClickHitsTheSameRowTwice)
{
    shown.list->setReducedMotion(false);
    shown.press(a);
    announced();
    const QPoint place = shown.middleOf(c);
    QTest::mouseClick(shown.table().viewport(), Qt::LeftButton, {}, place);
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(c.recordId()));
    EXPECT_TRUE(shown.table().visualRect(shown.model().index(2, 0)).contains(place));
}

TEST_F(PersonSelection, AnAssistiveProgramCanSelectARow)
{
    auto* const table = QAccessible::queryAccessibleInterface(&shown.table());
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_TRUE(table->tableInterface()->selectRow(1));
    ShownList::deliver();
    EXPECT_THAT(announced(), ElementsAre(b.recordId()));
    EXPECT_EQ(shown.selected(), b.recordId());
}

TEST_F(PersonSelection, RowsAndFieldsHaveNamesAndRolesForAssistivePrograms)
{
    a.setBirthYear(1901);
    shown.select(b);
    auto* const table = QAccessible::queryAccessibleInterface(&shown.table());
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Persons"));
    EXPECT_EQ(table->role(), QAccessible::Table);
    auto* const row = table->tableInterface()->cellAt(0, 0);
    EXPECT_EQ(row->role(), QAccessible::Cell);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("a, b.1901"));
    EXPECT_TRUE(table->tableInterface()->cellAt(1, 0)->state().selected);
    QStringList names;
    for (QWidget* const field : shown.cell()->fields()) {
        const auto* const interface = QAccessible::queryAccessibleInterface(field);
        const bool isButton = interface->role() == QAccessible::Button;
        EXPECT_TRUE(isButton || interface->role() == QAccessible::EditableText);
        names << interface->text(QAccessible::Name);
    }
    EXPECT_EQ(names.join(QLatin1Char('|')),
              QStringLiteral("Name|Birth day|Birth month|Birth year|Birth calendar|Death day|Death month|Death year|"
                             "Death calendar|Notes|Set Pic|Remove Picture"));
}

TEST(PersonListLife, TheViewMayGoFirst)
{
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"));
    shown.list->setReducedMotion(false);
    shown.press(a);
    delete &shown.list->view();
    EXPECT_EQ(shown.list->personTableView(), nullptr);
    shown.list->select(a);
    shown.list->deselectAll();
    shown.list->rearrangeObjects();
    shown.list->removeObject(a);
    shown.list->commitEditing();
    shown.list->findPersons();
    EXPECT_FALSE(shown.list->isEditing());
    ShownList::deliver();
}

TEST(PersonListLife, AnnouncementsOfAListThatIsGoneAreNotDelivered)
{
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"));
    shown.list->select(a);
    shown.list.reset();
    ShownList::deliver();
    EXPECT_THAT(shown.announced, SizeIs(0));
}
