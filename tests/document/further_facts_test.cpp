// What an imported file tells of a person beyond the person's own fields.

#include "document/document_window.h"
#include "edited_document.h"
#include "further_facts_dialog.h"
#include "further_facts_list.h"

#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
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

TEST_F(ImportedDocument, HasNothingToShowOfSomebodyWhoWasMadeHere)
{
    showFurtherFacts(document->window(), document->context().insertPerson(), {});
    EXPECT_EQ(dialog(), nullptr);
}

TEST(FurtherFactsList, ShortensLongValuesAndKeepsThemWhole)
{
    const QString words = QStringLiteral("word ").repeated(1'000);
    FurtherFactsList list({{QStringLiteral("Note"), words, 0}});
    const QTreeWidgetItem& note = *list.topLevelItem(0);
    EXPECT_LT(note.text(1).size(), 400);
    EXPECT_TRUE(note.text(1).endsWith(u'…'));
    EXPECT_GT(note.toolTip(1).size(), note.text(1).size());
    list.selectAll();
    EXPECT_EQ(list.selectedText(), QStringLiteral("Note: ") + words);
}

QString linesOf(int count)
{
    return QStringLiteral("line\n").repeated(count).chopped(1);
}

TEST(FurtherFactsList, ShortensValuesOfManyLines)
{
    const FurtherFactsList list({{QStringLiteral("Note"), linesOf(50), 0}, {QStringLiteral("Note"), linesOf(6), 0}});
    EXPECT_EQ(list.topLevelItem(0)->text(1), QString(linesOf(6) + u'…'));
    EXPECT_EQ(list.topLevelItem(0)->toolTip(1).count(QStringLiteral("<br>")), 29);
    EXPECT_EQ(list.topLevelItem(1)->text(1), linesOf(6));
    EXPECT_EQ(list.currentText(), linesOf(50));
}

TEST(FurtherFactsList, ShortensBetweenCharacters)
{
    const QString tree = QStringLiteral("\U0001F333");
    const FurtherFactsList list({{QStringLiteral("Note"), QString(u'x' + tree.repeated(1'000)), 0}});
    EXPECT_EQ(list.topLevelItem(0)->text(1), QString(u'x' + tree.repeated(149) + u'…'));
}

TEST(FurtherFactsList, ShortensLabelsAndHeadingsAndKeepsThemWhole)
{
    const QString name(100'000, u'x');
    FurtherFactsList list({{QStringLiteral("Family of ") + name, {}, 0, true}, {name, {}, 1}});
    const QTreeWidgetItem& family = *list.topLevelItem(0);
    for (const QTreeWidgetItem* const item : {&family, static_cast<const QTreeWidgetItem*>(family.child(0))}) {
        EXPECT_EQ(item->text(0).size(), 121);
        EXPECT_LT(item->toolTip(0).size(), 3'000);
    }
    EXPECT_TRUE(list.currentText() == name);
    list.selectAll();
    EXPECT_TRUE(list.selectedText() == QStringLiteral("Family of %1\n  %1").arg(name));
}

TEST(FurtherFactsList, TellsEveryKindOfLineInTooltips)
{
    const FurtherFactsList list({{QStringLiteral("Note"), QStringLiteral("a\r\nb\rc\u2028d"), 0}});
    EXPECT_EQ(list.topLevelItem(0)->toolTip(1), QStringLiteral("<p>a<br>b<br>c<br>d</p>"));
}

TEST(FurtherFactsList, CopiesAllLinesOfAValueBelowItsLabel)
{
    FurtherFactsList list({{QStringLiteral("Marriage"), QStringLiteral("Y"), 0},
                           {QStringLiteral("Note"), QStringLiteral("first\nsecond"), 1}});
    list.selectAll();
    EXPECT_EQ(list.selectedText(), QStringLiteral("Marriage: Y\n  Note: first\n    second"));
}

TEST(FurtherFactsList, GoesPastHeadingsByEveryKey)
{
    FurtherFactsList list({{QStringLiteral("Family of Anna"), {}, 0, true},
                           {QStringLiteral("first"), {}, 1},
                           {QStringLiteral("Family with Bert"), {}, 0, true},
                           {QStringLiteral("second"), {}, 1}});
    list.resize(400, 300);
    list.show();
    const auto after = [&list](Qt::Key key) {
        QTest::keyClick(&list, key);
        return list.currentText().toStdString();
    };
    EXPECT_EQ(after(Qt::Key_Up), "first");
    EXPECT_EQ(after(Qt::Key_Down), "second");
    EXPECT_EQ(after(Qt::Key_Left), "second");
    EXPECT_EQ(after(Qt::Key_Up), "first");
    EXPECT_EQ(after(Qt::Key_End), "second");
    EXPECT_EQ(after(Qt::Key_Home), "first");
    EXPECT_EQ(after(Qt::Key_PageDown), "second");
    EXPECT_EQ(after(Qt::Key_PageUp), "first");
}

TEST(FurtherFactsList, TellsWholeHeadingsInTooltips)
{
    const FurtherFactsList list({{QStringLiteral("Family of A & B"), {}, 0, true}, {QStringLiteral("first"), {}, 1}});
    EXPECT_EQ(list.topLevelItem(0)->toolTip(0), QStringLiteral("<p>Family of A &amp; B</p>"));
}

TEST(FurtherFactsList, ShowsTextsAsTheyStand)
{
    const FurtherFactsList list({{QStringLiteral("Note"), QStringLiteral("a <b>bold</b>\nword"), 0}});
    EXPECT_EQ(list.topLevelItem(0)->toolTip(1), QStringLiteral("<p>a &lt;b&gt;bold&lt;/b&gt;<br>word</p>"));
}

TEST(FurtherFactsList, GivesRoomToItsValuesWhateverItsHeadingsSay)
{
    FurtherFactsList list({{QStringLiteral("Family of ") + QString(200, u'x'), {}, 0, true},
                           {QStringLiteral("Marriage"), QStringLiteral("Y"), 1}});
    list.resize(600, 300);
    EXPECT_LT(list.header()->sectionSize(0), 200);
}

TEST(FurtherFactsList, FindsTheHeightOfRowsAnewWhenItsColumnsChange)
{
    FurtherFactsList list({{QStringLiteral("Note"), QStringLiteral("word ").repeated(50), 0}});
    list.resize(1'200, 300);
    list.show();
    QApplication::processEvents();
    const int low = list.visualItemRect(list.topLevelItem(0)).height();
    list.resize(300, 300);
    QTest::qWait(50);
    EXPECT_GT(list.visualItemRect(list.topLevelItem(0)).height(), 2 * low);
}

} // namespace
} // namespace lineara
