// Where windows of families lie on the screen.

#include "document_life.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

namespace lineara {

namespace {

const QString placeKey = QStringLiteral("documentWindow/geometry");

class WindowPlaces : public DocumentLife
{
protected:
    WindowPlaces() { QSettings().remove(placeKey); }
    ~WindowPlaces() override { QSettings().remove(placeKey); }

    /// What the window that was closed last has left.
    static void keep(const QRect& place)
    {
        QMainWindow left;
        left.setGeometry(place);
        QSettings().setValue(placeKey, left.saveGeometry());
    }
    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    void expectOnScreen(Document& document)
    {
        const QRect place = document.window().frameGeometry();
        EXPECT_TRUE(screen().contains(place))
            << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    }
};

} // namespace

TEST_F(WindowPlaces, ASecondWindowDoesNotHangOverTheEdgeWhereTheFirstLies)
{
    QRect corner(0, 0, 700, 500);
    corner.moveBottomRight(screen().bottomRight());
    keep(corner);
    open({family(QStringLiteral("one.lineara")), family(QStringLiteral("two.lineara"))});
    ASSERT_EQ(count(), 2);
    expectOnScreen(document(0));
    expectOnScreen(document(1));
    EXPECT_EQ(document(1).window().size(), QSize(700, 500));
}

TEST_F(WindowPlaces, AWindowTooSmallToHaveBeenLeftSoIsNotMadeLargerThanTheScreen)
{
    QRect corner(0, 0, 300, 200);
    corner.moveBottomRight(screen().bottomRight());
    keep(corner);
    open({family(QStringLiteral("one.lineara"))});
    ASSERT_EQ(count(), 1);
    expectOnScreen(document());
}

TEST_F(WindowPlaces, AWindowThatLiesOnTheScreenStaysWhereItWasLeft)
{
    const QRect place(300, 200, 700, 500);
    keep(place);
    open({family(QStringLiteral("one.lineara"))});
    ASSERT_EQ(count(), 1);
    EXPECT_EQ(document().window().geometry(), place);
}

} // namespace lineara
