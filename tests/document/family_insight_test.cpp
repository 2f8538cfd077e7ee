// What a document tells about its family: relationships, relatives and checks.

#include "checks_panel.h"
#include "edited_document.h"
#include "person_chooser.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

namespace lineara {
namespace {

/// A couple (mother, father) with two children, the first of whom has a child; and somebody unlinked.
class Insight : public testing::Test
{
protected:
    Insight()
    {
        for (Person* const child : {&son, &daughter}) {
            edited.link(mother, *child, offspringLink);
            edited.link(father, *child, offspringLink);
        }
        edited.link(mother, father, partnerLink);
        edited.link(son, grandchild, offspringLink);
        edited.document->deselectAll();
        EditedDocument::deliver();
    }

    Person& named(const char16_t* name)
    {
        Person& person = edited.add();
        person.setName(QString::fromUtf16(name));
        return person;
    }

    QAction& command(int at) const { return *actions()[at]; }
    QList<QAction*> actions() const
    {
        QList<QAction*> commands = edited.document->window().familyMenu()->actions();
        commands.removeIf([](const QAction* action) { return action->isSeparator(); });
        return commands;
    }
    void trigger(int at)
    {
        EditedDocument::deliver();
        ASSERT_TRUE(command(at).isEnabled());
        command(at).trigger();
    }
    static constexpr int relationship = 0;
    static constexpr int ancestors = 1;
    static constexpr int descendants = 2;
    static constexpr int all = 3;
    static constexpr int checks = 4;

    template<class Widget>
    Widget& part(const char* name) const
    {
        return *edited.document->window().findChild<Widget*>(QLatin1String(name));
    }
    bool isStripShown() const { return !part<QWidget>("relationshipStrip").isHidden(); }
    QString sentence() const { return part<QLabel>("relationshipSentence").text(); }
    void compare(const Person& other) { Q_EMIT edited.canvas().comparisonRequested(other.recordId()); }

    std::vector<const Person*> highlighted() const
    {
        std::vector<const Person*> persons;
        for (const LeafView* const node : edited.canvas().personLayer().nodes()) {
            if (node->isHighlighted())
                persons.push_back(&node->person());
        }
        return persons;
    }

    /// What is shown follows the records a moment after they have changed.
    static void waitForUpdate() { QTest::qWait(450); }

    QAbstractItemModel& found() const { return *part<QTreeView>("checksList").model(); }

    EditedDocument edited;
    Person& mother = named(u"Mother");
    Person& father = named(u"Father");
    Person& son = named(u"Son");
    Person& daughter = named(u"Daughter");
    Person& grandchild = named(u"Grandchild");
    Person& stranger = named(u"Stranger");
};

TEST_F(Insight, CommandsWantAPersonWhoIsSelected)
{
    for (const int at : {relationship, ancestors, descendants, all})
        EXPECT_FALSE(command(at).isEnabled()) << at;
    EXPECT_TRUE(command(checks).isEnabled());
    edited.click(son);
    EditedDocument::deliver();
    for (const int at : {relationship, ancestors, descendants})
        EXPECT_TRUE(command(at).isEnabled()) << at;
    EXPECT_FALSE(command(all).isEnabled());
}

TEST_F(Insight, HighlightsAncestorsAndDescendantsWithThePerson)
{
    edited.click(son);
    trigger(ancestors);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &father, &son));
    trigger(descendants);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&son, &grandchild));
    EXPECT_FALSE(isStripShown());
    trigger(all);
    EXPECT_FALSE(edited.canvas().isHighlighting());
    EXPECT_FALSE(command(all).isEnabled());
}

TEST_F(Insight, ComparesTheSelectedPersonWithOneWhoIsClickedWithControl)
{
    edited.click(daughter);
    compare(grandchild);
    EXPECT_EQ(sentence(), u"Grandchild is <b>niece or nephew</b> of Daughter");
    EXPECT_TRUE(isStripShown());
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&daughter, &mother, &father, &son, &grandchild));
    compare(grandchild);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, ComparesNobodyWithThemselves)
{
    edited.click(daughter);
    compare(daughter);
    EXPECT_FALSE(isStripShown());
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
}

TEST_F(Insight, WithoutASelectionAClickWithControlSelects)
{
    compare(daughter);
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
    EXPECT_FALSE(isStripShown());
}

TEST_F(Insight, TheOtherPersonCanBePickedByKeyboard)
{
    edited.click(daughter);
    trigger(relationship);
    auto* const chooser = edited.document->window().findChild<QDialog*>(QStringLiteral("personChooser"));
    ASSERT_TRUE(chooser);
    chooser->findChild<QLineEdit*>()->setText(QStringLiteral("Father"));
    QTest::keyClick(chooser->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_EQ(sentence(), u"Father is <b>parent</b> of Daughter");
}

TEST_F(Insight, TheStripCanBeSwappedAndClosed)
{
    edited.click(daughter);
    compare(grandchild);
    QTest::mouseClick(&part<QToolButton>("relationshipSwap"), Qt::LeftButton);
    EXPECT_EQ(sentence(), u"Daughter is <b>aunt or uncle</b> of Grandchild");
    QTest::mouseClick(&part<QToolButton>("relationshipClose"), Qt::LeftButton);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, EscapeClosesTheStrip)
{
    edited.click(daughter);
    compare(grandchild);
    QTest::keyClick(&edited.canvas(), Qt::Key_Escape);
    EXPECT_FALSE(isStripShown());
    compare(grandchild);
    QTest::keyClick(&part<QToolButton>("relationshipSwap"), Qt::Key_Escape);
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
}

TEST_F(Insight, StrangersAreBroughtOutWithoutAPath)
{
    edited.click(daughter);
    compare(stranger);
    EXPECT_EQ(sentence(), u"Stranger and Daughter are not connected in this family");
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&daughter, &stranger));
}

