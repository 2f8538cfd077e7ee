// The start window with what it is fed: its rows, its offers, and what becomes of clicks, keys and dropped files.

#include "program_icon.h"
#include "recent_table.h"
#include "start_window.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

using namespace lineara;

namespace {

class StartWindowTest : public testing::Test
{
protected:
    StartWindowTest() : window(commands())
    {
        table().setDoubleAction([this] { log += QStringLiteral("row %1").arg(table().clickedRow()); });
        table().setForget([this](int row) {
            log += QStringLiteral("forget %1").arg(row);
            shown.removeAt(row);
            list(shown);
        });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    StartCommands commands()
    {
        StartCommands all;
        all.openNew = [this] { log += QStringLiteral("new"); };
        all.open = [this] { log += QStringLiteral("open"); };
        all.openSample = [this] { log += QStringLiteral("sample"); };
        all.openFiles = [this](const QStringList& paths) { log += paths; };
        all.recover = [this](const QString& id) { log += QStringLiteral("recover ") + id; };
        all.discard = [this](const QString& id) { log += QStringLiteral("discard ") + id; };
        return all;
    }

    RecentTable& table() const { return window.recentTable(); }
    void list(const QList<RecentFile>& files)
    {
        shown = files;
        table().setRows(files);
        window.showRecent();
        QApplication::processEvents();
    }
    /// Files that are there.
    QList<RecentFile> files(int count)
    {
        QList<RecentFile> made;
        for (int at = 0; at < count; ++at) {
            const QString name = QStringLiteral("%1.lineara").arg(at);
            QFile file(folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            made.append({name, file.fileName()});
        }
        return made;
    }
    QPoint inRow(int row) const { return table().visualRect(table().model()->index(row, 0)).center(); }
    void doubleClick(QPoint point) const
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, point);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }
    QPushButton* button(const char* name) const { return window.findChild<QPushButton*>(QString::fromLatin1(name)); }
    QMessageBox& question() const
    {
        auto* const found = window.findChild<QMessageBox*>();
        EXPECT_NE(found, nullptr);
        return *found;
    }

    QTemporaryDir folder;
    QStringList log;
    QList<RecentFile> shown;
    StartWindow window;
};

RecoveryOffer offer(const QString& id)
{
    return {QStringLiteral("Family ") + id, QStringLiteral("/home/ann"), QDateTime::currentDateTime(), id};
}

} // namespace

TEST_F(StartWindowTest, ADoubleClickOnARowCarriesOutTheActionForIt)
{
    list(files(3));
    doubleClick(inRow(1));
    EXPECT_EQ(log, QStringList{QStringLiteral("row 1")});
}

TEST_F(StartWindowTest, ADoubleClickOutsideOfTheRowsIsForNoRow)
{
    list(files(1));
    const QPoint below = table().viewport()->rect().bottomLeft() + QPoint(20, -5);
    ASSERT_GT(below.y(), inRow(0).y() * 2);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_EQ(log, QStringList{});
    doubleClick(inRow(0));
    doubleClick(below);
    EXPECT_EQ(log, (QStringList{QStringLiteral("row 0"), QStringLiteral("row -1")}));
}

TEST_F(StartWindowTest, NoActionIsCarriedOutWhileNoneIsSet)
{
    list(files(1));
    table().setDoubleAction({});
    doubleClick(inRow(0));
    EXPECT_EQ(table().clickedRow(), 0);
}

TEST_F(StartWindowTest, RowsAreReachedByTheKeyboardAlone)
{
    list(files(3));
    EXPECT_TRUE(table().hasFocus());
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(log, QStringList{QStringLiteral("row 1")});
    QTest::keyClick(&table(), Qt::Key_Delete);
    EXPECT_EQ(log.back(), QStringLiteral("forget 1"));
    EXPECT_EQ(table().rowCount(), 2);
}

TEST_F(StartWindowTest, TabLeavesTheTableForTheButtons)
{
    list(files(1));
    QTest::keyClick(&table(), Qt::Key_Tab);
    EXPECT_FALSE(table().hasFocus());
}

TEST_F(StartWindowTest, AMissingFileIsMarkedAndItsCrossTakesItOut)
{
    QList<RecentFile> both = files(1);
    both.append({QStringLiteral("gone.lineara"), folder.filePath(QStringLiteral("gone.lineara"))});
    list(both);
    EXPECT_FALSE(table().isMissing(0));
    EXPECT_TRUE(table().isMissing(1));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, table().crossRect(1).center());
    EXPECT_EQ(log, QStringList{QStringLiteral("forget 1")});
    EXPECT_EQ(table().rowCount(), 1);
}

TEST_F(StartWindowTest, ADoubleClickOnACrossTakesOutOneFileOnly)
{
    list(files(3));
    const QPoint cross = table().crossRect(0).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cross);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cross);
    EXPECT_EQ(log, QStringList{QStringLiteral("forget 0")});
}

TEST_F(StartWindowTest, AFileThatComesBackIsNoLongerMissing)
{
    const QString path = folder.filePath(QStringLiteral("away.lineara"));
    list({{QStringLiteral("away.lineara"), path}});
    ASSERT_TRUE(table().isMissing(0));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    table().refresh();
    EXPECT_FALSE(table().isMissing(0));
}

