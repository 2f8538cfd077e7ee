// What an imported file tells of a person beyond the person's own fields.

#include "document/document_window.h"
#include "edited_document.h"
#include "further_facts_dialog.h"
#include "further_facts_list.h"

#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <ctime>

namespace lineara {
namespace {

const char* const smith = "0 HEAD\n"
                          "1 CHAR UTF-8\n"
                          "0 @I1@ INDI\n"
                          "1 NAME Anna /Smith/\n"
                          "1 OCCU Miller\n"
                          "2 PLAC Ely\n"
                          "1 BIRT\n"
                          "2 DATE 1850\n"
                          "2 PLAC Norwich\n"
                          "0 @I2@ INDI\n"
                          "1 NAME Bert /Smith/\n"
                          "0 @F1@ FAM\n"
                          "1 WIFE @I1@\n"
                          "1 CHIL @I2@\n"
                          "1 MARR Y\n"
                          "2 SOUR @S1@\n"
                          "0 @S1@ SOUR\n"
                          "1 TITL The <b>Book</b> of Ely\n"
                          "0 TRLR\n";

class ImportedDocument : public testing::Test
{
protected:
    ImportedDocument()
    {
        const TestFiles files;
        auto opened = Document::open(files.write(QStringLiteral("smith.ged"), smith));
        document = std::move(opened.value());
        document->setReducedMotion(true);
        document->window().show();
        EXPECT_TRUE(settle(*document));
    }

    ~ImportedDocument() override
    {
        document.reset();
        QApplication::processEvents();
    }

    Person& person(std::size_t at) const { return *document->pool().persons()[at]; }
    QDialog* dialog() const { return document->window().findChild<QDialog*>(QStringLiteral("furtherFactsDialog")); }

    QPushButton& factsButton() const
    {
        return *document->window().findChild<QPushButton*>(QStringLiteral("factsButton"));
    }

    /// Opened by the button in the person's editor.
    FurtherFactsList& listOf(std::size_t at)
    {
        document->selectPerson(person(at));
        EXPECT_TRUE(settle(*document));
        factsButton().click();
        return *dynamic_cast<FurtherFactsList*>(dialog()->findChild<QTreeWidget*>());
    }

    std::unique_ptr<Document> document;
};

int countItems(const QTreeWidgetItem& item)
{
    int count = item.flags().testFlag(Qt::ItemIsSelectable) ? 1 : 0;
    for (int at = 0; at < item.childCount(); ++at)
        count += countItems(*item.child(at));
    return count;
}

TEST_F(ImportedDocument, CountsAsManyFactsAsItLists)
{
    FurtherFactsList& list = listOf(0);
    EXPECT_TRUE(factsButton().text().startsWith(QStringLiteral("5 "))) << factsButton().text().toStdString();
    int count = 0;
    for (int at = 0; at < list.topLevelItemCount(); ++at)
        count += countItems(*list.topLevelItem(at));
    EXPECT_EQ(count, 5);
}

TEST_F(ImportedDocument, CountsAnewWhenALinkGoes)
{
    document->selectPerson(person(0));
    EXPECT_TRUE(settle(*document));
    document->context().journal().begin(QStringLiteral("Remove Link"));
    person(0).removeChild(person(1));
    EXPECT_TRUE(settle(*document));
    QApplication::processEvents();
    EXPECT_TRUE(factsButton().text().startsWith(QStringLiteral("6 "))) << factsButton().text().toStdString();
}

TEST_F(ImportedDocument, ListsFactsWithWhereTheyComeFrom)
{
    const FurtherFactsList& list = listOf(0);
    const QString heading = dialog()->findChild<QLabel*>()->text();
    EXPECT_TRUE(heading.contains(QStringLiteral("smith.ged"))) << heading.toStdString();
    EXPECT_TRUE(heading.contains(QStringLiteral("line 3"))) << heading.toStdString();
    EXPECT_EQ(list.accessibleName(), QStringLiteral("Further Facts"));
    ASSERT_EQ(list.topLevelItemCount(), 3);
    const QTreeWidgetItem& occupation = *list.topLevelItem(0);
    EXPECT_EQ(occupation.text(1), QStringLiteral("Miller"));
    ASSERT_EQ(occupation.childCount(), 1);
    EXPECT_EQ(occupation.child(0)->text(1), QStringLiteral("Ely"));
    EXPECT_EQ(list.topLevelItem(1)->text(1), QStringLiteral("Norwich"));
    const QTreeWidgetItem& family = *list.topLevelItem(2);
    EXPECT_EQ(family.text(0), QStringLiteral("Family without a partner"));
    ASSERT_EQ(family.childCount(), 1);
    EXPECT_EQ(family.child(0)->text(0), QStringLiteral("Marriage"));
    EXPECT_EQ(family.child(0)->child(0)->text(1), QStringLiteral("The <b>Book</b> of Ely"));
}

TEST_F(ImportedDocument, CopiesWhatIsSelectedWithItsHeading)
{
    FurtherFactsList& list = listOf(0);
    dialog()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog()));
    list.selectAll();
    const QString facts = QStringLiteral("Occupation: Miller\n  Place: Ely\nBirth: Place: Norwich\n"
                                         "Family without a partner\n  Marriage: Y\n    Source: The <b>Book</b> of Ely");
    list.setFocus();
    QTest::keyClick(dialog()->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), facts.toStdString());
    list.clearSelection();
    list.topLevelItem(2)->child(0)->child(0)->setSelected(true);
    EXPECT_EQ(list.selectedText(), QStringLiteral("Family without a partner\n    Source: The <b>Book</b> of Ely"));
}

