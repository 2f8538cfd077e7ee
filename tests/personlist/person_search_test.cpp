// Searching the list.

#include "shown_list.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PersonSearch : public testing::Test
{
protected:
    ShownList shown;
    QAbstractItemModelTester tester{&shown.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    Person& anna = shown.add(QString::fromUtf8("Anna Müller"), 3);
    Person& bob = shown.add(QStringLiteral("Bob Miller"), 2);
    Person& carl = shown.add(QString::fromUtf8("Çarl Straße"), 1);
    std::vector<RecordId> chosen;

    PersonSearch()
    {
        anna.setBirthYear(1901);
        bob.setDeathYear(1968);
        bob.setAdditional(QString::fromUtf8("Kept a shop\nin Lübeck"));
        shown.list->setPersonChosen([this](Person& person) { chosen.push_back(person.recordId()); });
    }

    /// Who is found, by the first letter.
    std::string found(const char* text)
    {
        shown.search().setText(QString::fromUtf8(text));
        std::string initials;
        for (const QString& name : shown.names())
            initials += name.first(1).toUtf8().toStdString();
        return initials;
    }
};

} // namespace

TEST_F(PersonSearch, FindsEveryWordInNameYearsOrNotes)
{
    EXPECT_EQ(found("mill"), "B");
    EXPECT_EQ(found("1901"), "A");
    EXPECT_EQ(found("1968 bob"), "B");
    EXPECT_EQ(found("1968 anna"), "");
    EXPECT_EQ(found("shop miller"), "B");
    EXPECT_EQ(found("b.1901"), "");
    EXPECT_EQ(found("   "), "ABÇ");
    EXPECT_EQ(found("miller1968"), "");
}

TEST_F(PersonSearch, AccentsAndCaseDoNotMatter)
{
    EXPECT_EQ(found("MULLER"), "A");
    EXPECT_EQ(found("müller"), "A");
    EXPECT_EQ(found("lubeck"), "B");
    EXPECT_EQ(found("STRASSE carl"), "Ç");
    EXPECT_EQ(found("Mu\u0308ller"), "A");
    EXPECT_EQ(folded(QString::fromUtf8("ŁÓDŹ Ærøskøbing İzmir")), QStringLiteral("lodz aeroskobing izmir"));
}

TEST_F(PersonSearch, SaysSoIfItFindsNobody)
{
    const auto says = [&] {
        return shown.list->view().findChild<QWidget*>(QStringLiteral("nobodyFound"))->isVisible();
    };
    EXPECT_FALSE(says());
    EXPECT_EQ(found("zz"), "");
    EXPECT_TRUE(says());
    EXPECT_EQ(found("bob"), "B");
    EXPECT_FALSE(says());
    found("zz");
    found("");
    EXPECT_FALSE(says());
}

TEST_F(PersonSearch, ChangesNeitherTheSelectionNorTheKeyboard)
{
    shown.select(anna);
    shown.announced.clear();
    shown.list->findPersons();
    QTest::keyClicks(&shown.search(), QStringLiteral("zz"));
    ShownList::deliver();
    EXPECT_THAT(shown.names(), IsEmpty());
    EXPECT_TRUE(shown.search().hasFocus());
    EXPECT_THAT(shown.announced, IsEmpty());
    EXPECT_EQ(shown.list->heightOfRow(0), 49);
    QTest::keyClick(&shown.search(), Qt::Key_Escape);
    ShownList::deliver();
    EXPECT_EQ(shown.selected(), anna.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(421, 49, 49));
    EXPECT_THAT(shown.announced, IsEmpty());
    EXPECT_TRUE(shown.search().hasFocus());
}

TEST_F(PersonSearch, AnOpenRowThatIsFoundStaysOpenWithItsEditor)
{
    shown.select(bob);
    const auto* const cell = shown.cell();
    EXPECT_EQ(found("bob"), "B");
    EXPECT_EQ(shown.cell(), cell);
    EXPECT_THAT(shown.heights(), ElementsAre(421));
    EXPECT_EQ(found(""), "ABÇ");
    EXPECT_EQ(shown.cell(), cell);
    EXPECT_THAT(shown.heights(), ElementsAre(49, 421, 49));
}

