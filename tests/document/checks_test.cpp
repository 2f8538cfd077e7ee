// What a document tells about its family: contradictions among the dates.

#include "checks_panel.h"
#include "told_family.h"

#include <QLabel>
#include <QTableView>
#include <QTest>

namespace lineara {
namespace {

/// Whether the checks that were asked for have been told, at last.
bool isChecked(const DocumentWindow& window)
{
    const auto* const summary = window.findChild<QLabel*>(QStringLiteral("checksSummary"));
    return QTest::qWaitFor([&] { return summary->text() != u"Looking for contradictions\u2026"; }, 60'000);
}

class Checks : public ToldFamily
{
protected:
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
};

TEST_F(Checks, ChecksAreListedAndLeadToThePerson)
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

TEST(ChecksOfMany, ChecksTellAllThatIsFound)
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
TEST(ChecksOfImported, CallsPersonsWhatTheFileSaysTheyAre)
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

TEST_F(Checks, ChecksFollowWhatIsMended)
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

TEST_F(Checks, NobodyWaitsForTheChecks)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    trigger(checks);
    EXPECT_FALSE(part<QWidget>("checksPanel").isHidden());
    EXPECT_EQ(part<QLabel>("checksSummary").text(), u"Looking for contradictions\u2026");
    EXPECT_EQ(found().rowCount(), 0);
    EXPECT_TRUE(isFound(1));
}

TEST_F(Checks, ChecksThatNobodyWantsAnyMoreAreGivenUp)
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

TEST_F(Checks, TheChosenFindingStaysChosenWhereverItComesToStand)
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

TEST_F(Checks, APersonWhoHasGoneIsNoMatterToTheList)
{
    mother.setBirthYear(1900);
    son.setBirthYear(1890);
    showChecks();
    edited.click(son);
    edited.remove();
    Q_EMIT part<QTableView>("checksList").clicked(found().index(0, 0));
    EXPECT_EQ(edited.document->selectionPerson(), nullptr);
}

TEST_F(Checks, ClosingThePanelUnchecksTheCommand)
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
