// What the whole program does for its start window and its Help menu.

#include "opened_program.h"

#include "document/document_window.h"
#include "hand.h"
#include "recent_documents.h"
#include "recent_table.h"
#include "start_window.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

using namespace lineara;

namespace {

class AppDelegateTest : public testing::Test
{
protected:
    AppDelegateTest() { QSettings().clear(); }

    /// A family file that was opened or saved before.
    QString noted(const QString& name) const
    {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(QFile::copy(QStringLiteral(LINEARA_SAMPLES "/shakespeare.lineara"), path));
        RecentDocuments::note(path);
        return path;
    }
    static RecentTable& table(OpenedProgram& program) { return program.delegate().window().recentTable(); }
    static void doubleClick(const RecentTable& table, QPoint point)
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, point);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(AppDelegateTest, CountsHowOftenTheProgramWasUsed)
{
    for (int use = 1; use <= 3; ++use) {
        const OpenedProgram program;
        EXPECT_EQ(QSettings().value(QStringLiteral("uses")).toInt(), use);
    }
}

TEST_F(AppDelegateTest, ListsRecentFilesByNameTheLatestFirst)
{
    noted(QStringLiteral("a.lineara"));
    noted(QStringLiteral("b c.lineara"));
    OpenedProgram program;
    ASSERT_EQ(table(program).rowCount(), 2);
    EXPECT_EQ(program.delegate().numberOfRowsInTableView(table(program)), 2);
    EXPECT_EQ(program.delegate().tableViewObjectValueForTableColumn(0), QStringLiteral("b c.lineara"));
    EXPECT_EQ(program.delegate().tableViewObjectValueForTableColumn(1), QStringLiteral("a.lineara"));
}

TEST_F(AppDelegateTest, ReadsTheRecentFilesOnceInARun)
{
    noted(QStringLiteral("a.lineara"));
    {
        OpenedProgram program;
        noted(QStringLiteral("b.lineara"));
        EXPECT_EQ(program.delegate().numberOfRowsInTableView(table(program)), 1);
        EXPECT_FALSE(program.delegate().applicationShouldHandleReopen(false));
        EXPECT_EQ(table(program).rowCount(), 1);
    }
    OpenedProgram next;
    EXPECT_EQ(next.delegate().numberOfRowsInTableView(table(next)), 2);
}

TEST_F(AppDelegateTest, EveryCountOfTheRowsSetsTheDoubleClickActionAnew)
{
    OpenedProgram program;
    table(program).setDoubleAction({});
    program.delegate().numberOfRowsInTableView(table(program));
    EXPECT_TRUE(table(program).doubleAction());
}

TEST_F(AppDelegateTest, ADoubleClickOnARowOpensItsFileAndTheStartWindowGoes)
{
    noted(QStringLiteral("a.lineara"));
    noted(QStringLiteral("b.lineara"));
    OpenedProgram program;
    // Only a window that somebody works in makes room for the family.
    Hand::bringToFront(program.delegate().window());
    const QModelIndex second = table(program).model()->index(1, 0);
    doubleClick(table(program), table(program).visualRect(second).center());
    ASSERT_TRUE(waitUntil([&] { return program.familyWindow(); }));
    EXPECT_EQ(program.familyWindow()->windowFilePath(), folder.filePath(QStringLiteral("a.lineara")));
    EXPECT_TRUE(waitUntil([&] { return !program.delegate().window().isVisible(); }));
}

TEST_F(AppDelegateTest, ADoubleClickOutsideOfTheRowsOpensNothing)
{
    noted(QStringLiteral("a.lineara"));
    OpenedProgram program;
    doubleClick(table(program), table(program).viewport()->rect().bottomLeft() + QPoint(30, -5));
    EXPECT_EQ(table(program).clickedRow(), -1);
    QTest::qWait(50);
    EXPECT_FALSE(program.familyWindow());
    EXPECT_TRUE(program.delegate().window().isVisible());
}

TEST_F(AppDelegateTest, AFileTakenOutOfTheListIsForgottenButNotTouched)
{
    const QString path = noted(QStringLiteral("a.lineara"));
    noted(QStringLiteral("b.lineara"));
    {
        OpenedProgram program;
        table(program).setCurrentIndex(table(program).model()->index(1, 0));
        QTest::keyClick(&table(program), Qt::Key_Delete);
        EXPECT_EQ(table(program).rowCount(), 1);
        EXPECT_EQ(program.delegate().tableViewObjectValueForTableColumn(0), QStringLiteral("b.lineara"));
    }
    EXPECT_EQ(RecentDocuments::recentDocumentUrls().size(), 1);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(AppDelegateTest, BringsTheStartWindowBackWhereNoWindowIsVisible)
{
    OpenedProgram program;
    EXPECT_TRUE(program.delegate().applicationShouldHandleReopen(true));
    program.delegate().window().hide();
    EXPECT_FALSE(program.delegate().applicationShouldHandleReopen(false));
    EXPECT_TRUE(program.delegate().window().isVisible());
}

TEST_F(AppDelegateTest, HelpIsAPageThatIsThereAndMailsHaveTheCommandAsSubject)
{
    OpenedProgram program;
    QList<QUrl> opened;
    program.delegate().setOpenUrl([&](const QUrl& url) {
        opened.append(url);
        return true;
    });
    for (QAction* const action : program.delegate().window().helpMenu()->actions())
        if (!action->isSeparator() && !action->text().contains(QStringLiteral("About")))
            action->trigger();
    ASSERT_EQ(opened.size(), 3);
    EXPECT_TRUE(QFile::exists(opened[0].toLocalFile()));
    EXPECT_TRUE(opened[1].toEncoded().endsWith("?subject=Send%20Feedback")) << opened[1].toEncoded().constData();
    EXPECT_TRUE(opened[2].toEncoded().endsWith("?subject=Report%20a%20Problem")) << opened[2].toEncoded().constData();
}

TEST_F(AppDelegateTest, TellsWhenNobodyCanShowAPage)
{
    OpenedProgram program;
    program.delegate().setOpenUrl([](const QUrl&) { return false; });
    program.delegate().openHelp();
    ASSERT_TRUE(waitUntil([&] { return program.dialog(); }));
    EXPECT_TRUE(qobject_cast<QMessageBox*>(program.dialog())->text().contains(QStringLiteral("index.html")));
    program.dialog()->close();
}
