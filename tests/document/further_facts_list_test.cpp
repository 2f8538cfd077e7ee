#include "further_facts_list.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace lineara {
namespace {

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

TEST(FurtherFactsList, ShowsValuesFromTheirFirstWordsToTheirLast)
{
    const QString value = QStringLiteral("\n\n\n\n\n\n\n words\n\n\n\n\n\n\n");
    FurtherFactsList list({{QStringLiteral("Note"), value, 0}});
    EXPECT_EQ(list.topLevelItem(0)->text(1), QStringLiteral("words"));
    EXPECT_EQ(list.topLevelItem(0)->toolTip(1), QStringLiteral("<p>words</p>"));
    EXPECT_EQ(list.currentText(), value);
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

std::vector<FurtherFact> factsOfFamilies()
{
    return {{QStringLiteral("Occupation"), QStringLiteral("Miller"), 0},
            {QStringLiteral("Family of Anna"), {}, 0, true},
            {QStringLiteral("File"), QStringLiteral("a.jpg"), 1},
            {QStringLiteral("Family with Bert"), {}, 0, true},
            {QStringLiteral("Fact"), QStringLiteral("first"), 1},
            {QStringLiteral("Fax"), QStringLiteral("second"), 2}};
}

TEST(FurtherFactsList, GoesToFactsWhoseBeginningIsTyped)
{
    FurtherFactsList list(factsOfFamilies());
    list.show();
    const auto after = [&list](const QString& letters) {
        QTest::keyClicks(&list, letters);
        return list.currentItem()->text(0).toStdString();
    };
    const int usual = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(60'000);
    EXPECT_EQ(after(QStringLiteral("f")), "File");
    EXPECT_EQ(after(QStringLiteral("f")), "Fact");
    EXPECT_EQ(after(QStringLiteral("f")), "Fax");
    EXPECT_EQ(after(QStringLiteral("f")), "File");
    QApplication::setKeyboardInputInterval(0);
    QTest::qSleep(5);
    EXPECT_EQ(after(QStringLiteral("o")), "Occupation");
    QTest::qSleep(5);
    EXPECT_EQ(after(QStringLiteral("x")), "Occupation");
    QApplication::setKeyboardInputInterval(usual);
}

// Where somebody clicked into a row says nothing about what they look for.
TEST(FurtherFactsList, GoesToLabelsAndValuesFromEitherColumn)
{
    FurtherFactsList list(factsOfFamilies());
    list.show();
    const int usual = QApplication::keyboardInputInterval();
    for (const int column : {0, 1}) {
        for (const auto& [letters, found] : {std::pair("fax", "Fax"), {"sec", "Fax"}, {"mil", "Occupation"}}) {
            list.setCurrentItem(list.topLevelItem(1)->child(0), column);
            QApplication::setKeyboardInputInterval(0);
            QTest::qSleep(5);
            list.keyboardSearch(QString::fromLatin1(letters).first(1));
            QApplication::setKeyboardInputInterval(60'000);
            QTest::keyClicks(&list, QString::fromLatin1(letters).sliced(1));
            EXPECT_EQ(list.currentItem()->text(0).toStdString(), found) << letters << " from column " << column;
        }
    }
    QApplication::setKeyboardInputInterval(usual);
}

TEST(FurtherFactsList, GoesToFactsOfWhichSeveralLettersAreTyped)
{
    FurtherFactsList list(factsOfFamilies());
    list.show();
    const int usual = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(60'000);
    QTest::keyClicks(&list, QStringLiteral("FA"));
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("Fact"));
    QTest::keyClicks(&list, QStringLiteral("x"));
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("Fax"));
    QTest::keyClicks(&list, QStringLiteral("y"));
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("Fax"));
    QApplication::setKeyboardInputInterval(usual);
}

/// Whether an item and all below it can be seen.
bool isUnfolded(const QTreeWidgetItem& item)
{
    bool isOpen = item.childCount() == 0 || item.isExpanded();
    for (int at = 0; at < item.childCount(); ++at)
        isOpen = isOpen && isUnfolded(*item.child(at));
    return isOpen;
}

// What is folded away with the current fact in it could not be opened by the keyboard.
TEST(FurtherFactsList, FoldsNothing)
{
    FurtherFactsList list(factsOfFamilies());
    list.resize(600, 300);
    list.show();
    const auto expectUnfolded = [&list](const char* after) {
        for (int at = 0; at < list.topLevelItemCount(); ++at)
            EXPECT_TRUE(isUnfolded(*list.topLevelItem(at))) << after;
        list.expandAll();
    };
    list.setCurrentItem(list.topLevelItem(2)->child(0));
    for (const Qt::Key key : {Qt::Key_Minus, Qt::Key_Plus, Qt::Key_Asterisk, Qt::Key_Left, Qt::Key_Right}) {
        QTest::keyClick(&list, key);
        expectUnfolded(QKeySequence(key).toString().toUtf8());
    }
    const QRect family = list.visualItemRect(list.topLevelItem(2));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, family.center());
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, family.center());
    expectUnfolded("a double click");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(list.indentation() / 2, family.center().y()));
    expectUnfolded("a click before the heading");
}