// Headings can't be selected, so a step onto one would show nothing and seem to be none.
TEST_F(ImportedDocument, IsReadByTheArrowKeysPastTheHeadings)
{
    FurtherFactsList& list = listOf(0);
    list.setFocus();
    ASSERT_NE(list.currentItem(), nullptr);
    EXPECT_EQ(list.currentItem()->text(1), QStringLiteral("Miller"));
    QStringList read;
    for (int key = 0; key < 4; ++key) {
        QTest::keyClick(&list, Qt::Key_Down);
        read << list.currentItem()->text(0);
    }
    EXPECT_EQ(read.join(u' '), QStringLiteral("Place Birth: Place Marriage Source"));
}

TEST_F(ImportedDocument, ShowsTheCurrentFactWhole)
{
    FurtherFactsList& list = listOf(0);
    const auto& pane = *dialog()->findChild<QPlainTextEdit*>(QStringLiteral("currentFact"));
    EXPECT_TRUE(pane.isReadOnly());
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("Miller"));
    list.setCurrentItem(list.topLevelItem(2)->child(0)->child(0));
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("The <b>Book</b> of Ely"));
}

/// How long the dialog takes to go from a fact of a word to one of that many letters.
double secondsOfShowing(Document& document, Person& person, int letters)
{
    showFurtherFacts(document.window(), person,
                     {{QStringLiteral("Occupation"), QStringLiteral("Miller"), 0},
                      {QStringLiteral("Note"), QString(letters, u'x'), 0}});
    QApplication::processEvents();
    auto& dialog = *document.window().findChild<QDialog*>(QStringLiteral("furtherFactsDialog"));
    const std::clock_t before = std::clock();
    QTest::keyClick(dialog.findChild<QTreeWidget*>(), Qt::Key_Down);
    QApplication::processEvents();
    const std::clock_t after = std::clock();
    delete &dialog;
    return static_cast<double>(after - before) / CLOCKS_PER_SEC;
}

TEST_F(ImportedDocument, ShowsALongWordInLinearTime)
{
    const double few = secondsOfShowing(*document, person(0), 25'000);
    // Eight times the letters; and a little that can't be measured.
    EXPECT_LT(secondsOfShowing(*document, person(0), 200'000), 16 * few + 0.05);
}

TEST_F(ImportedDocument, ShowsAsMuchOfTheCurrentFactAsCanBeRead)
{
    const QString trees = u'x' + QStringLiteral("\U0001F333").repeated(100'500);
    showFurtherFacts(document->window(), person(0), {{QStringLiteral("Note"), trees, 0}});
    const QString shown = dialog()->findChild<QPlainTextEdit*>(QStringLiteral("currentFact"))->toPlainText();
    EXPECT_TRUE(shown.startsWith(trees.first(199'999) + u'\n'));
    EXPECT_EQ(shown.mid(200'000).toStdString(),
              "… and 1,002 more characters. Copying the fact from the list takes them all.");
    auto& list = *dynamic_cast<FurtherFactsList*>(dialog()->findChild<QTreeWidget*>());
    EXPECT_TRUE(list.selectedText() == QStringLiteral("Note: ") + trees);
}

// The window would be as wide as the word otherwise.
TEST_F(ImportedDocument, HasRoomForLongNames)
{
    person(0).setName(QString(100'000, u'W'));
    showFurtherFacts(document->window(), person(0), {{QStringLiteral("Occupation"), QStringLiteral("Miller"), 0}});
    QApplication::processEvents();
    EXPECT_LE(dialog()->width(), 640);
    const auto& heading = *dialog()->findChild<QLabel*>();
    EXPECT_LT(heading.text().size(), 500);
    EXPECT_LE(heading.minimumSizeHint().width(), heading.width());
    EXPECT_LE(heading.heightForWidth(heading.width()), heading.height());
}

TEST_F(ImportedDocument, KeepsRoomForTheListHoweverSmall)
{
    std::vector<FurtherFact> facts(20, {QStringLiteral("Occupation"), QStringLiteral("Miller"), 0});
    facts.front().value = QStringLiteral("Miller\n").repeated(30);
    showFurtherFacts(document->window(), person(0), facts);
    dialog()->resize(1, 1);
    QApplication::processEvents();
    auto& list = *dialog()->findChild<QTreeWidget*>();
    const int row = list.visualItemRect(list.topLevelItem(1)).height();
    EXPECT_GE(list.viewport()->height(), 8 * row);
    EXPECT_LE(dialog()->height(), 450); // for the smallest of screens
}

TEST_F(ImportedDocument, HasNothingToShowOfSomebodyWhoWasMadeHere)
{
    showFurtherFacts(document->window(), document->context().insertPerson(), {});
    EXPECT_EQ(dialog(), nullptr);
}

} // namespace
} // namespace lineara
