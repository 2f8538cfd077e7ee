// Birth and death as they are edited in the open row.

#include "list_colours.h"
#include "shown_list.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QToolButton>

#include <gmock/gmock.h>

using namespace lineara;

namespace {

class DateEditing : public testing::Test
{
protected:
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"), 2);
    Person& b = shown.add(QStringLiteral("b"), 1);

    DateEditing()
    {
        a.setBirthYear(1901);
        shown.context.journal().clear();
        shown.select(a);
    }

    Journal& journal() { return shown.context.journal(); }
    QWidget& date(const char* name) const { return *shown.cell()->findChild<QWidget*>(QLatin1String(name)); }
    QLineEdit& part(const char* name, int index) const { return *date(name).findChildren<QLineEdit*>()[index]; }
    QLineEdit& day() const { return part("birth", 0); }
    QLineEdit& month() const { return part("birth", 1); }
    QLineEdit& year() const { return part("birth", 2); }
    QString mistake() const { return date("birth").findChild<QLabel*>(QStringLiteral("mistake"))->text(); }
    QToolButton& opener() const { return *date("birth").findChild<QToolButton*>(); }
    /// The calendar that is open, or nullptr.
    QCalendarWidget* calendar() const
    {
        for (auto* const found : shown.cell()->findChildren<QCalendarWidget*>()) {
            if (found->isVisible())
                return found;
        }
        return nullptr;
    }

    static void type(QLineEdit& field, const char* text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }
};

} // namespace

TEST_F(DateEditing, AYearAloneIsKeptAsItIsTyped)
{
    type(year(), "987");
    QTest::keyClick(&year(), Qt::Key_Return);
    EXPECT_EQ(a.birthYear(), 987);
    EXPECT_EQ(journal().undoName(), QStringLiteral("Edit Birth"));
    type(year(), "12345");
    shown.goBeside();
    EXPECT_EQ(a.birthYear(), 12345);
}

TEST_F(DateEditing, WhatIsWrongIsWrittenInTheColourOfMistakes)
{
    type(month(), "13");
    QTest::keyClick(&month(), Qt::Key_Return);
    const auto* const label = date("birth").findChild<QLabel*>(QStringLiteral("mistake"));
    ASSERT_FALSE(label->text().isEmpty());
    EXPECT_EQ(label->palette().color(label->foregroundRole()), colours::mistake());
}

TEST_F(DateEditing, DeletingInTheCalendarIsNotAboutThePerson)
{
    opener().click();
    ASSERT_TRUE(calendar());
    ASSERT_TRUE(calendar()->isAncestorOf(QApplication::focusWidget()));
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    asked.ignore();
    QApplication::sendEvent(QApplication::focusWidget(), &asked);
    EXPECT_TRUE(asked.isAccepted());
}

TEST_F(DateEditing, AWholeDateIsOneStep)
{
    type(day(), "3");
    QTest::keyClick(&day(), Qt::Key_Tab);
    EXPECT_EQ(mistake(), QString());
    type(month(), "5");
    QTest::keyClick(&month(), Qt::Key_Tab);
    type(year(), "1902");
    QTest::keyClick(&year(), Qt::Key_Return);
    EXPECT_EQ(a.birthDay(), 3);
    EXPECT_EQ(a.birthMonth(), 5);
    EXPECT_EQ(a.birthYear(), 1902);
    EXPECT_EQ(journal().depth(), 1u);
    journal().undo();
    EXPECT_EQ(a.birthDay(), std::nullopt);
    EXPECT_EQ(a.birthYear(), 1901);
}

TEST_F(DateEditing, DeathIsAStepOfItsOwn)
{
    type(year(), "1902");
    type(part("death", 2), "1968");
    shown.goBeside();
    EXPECT_EQ(a.deathYear(), 1968);
    EXPECT_EQ(journal().depth(), 2u);
    EXPECT_EQ(journal().undoName(), QStringLiteral("Edit Death"));
}

TEST_F(DateEditing, AnEmptiedYearIsAbsent)
{
    year().setFocus();
    year().selectAll();
    QTest::keyClick(&year(), Qt::Key_Delete);
    QTest::keyClick(&year(), Qt::Key_Return);
    EXPECT_EQ(a.birthYear(), std::nullopt);
    EXPECT_EQ(a.era(), QString());
}

TEST_F(DateEditing, WhatIsNoYearShowsWhyAndKeepsTheOldOne)
{
    type(year(), "19x");
    QTest::keyClick(&year(), Qt::Key_Return);
    EXPECT_EQ(a.birthYear(), 1901);
    EXPECT_EQ(mistake(), QString::fromUtf8("“19x” is no year."));
    EXPECT_EQ(year().accessibleDescription(), mistake());
    EXPECT_TRUE(year().hasFocus());
    EXPECT_EQ(journal().depth(), 0u);
    type(year(), "1910");
    QTest::keyClick(&year(), Qt::Key_Return);
    EXPECT_EQ(mistake(), QString());
    EXPECT_EQ(a.birthYear(), 1910);
}

TEST_F(DateEditing, ADayThatItsMonthDoesNotHaveIsRefused)
{
    type(day(), "31");
    type(month(), "2");
    shown.goBeside();
    EXPECT_EQ(mistake(), QStringLiteral("February has no day 31."));
    EXPECT_EQ(a.birthDay(), std::nullopt);
    EXPECT_EQ(a.birthMonth(), std::nullopt);
    EXPECT_EQ(day().text(), QStringLiteral("31"));
}

