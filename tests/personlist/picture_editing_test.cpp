// The picture of a person, in the rows and in the editor.

#include "shown_list.h"

#include <QFileDialog>
#include <QPushButton>
#include <QTemporaryDir>

using namespace lineara;

namespace {

class PictureEditing : public testing::Test
{
protected:
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"), 2);
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("picture.png"));

    PictureEditing()
    {
        QImage red(300, 200, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(file);
        shown.context.journal().clear();
        shown.select(a);
    }

    Journal& journal() { return shown.context.journal(); }
    QPushButton& button(const char* name) const { return *shown.cell()->findChild<QPushButton*>(QLatin1String(name)); }
    QFileDialog* dialog() const { return shown.list->view().findChild<QFileDialog*>(); }
    void waitForPicture()
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !button("picButton").icon().isNull(); }, 5000));
    }
};

} // namespace

TEST_F(PictureEditing, SetPicIsOfferedOnlyWithoutAnImage)
{
    EXPECT_EQ(button("picButton").text(), QStringLiteral("Set Pic"));
    EXPECT_FALSE(button("picRemoveButton").isEnabled());
    a.changePic(file);
    waitForPicture();
    EXPECT_EQ(button("picButton").text(), QString());
    EXPECT_TRUE(button("picRemoveButton").isEnabled());
    EXPECT_EQ(button("picButton").icon().pixmap(66).toImage().pixelColor(30, 30), QColor(Qt::red));
}

TEST_F(PictureEditing, SetPicIsOfferedUntilTheImageIsThere)
{
    a.changePic(file);
    EXPECT_TRUE(button("picButton").icon().isNull());
    EXPECT_EQ(button("picButton").text(), QStringLiteral("Set Pic"));
    EXPECT_EQ(button("picButton").accessibleName(), QStringLiteral("Set Pic"));
    waitForPicture();
    EXPECT_EQ(button("picButton").text(), QString());
    EXPECT_EQ(button("picButton").accessibleName(), QStringLiteral("Picture"));
}

TEST_F(PictureEditing, APictureIsChosenWithoutBlockingAndIsOneStep)
{
    button("picButton").click();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(journal().depth(), 0u);
    Q_EMIT dialog()->fileSelected(file);
    ASSERT_NE(a.pic(), nullptr);
    EXPECT_EQ(journal().undoName(), QStringLiteral("Set Picture"));
    journal().undo();
    EXPECT_EQ(a.pic(), nullptr);
    ShownList::deliver();
    EXPECT_EQ(button("picButton").text(), QStringLiteral("Set Pic"));
    EXPECT_EQ(journal().depth(), 0u);
    delete dialog();
}

TEST_F(PictureEditing, APictureForWhoIsGoneMeanwhileIsForgotten)
{
    button("picButton").click();
    shown.list->removeObject(a);
    shown.pool->removePerson(a);
    shown.context.remove(a);
    Q_EMIT dialog()->fileSelected(file);
    EXPECT_TRUE(shown.context.allPics().empty());
    delete dialog();
}

TEST_F(PictureEditing, RemovingThePictureIsOneStep)
{
    a.changePic(file);
    waitForPicture();
    journal().clear();
    button("picRemoveButton").click();
    EXPECT_EQ(a.pic(), nullptr);
    EXPECT_EQ(journal().undoName(), QStringLiteral("Remove Picture"));
    ShownList::deliver();
    EXPECT_EQ(button("picButton").text(), QStringLiteral("Set Pic"));
}

TEST_F(PictureEditing, TypingIsKeptBeforeThePictureChanges)
{
    shown.line("name").setFocus();
    QTest::keyClicks(&shown.line("name"), QStringLiteral("nna"));
    a.changePic(file);
    waitForPicture();
    button("picRemoveButton").click();
    EXPECT_NE(a.name(), QStringLiteral("a"));
    EXPECT_EQ(journal().undoName(), QStringLiteral("Remove Picture"));
}

TEST_F(PictureEditing, RowsShowTheThumbnailSoonAndNeverAnOldOne)
{
    Person& b = shown.add(QStringLiteral("b"), 1);
    b.changePic(file);
    const auto colour = [&] {
        const QRect row = shown.table().visualRect(shown.model().index(1, 0));
        return shown.table().viewport()->grab(row).toImage().pixelColor(26, 24);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return colour() == QColor(Qt::red); }, 5000));
    QImage blue(50, 50, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    blue.save(file);
    b.changePic(file);
    EXPECT_NE(colour(), QColor(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor([&] { return colour() == QColor(Qt::blue); }, 5000));
}

TEST_F(PictureEditing, ADamagedPictureIsNoImageButCanBeRemoved)
{
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("no picture");
    damaged.close();
    a.changePic(file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button("picButton").text() == QStringLiteral("Set Pic"); }, 5000));
    EXPECT_TRUE(button("picRemoveButton").isEnabled());
}