TEST_F(Insight, FollowsLinksNamesAndUndo)
{
    edited.click(daughter);
    compare(stranger);
    edited.link(daughter, stranger, partnerLink);
    waitForUpdate();
    EXPECT_EQ(sentence(), u"Stranger is <b>partner</b> of Daughter");
    stranger.setName(QStringLiteral("Friend"));
    waitForUpdate();
    EXPECT_EQ(sentence(), u"Friend is <b>partner</b> of Daughter");
    edited.undo();
    waitForUpdate();
    EXPECT_TRUE(sentence().endsWith(QStringLiteral("are not connected in this family")));
}

TEST_F(Insight, WhoComesOrLeavesChangesWhoIsHighlighted)
{
    edited.click(mother);
    trigger(descendants);
    edited.link(daughter, stranger, offspringLink);
    waitForUpdate();
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &son, &daughter, &grandchild, &stranger));
    edited.click(stranger);
    edited.remove();
    waitForUpdate();
    EXPECT_THAT(highlighted(), testing::UnorderedElementsAre(&mother, &son, &daughter, &grandchild));
    edited.undo();
    waitForUpdate();
    EXPECT_EQ(highlighted().size(), 5U);
}

TEST_F(Insight, EndsWithThePersonItIsAbout)
{
    edited.click(stranger);
    compare(mother);
    edited.remove();
    waitForUpdate();
    EXPECT_FALSE(isStripShown());
    EXPECT_FALSE(edited.canvas().isHighlighting());
    EditedDocument::deliver();
    EXPECT_FALSE(command(all).isEnabled());
}

TEST_F(Insight, ChecksAreListedAndLeadToThePerson)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    daughter.setBirthYear(1905);
    EXPECT_TRUE(part<QWidget>("checksPanel").isHidden());
    trigger(checks);
    EXPECT_FALSE(part<QWidget>("checksPanel").isHidden());
    ASSERT_EQ(found().rowCount(), 2);
    EXPECT_EQ(found().index(0, 0).data().toString(), u"Son");
    EXPECT_EQ(found().index(0, 1).data().toString(), u"Born 1890, before the parent Mother (born 1900)");
    auto& list = part<QTreeView>("checksList");
    Q_EMIT list.clicked(found().index(1, 0));
    EXPECT_EQ(edited.document->selectionPerson(), &daughter);
    Q_EMIT list.activated(found().index(0, 1));
    EXPECT_EQ(edited.document->selectionPerson(), &son);
    trigger(checks);
    EXPECT_TRUE(part<QWidget>("checksPanel").isHidden());
}

TEST(InsightOfMany, ChecksTellAllThatIsFound)
{
    ObjectContext family;
    Pool& pool = family.insertPool();
    for (int number = 0; number < 500; ++number) {
        PersonValues values;
        values.name = QString::number(number);
        values.birthYear = 1900 + number;
        values.deathYear = 1800;
        pool.addPerson(family.insertPerson(values));
    }
    const EditedDocument edited(family);
    DocumentWindow& window = edited.document->window();
    EditedDocument::deliver();
    window.familyMenu()->actions().back()->trigger();
    const QAbstractItemModel& found = *window.findChild<QTreeView*>(QStringLiteral("checksList"))->model();
    ASSERT_EQ(found.rowCount(), 500);
    for (const int row : {0, 123, 499}) {
        EXPECT_EQ(found.index(row, 0).data().toString(), QString::number(row));
        EXPECT_EQ(found.index(row, 1).data().toString(),
                  QStringLiteral("Born %1, died 1800: born after the death").arg(1900 + row));
    }
}

TEST_F(Insight, ChecksFollowWhatIsMended)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    trigger(checks);
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"1 contradiction(s) among the dates");
    edited.journal().begin(QStringLiteral("Edit Birth"));
    mother.setBirthYear(1870);
    waitForUpdate();
    EXPECT_EQ(found().rowCount(), 0);
    EXPECT_TRUE(part<QTreeView>("checksList").isHidden());
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"No contradictions among the dates that are known.");
    edited.undo();
    waitForUpdate();
    EXPECT_EQ(found().rowCount(), 1);
}

TEST_F(Insight, APersonWhoHasGoneIsNoMatterToTheList)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    trigger(checks);
    edited.click(son);
    edited.remove();
    Q_EMIT part<QTreeView>("checksList").clicked(found().index(0, 0));
    EXPECT_EQ(edited.document->selectionPerson(), nullptr);
}

TEST_F(Insight, ClosingThePanelUnchecksTheCommand)
{
    edited.document->window().show();
    trigger(checks);
    EXPECT_TRUE(command(checks).isChecked());
    part<QWidget>("checksPanel").close();
    EditedDocument::deliver();
    EXPECT_FALSE(command(checks).isChecked());
}

} // namespace
} // namespace lineara