TEST_F(StartWindowTest, WithoutRowsItSaysWhatWillBeThere)
{
    list({});
    EXPECT_FALSE(table().isVisible());
    EXPECT_TRUE(window.findChild<QLabel*>(QStringLiteral("noneYet"))->isVisible());
    EXPECT_TRUE(button("newButton")->hasFocus());
    list(files(12));
    EXPECT_TRUE(table().isVisible());
    EXPECT_FALSE(window.findChild<QLabel*>(QStringLiteral("noneYet"))->isVisible());
}

TEST_F(StartWindowTest, ButtonsLeadWhereTheySayAndThoseThatLeadNowhereAreNotShown)
{
    for (const char* const name : {"newButton", "openButton", "sampleButton"})
        button(name)->click();
    EXPECT_EQ(log, (QStringList{QStringLiteral("new"), QStringLiteral("open"), QStringLiteral("sample")}));
    EXPECT_FALSE(button("importButton")->isVisible());
}

TEST_F(StartWindowTest, RecoveryIsOfferedAboveTheList)
{
    list(files(1));
    EXPECT_EQ(button("recoverButton"), nullptr);
    window.setRecoveryOffers({offer(QStringLiteral("a")), offer(QStringLiteral("b"))});
    QApplication::processEvents();
    ASSERT_TRUE(button("recoverButton")->isVisible());
    EXPECT_TRUE(button("recoverButton")->accessibleName().contains(QStringLiteral("Family a")));
    EXPECT_LT(button("recoverButton")->mapTo(&window, QPoint()).y(), table().mapTo(&window, QPoint()).y());
    button("recoverButton")->click();
    EXPECT_EQ(log, QStringList{QStringLiteral("recover a")});
    window.setRecoveryOffers({});
    EXPECT_FALSE(window.findChild<QWidget*>(QStringLiteral("recoveryPanel"))->isVisible());
}

TEST_F(StartWindowTest, DiscardingAsksOnceAndTheOfferGoes)
{
    window.setRecoveryOffers({offer(QStringLiteral("a"))});
    button("discardButton")->click();
    EXPECT_EQ(question().defaultButton(), question().button(QMessageBox::Cancel));
    question().button(QMessageBox::Cancel)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(log, QStringList{});

    button("discardButton")->click();
    for (QAbstractButton* const answer : question().buttons())
        if (question().buttonRole(answer) == QMessageBox::DestructiveRole)
            answer->click();
    EXPECT_EQ(log, QStringList{QStringLiteral("discard a")});
    EXPECT_FALSE(window.findChild<QWidget*>(QStringLiteral("recoveryPanel"))->isVisible());
}

TEST_F(StartWindowTest, FilesDroppedOntoItAreOpened)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/a b.lineara")), QUrl(QStringLiteral("https://example.org/c"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(log, QStringList{QStringLiteral("/a b.lineara")});
}

TEST_F(StartWindowTest, OfFilesDroppedOntoItThoseThatCanBeOpenedAre)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/anna.jpg"))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());

    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/anna.jpg")), QUrl::fromLocalFile(QStringLiteral("/A.LINEARA")),
                  QUrl::fromLocalFile(QStringLiteral("/b.Ged")), QUrl::fromLocalFile(QStringLiteral("/C.GDZ"))});
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(log.join(u' '), QStringLiteral("/A.LINEARA /b.Ged /C.GDZ"));
}

TEST_F(StartWindowTest, StaysWhiteInADarkTheme)
{
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    list(files(2));
    const QImage picture = window.centralWidget()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(picture.width() - 3, picture.height() - 3), QColor(Qt::white));
    const QPoint corner = table().viewport()->mapTo(window.centralWidget(), table().viewport()->rect().bottomRight());
    EXPECT_EQ(picture.pixelColor(corner - QPoint(3, 3)), QColor(Qt::white));
    QApplication::setPalette(QPalette());
}

TEST_F(StartWindowTest, ComesBackWhereItWas)
{
    window.move(140, 90);
    QApplication::processEvents();
    window.close();
    // Nobody but a window manager would move it meanwhile; this does the same.
    window.move(0, 0);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.pos(), QPoint(140, 90));
}

TEST_F(StartWindowTest, LongNamesAreNoReasonToGrow)
{
    list({{QStringLiteral("a"), QStringLiteral("/a")}});
    window.setRecoveryOffers({{QStringLiteral("a"), QStringLiteral("b"), QDateTime(), QStringLiteral("id")}});
    const int before = window.minimumSizeHint().width();
    const QString longest(3000, QLatin1Char('W'));
    list({{longest, QLatin1Char('/') + longest}});
    window.setRecoveryOffers({{longest, longest, QDateTime(), QStringLiteral("id")}});
    EXPECT_LE(window.minimumSizeHint().width(), before);
}

TEST(ProgramIcon, IsThereInEverySize)
{
    for (const QIcon& icon : {programIcon(), familyIcon()})
        for (const int size : {16, 24, 48, 256})
            EXPECT_EQ(icon.pixmap(QSize(size, size), 1.0).size(), QSize(size, size));
}