TEST_F(PersonSearch, SelectingWhomItHidesEndsIt)
{
    EXPECT_EQ(found("bob"), "B");
    shown.goBeside();
    shown.select(anna);
    EXPECT_EQ(shown.search().text(), QString());
    EXPECT_EQ(shown.selected(), anna.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(421, 49, 49));
}

TEST_F(PersonSearch, SelectingSomebodyTakesNothingFromWhoIsTypingIntoIt)
{
    shown.select(bob);
    shown.list->findPersons();
    EXPECT_FALSE(shown.list->isEditing());
    QTest::keyClicks(&shown.search(), QStringLiteral("mill"));
    EXPECT_TRUE(shown.list->isEditing());
    shown.select(anna);
    shown.list->editNameForPerson(anna);
    QTest::keyClicks(&shown.search(), QStringLiteral("er"));
    EXPECT_EQ(shown.search().text(), QStringLiteral("miller"));
    EXPECT_THAT(shown.names(), ElementsAre(*bob.name()));
    EXPECT_EQ(shown.selected(), std::nullopt);
    EXPECT_THAT(shown.heights(), ElementsAre(49));
    shown.search().clear();
    EXPECT_EQ(shown.selected(), anna.recordId());
    EXPECT_THAT(shown.heights(), ElementsAre(421, 49, 49));
}

TEST_F(PersonSearch, SelectingWhomItShowsLeavesIt)
{
    EXPECT_EQ(found("bob"), "B");
    shown.select(bob);
    EXPECT_EQ(shown.search().text(), QStringLiteral("bob"));
    EXPECT_EQ(shown.selected(), bob.recordId());
}

TEST_F(PersonSearch, AddingAPersonEndsIt)
{
    EXPECT_EQ(found("zzz"), "");
    Person& newcomer = shown.context.insertPerson();
    shown.list->addObject(newcomer);
    EXPECT_EQ(shown.search().text(), QString());
    EXPECT_EQ(shown.model().rowCount(), 4);
    shown.list->select(newcomer);
    shown.list->editNameForPerson(newcomer);
    EXPECT_TRUE(shown.line("name").hasFocus());
}

TEST_F(PersonSearch, ReturnGoesThroughEverybodyWhoWasFound)
{
    EXPECT_EQ(found("er"), "AB");
    shown.list->findPersons();
    for (int times = 0; times < 3; ++times)
        QTest::keyClick(&shown.search(), Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre(anna.recordId(), bob.recordId(), anna.recordId()));
    EXPECT_EQ(found("bob"), "B");
    QTest::keyClick(&shown.search(), Qt::Key_Return);
    EXPECT_EQ(chosen.back(), bob.recordId());
}

TEST_F(PersonSearch, ReturnChoosesNobodyWhereNobodyWasFound)
{
    EXPECT_EQ(found("zzz"), "");
    QTest::keyClick(&shown.search(), Qt::Key_Return);
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(PersonSearch, TheListIsWalkedFromTheSearchField)
{
    EXPECT_EQ(found("er"), "AB");
    shown.list->findPersons();
    QTest::keyClick(&shown.search(), Qt::Key_Down);
    ShownList::deliver();
    QTest::keyClick(&shown.search(), Qt::Key_Down);
    ShownList::deliver();
    EXPECT_EQ(shown.selected(), bob.recordId());
    EXPECT_TRUE(shown.search().hasFocus());
}

TEST_F(PersonSearch, RearrangingKeepsWhoIsFound)
{
    EXPECT_EQ(found("er"), "AB");
    bob.setGeneration(5);
    shown.list->rearrangeObjects();
    EXPECT_THAT(shown.names(), ElementsAre(*bob.name(), *anna.name()));
    EXPECT_EQ(found(""), "BAÇ");
}

TEST_F(PersonSearch, PersonsThatComeBackAreShownOnlyIfTheyAreFound)
{
    EXPECT_EQ(found("er"), "AB");
    shown.list->setObjects({&carl});
    EXPECT_THAT(shown.names(), IsEmpty());
    shown.list->setObjects({&carl, &anna, &bob});
    EXPECT_THAT(shown.names(), ElementsAre(*anna.name(), *bob.name()));
}

TEST_F(PersonSearch, UndoInTheEmptyFieldIsTheWindows)
{
    shown.list->findPersons();
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    asked.ignore();
    QApplication::sendEvent(&shown.search(), &asked);
    EXPECT_FALSE(asked.isAccepted());
}
