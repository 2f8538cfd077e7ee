// What a document tells about its family: relationships, relatives and checks.

#include "checks_panel.h"
#include "edited_document.h"
#include "person_chooser.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace lineara {
namespace {

/// Whether the checks that were asked for have been told, at last.
bool isChecked(const DocumentWindow& window)
{
    const auto* const summary = window.findChild<QLabel*>(QStringLiteral("checksSummary"));
    return QTest::qWaitFor([&] { return summary->text() != u"Looking for contradictions\u2026"; }, 60'000);
}

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

    QAbstractItemModel& found() const { return *part<QTableView>("checksList").model(); }
    void showChecks()
    {
        trigger(checks);
        ASSERT_TRUE(isChecked(edited.document->window()));
    }
    bool isFound(int count) const
    {
        return QTest::qWaitFor([&] { return found().rowCount() == count; }, 60'000);
    }

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

TEST_F(Insight, TellsInTheColoursOfTheTheme)
{
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    edited.click(mother);
    compare(grandchild);
    ASSERT_TRUE(isStripShown());
    QWidget& strip = part<QWidget>("relationshipStrip");
    const QColor ground = strip.grab().toImage().pixelColor(4, strip.height() / 2);
    EXPECT_EQ(ground, QApplication::palette().color(QPalette::Window));
    const QImage words = part<QLabel>("relationshipSentence").grab().toImage();
    int lightest = 0;
    for (int x = 0; x < words.width(); ++x) {
        for (int y = 0; y < words.height(); ++y)
            lightest = std::max(lightest, words.pixelColor(x, y).lightness());
    }
    EXPECT_GT(lightest, ground.lightness() + 120);
    QApplication::setPalette(QPalette());
}

// The window would be as wide as the word otherwise.
TEST_F(Insight, HasRoomForLongNames)
{
    const int width = edited.document->window().width();
    grandchild.setName(QString(5'000, u'W'));
    edited.click(daughter);
    compare(grandchild);
    EditedDocument::deliver();
    ASSERT_TRUE(isStripShown());
    EXPECT_EQ(edited.document->window().width(), width);
    EXPECT_LT(sentence().size(), 300);
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
    showChecks();
    EXPECT_FALSE(part<QWidget>("checksPanel").isHidden());
    ASSERT_EQ(found().rowCount(), 2);
    EXPECT_EQ(found().index(0, 0).data().toString(), u"Son");
    EXPECT_EQ(found().index(0, 1).data().toString(), u"Born 1890, before the parent Mother (born 1900)");
    auto& list = part<QTableView>("checksList");
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
    ASSERT_TRUE(isChecked(window));
    const QAbstractItemModel& found = *window.findChild<QTableView*>(QStringLiteral("checksList"))->model();
    ASSERT_EQ(found.rowCount(), 500);
    for (const int row : {0, 123, 499}) {
        EXPECT_EQ(found.index(row, 0).data().toString(), QString::number(row));
        EXPECT_EQ(found.index(row, 1).data().toString(),
                  QStringLiteral("Born %1, died 1800: born after the death").arg(1900 + row));
    }
}

/// A family of another program's file, which tells who is a man and who a woman.
TEST(InsightOfImported, CallsPersonsWhatTheFileSaysTheyAre)
{
    const TestFiles files;
    auto opened = Document::open(files.write(QStringLiteral("smith.ged"), "0 HEAD\n1 CHAR UTF-8\n"
                                                                          "0 @I1@ INDI\n1 NAME Anna\n1 SEX F\n"
                                                                          "1 BIRT\n2 DATE 1850\n"
                                                                          "1 DEAT\n2 DATE 3 MAR 1880\n"
                                                                          "0 @I2@ INDI\n1 NAME Bert\n"
                                                                          "1 BIRT\n2 DATE 20 JUL 1880\n"
                                                                          "0 @F1@ FAM\n1 WIFE @I1@\n1 CHIL @I2@\n"
                                                                          "0 TRLR\n"));
    ASSERT_TRUE(opened);
    const std::unique_ptr<Document> document = std::move(opened.value());
    document->window().show();
    ASSERT_TRUE(settle(*document));
    const auto& persons = document->pool().persons();
    document->selectPerson(*persons[1]);
    Q_EMIT document->treeView()->comparisonRequested(persons[0]->recordId());
    const auto* const sentence = document->window().findChild<QLabel*>(QStringLiteral("relationshipSentence"));
    EXPECT_EQ(sentence->text(), u"Anna is <b>mother</b> of Bert");
    document->window().familyMenu()->actions().back()->trigger();
    ASSERT_TRUE(isChecked(document->window()));
    const QAbstractItemModel& found = *document->window().findChild<QTableView*>(QStringLiteral("checksList"))->model();
    ASSERT_EQ(found.rowCount(), 1) << "of a father it would not be told so soon";
    EXPECT_TRUE(found.index(0, 1).data().toString().contains(QStringLiteral(", after the death of the mother Anna (")));
}

TEST_F(Insight, ChecksFollowWhatIsMended)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    showChecks();
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"1 contradiction(s) among the dates");
    edited.journal().begin(QStringLiteral("Edit Birth"));
    mother.setBirthYear(1870);
    EXPECT_TRUE(isFound(0));
    EXPECT_TRUE(part<QTableView>("checksList").isHidden());
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"No contradictions among the dates that are known.");
    edited.undo();
    EXPECT_TRUE(isFound(1));
}

TEST_F(Insight, NobodyWaitsForTheChecks)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    trigger(checks);
    EXPECT_FALSE(part<QWidget>("checksPanel").isHidden());
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"Looking for contradictions\u2026");
    EXPECT_EQ(found().rowCount(), 0);
    EXPECT_TRUE(isFound(1));
}