TEST_F(DateEditing, ADayWithoutAMonthIsAskedForOnlyWhenTheDateIsLeft)
{
    type(day(), "3");
    month().setFocus();
    EXPECT_EQ(mistake(), QString());
    shown.goBeside();
    EXPECT_EQ(mistake(), QStringLiteral("The day needs its month."));
}

TEST_F(DateEditing, EscapeBringsBackTheDateAndTakesAwayTheMessage)
{
    type(day(), "31");
    type(month(), "2");
    QTest::keyClick(&month(), Qt::Key_Return);
    QTest::keyClick(&month(), Qt::Key_Escape);
    EXPECT_EQ(mistake(), QString());
    EXPECT_EQ(day().text(), QString());
    EXPECT_EQ(year().text(), QStringLiteral("1901"));
}

TEST_F(DateEditing, WhatWasRefusedIsStillThereWhenTheRowIsOpenedAgain)
{
    type(year(), "19x");
    shown.select(b);
    EXPECT_EQ(a.birthYear(), 1901);
    EXPECT_EQ(year().text(), QString());
    shown.select(a);
    EXPECT_EQ(year().text(), QStringLiteral("19x"));
    EXPECT_EQ(mistake(), QString::fromUtf8("“19x” is no year."));
    QTest::keyClick(&year(), Qt::Key_Escape);
    shown.select(b);
    shown.select(a);
    EXPECT_EQ(year().text(), QStringLiteral("1901"));
}

TEST_F(DateEditing, TheCalendarOpensOnDemandAtTheDate)
{
    EXPECT_EQ(calendar(), nullptr);
    QTest::mouseClick(&opener(), Qt::LeftButton);
    ASSERT_NE(calendar(), nullptr);
    EXPECT_EQ(calendar()->selectedDate(), QDate(1901, 1, 1));
    QTest::mouseClick(&opener(), Qt::LeftButton);
    EXPECT_EQ(calendar(), nullptr);
}

TEST_F(DateEditing, TheOpenerActsAtThePressAndStartsNoEditing)
{
    shown.goBeside();
    QTest::mousePress(&opener(), Qt::LeftButton);
    ASSERT_NE(calendar(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), calendar()->focusProxy() ? calendar()->focusProxy() : calendar());
    QTest::mouseRelease(&opener(), Qt::LeftButton);
    EXPECT_NE(calendar(), nullptr);
    QTest::mousePress(&opener(), Qt::RightButton);
    EXPECT_NE(calendar(), nullptr);
    QTest::mousePress(&opener(), Qt::LeftButton);
    EXPECT_EQ(calendar(), nullptr);
}

TEST_F(DateEditing, TheOpenerActsInAWindowThatIsNotActive)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    QTest::mousePress(shown.window.windowHandle(), Qt::LeftButton, {},
                      opener().mapTo(&shown.window, opener().rect().center()));
    EXPECT_NE(calendar(), nullptr);
}

TEST_F(DateEditing, ARowThatOpensHasNoCalendarOpen)
{
    for (const char* const name : {"birth", "death"})
        QTest::mouseClick(date(name).findChild<QToolButton*>(), Qt::LeftButton);
    QTest::keyClick(&opener(), Qt::Key_Space);
    EXPECT_TRUE(date("birthDatePicker").isVisible());
    EXPECT_TRUE(date("deathDatePicker").isVisible());
    shown.cell()->expand();
    EXPECT_FALSE(date("birthDatePicker").isVisible());
    EXPECT_FALSE(date("deathDatePicker").isVisible());
}

TEST_F(DateEditing, APressInTheCellClosesTheCalendar)
{
    QTest::mouseClick(&opener(), Qt::LeftButton);
    QTest::mouseClick(shown.cell(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(calendar(), nullptr);
    QTest::mouseClick(&opener(), Qt::LeftButton);
    QTest::mouseClick(&day(), Qt::LeftButton);
    EXPECT_EQ(calendar(), nullptr);
    QTest::mouseClick(&opener(), Qt::LeftButton);
    QTest::mouseClick(date("death").findChild<QToolButton*>(), Qt::LeftButton);
    ASSERT_NE(calendar(), nullptr);
    EXPECT_EQ(calendar()->accessibleName(), QStringLiteral("Death calendar"));
}

TEST_F(DateEditing, APressBetweenTheDaysIsTheCalendarsOwn)
{
    QTest::mouseClick(&opener(), Qt::LeftButton);
    QTest::mouseClick(calendar()->parentWidget(), Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_NE(calendar(), nullptr);
}

TEST_F(DateEditing, ADayThatIsChosenIsStoredAndClosesTheCalendar)
{
    QTest::mouseClick(&opener(), Qt::LeftButton);
    calendar()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(calendar(), nullptr);
    EXPECT_EQ(a.birthDay(), 2);
    EXPECT_EQ(a.birthMonth(), 1);
    EXPECT_EQ(a.birthYear(), 1901);
    EXPECT_EQ(journal().depth(), 1u);
}

TEST_F(DateEditing, EscapeClosesTheCalendar)
{
    QTest::mouseClick(&opener(), Qt::LeftButton);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(calendar(), nullptr);
    EXPECT_TRUE(day().hasFocus());
}

TEST_F(DateEditing, UndoInADateThatIsNotChangedIsTheWindows)
{
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    asked.ignore();
    QApplication::sendEvent(&year(), &asked);
    EXPECT_FALSE(asked.isAccepted());
}