TEST(FurtherFactsList, ShowsFactsBeyondWhatTheyBelongTo)
{
    const FurtherFactsList list(factsOfFamilies());
    const auto left = [&list](const QTreeWidgetItem& item) { return list.visualItemRect(&item).left(); };
    const QTreeWidgetItem& family = *list.topLevelItem(2);
    EXPECT_EQ(left(*list.topLevelItem(0)), 0);
    EXPECT_GE(left(*family.child(0)), 15);
    EXPECT_GE(left(*family.child(0)->child(0)), left(*family.child(0)) + 15);
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

TEST(FurtherFactsList, ShowsTheBeginningOfLongWordsInHeadings)
{
    FurtherFactsList list({{QStringLiteral("Family of ") + QString(100, u'W'), {}, 0, true},
                           {QStringLiteral("Marriage"), QStringLiteral("Y"), 1}});
    list.resize(400, 300);
    list.show();
    const QRect row = list.visualItemRect(list.topLevelItem(0));
    const QRect rightHalf(row.center().x(), row.top(), row.width() / 2, row.height());
    const QImage picture = list.viewport()->grab(rightHalf).toImage();
    QImage empty = picture;
    empty.fill(picture.pixelColor(picture.width() - 1, 0));
    EXPECT_TRUE(picture != empty);
}

TEST(FurtherFactsList, KeepsHalfOfItsWidthForTheValues)
{
    FurtherFactsList list({{QString(100, u'x'), QStringLiteral("value"), 0}});
    list.resize(300, 300);
    list.show();
    EXPECT_LE(list.header()->sectionSize(0), list.viewport()->width() / 2);
    EXPECT_LE(list.header()->length(), list.viewport()->width());
}

TEST(FurtherFactsList, GivesLabelsTheirRoomBackWhenItGetsWiderAgain)
{
    FurtherFactsList list({{QString(30, u'x'), QStringLiteral("words"), 0}});
    list.resize(900, 200);
    list.show();
    const int fitting = list.header()->sectionSize(0);
    list.resize(200, 200);
    ASSERT_LT(list.header()->sectionSize(0), fitting);
    list.resize(900, 200);
    EXPECT_EQ(list.header()->sectionSize(0), fitting);
    list.header()->resizeSection(0, 2 * fitting); // as its user drags it
    list.resize(200, 200);
    list.resize(1'500, 200);
    EXPECT_EQ(list.header()->sectionSize(0), 2 * fitting);
}

TEST(FurtherFactsList, KeepsTheCurrentFactInSightWhenItGetsSmaller)
{
    FurtherFactsList list(std::vector<FurtherFact>(20, {QStringLiteral("Occupation"), QStringLiteral("Miller"), 0}));
    list.resize(600, 600);
    list.show();
    list.setCurrentItem(list.topLevelItem(15));
    list.resize(300, 150);
    QApplication::processEvents();
    const QRect row = list.visualItemRect(list.currentItem());
    EXPECT_GE(row.top(), 0);
    EXPECT_LE(row.bottom(), list.viewport()->height());
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