TEST_F(Insight, ChecksThatNobodyWantsAnyMoreAreGivenUp)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    trigger(checks);
    command(checks).trigger();
    EXPECT_TRUE(part<QWidget>("checksPanel").isHidden());
    QTest::qWait(100);
    EXPECT_EQ(found().rowCount(), 0);
}

TEST(ChecksPanelOfMany, PutsIntoWordsOnlyWhatIsSeen)
{
    ChecksPanel panel([](RecordId) {});
    int told = 0;
    panel.resize(800, 400);
    panel.tell({100'000,
                [&told](std::size_t at) {
                    ++told;
                    return CheckedPerson{{at}, QString::number(at), QStringLiteral("Born too late")};
                },
                [](std::size_t at) {
                    return CheckedMatter{{at}, kinship::Finding::TooOld, std::nullopt};
                }});
    panel.show();
    EditedDocument::deliver();
    auto& list = *panel.findChild<QTableView*>();
    EXPECT_EQ(list.model()->rowCount(), 100'000);
    list.scrollToBottom();
    panel.repaint();
    EXPECT_GT(told, 0);
    EXPECT_LT(told, 2'000);
    EXPECT_EQ(list.model()->index(99'999, 0).data().toString(), u"99999");
}

TEST_F(Insight, TheChosenFindingStaysChosenWhereverItComesToStand)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    daughter.setBirthYear(1891);
    grandchild.setBirthYear(1950);
    grandchild.setDeathYear(1940);
    showChecks();
    ASSERT_TRUE(isFound(3));
    auto& list = part<QTableView>("checksList");
    const auto chosen = [&list] {
        const QModelIndexList rows = list.selectionModel()->selectedRows();
        return rows.isEmpty() ? QString() : rows.front().data().toString();
    };
    list.selectRow(1);
    ASSERT_EQ(chosen(), u"Daughter");
    edited.click(son);
    edited.remove();
    edited.settle();
    ASSERT_TRUE(isFound(2));
    EXPECT_EQ(chosen(), u"Daughter");
    edited.click(daughter);
    edited.remove();
    edited.settle();
    ASSERT_TRUE(isFound(1));
    EXPECT_EQ(chosen(), QString());
    edited.undo();
    ASSERT_TRUE(isFound(2));
    EXPECT_EQ(chosen(), QString());
}

TEST_F(Insight, APersonWhoHasGoneIsNoMatterToTheList)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    showChecks();
    edited.click(son);
    edited.remove();
    Q_EMIT part<QTableView>("checksList").clicked(found().index(0, 0));
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
