// How rows open and close, and what is scrolled meanwhile.

#include "shown_list.h"

#include <QElapsedTimer>
#include <QScrollBar>

#include <gmock/gmock.h>

using namespace lineara;

namespace {

class OpenRowTest : public testing::Test
{
protected:
    ShownList shown;
    std::vector<Person*> persons;

    OpenRowTest()
    {
        for (int number = 0; number < 60; ++number)
            persons.push_back(&shown.add(QString::number(number), 1));
        shown.list->setReducedMotion(false);
    }

    int height(int row) const { return shown.table().rowHeight(row); }
    int top(int row) const { return shown.table().topOf(row); }
    int visibleHeight() const { return shown.table().viewport()->height(); }
    int editors() const
    {
        return static_cast<int>(shown.table().findChildren<QWidget*>(QStringLiteral("personTableCellView")).size());
    }
    /// Waits until nothing moves any more, at most a few seconds.
    void waitForRest(int row, int restHeight) const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return height(row) == restHeight; }, 5000));
        QTest::qWait(60);
    }
    QRgb groundAt(int row) const
    {
        const QImage picture = shown.table().viewport()->grab().toImage();
        return picture.pixel(5, top(row) + 3);
    }
};

} // namespace

TEST_F(OpenRowTest, OpensAndClosesInOneMotionOfHalfASecond)
{
    shown.list->select(*persons[0]);
    waitForRest(0, 421);
    QElapsedTimer timer;
    timer.start();
    shown.list->select(*persons[2]);
    EXPECT_EQ(height(0), 421);
    EXPECT_EQ(height(2), 49);
    EXPECT_TRUE(QTest::qWaitFor([&] { return height(2) > 100 && height(2) < 400; }, 5000));
    EXPECT_NEAR(height(0) + height(2), 421 + 49, 2);
    waitForRest(2, 421);
    EXPECT_GE(timer.elapsed(), 500);
    EXPECT_EQ(height(0), 49);
    EXPECT_EQ(editors(), 1);
}

TEST_F(OpenRowTest, OnlyTheSelectedRowHasAnEditorAndOneMoreFadesAway)
{
    for (Person* const person : persons) {
        shown.list->select(*person);
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_LE(editors(), 2);
    }
    waitForRest(59, 421);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editors(), 1);
    for (int row = 0; row < 59; ++row)
        EXPECT_EQ(height(row), 49);
}

TEST_F(OpenRowTest, ARowThatOpensAgainWhileItClosesEndsOpen)
{
    shown.list->select(*persons[0]);
    waitForRest(0, 421);
    shown.list->select(*persons[1]);
    QTest::qWait(150);
    shown.list->select(*persons[0]);
    waitForRest(0, 421);
    waitForRest(1, 49);
    shown.list->editNameForPerson(*persons[0]);
    EXPECT_TRUE(shown.line("name").hasFocus());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editors(), 1);
}

TEST_F(OpenRowTest, ARowThatClosesHasNoPictureButtonsAndNothingInItMoves)
{
    shown.list->select(*persons[0]);
    waitForRest(0, 421);
    const QPointer<PersonTableCellView> closing = shown.cell();
    const auto part = [&](const char* name) { return closing->findChild<QWidget*>(QLatin1String(name)); };
    const QList<QRect> before{part("name")->geometry(), part("notesTextField")->geometry()};
    EXPECT_TRUE(part("picButton")->isVisible());
    EXPECT_TRUE(part("picRemoveButton")->isVisible());
    shown.list->select(*persons[1]);
    EXPECT_FALSE(part("picButton")->isVisible());
    EXPECT_FALSE(part("picRemoveButton")->isVisible());
    QTest::qWait(100);
    ASSERT_TRUE(closing);
    EXPECT_EQ(QList<QRect>({part("name")->geometry(), part("notesTextField")->geometry()}), before);
}

TEST_F(OpenRowTest, ClosesAtOnceWhenNobodyIsSelected)
{
    shown.list->select(*persons[0]);
    waitForRest(0, 421);
    shown.list->deselectAll();
    EXPECT_EQ(height(0), 49);
    EXPECT_EQ(groundAt(0), QColor::fromRgbF(0.95f, 0.95f, 0.95f).rgb());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editors(), 0);
}

TEST_F(OpenRowTest, NobodySelectedEndsAnyMotion)
{
    shown.list->select(*persons[0]);
    QTest::qWait(100);
    shown.list->select(*persons[1]);
    QTest::qWait(100);
    shown.list->deselectAll();
    for (int rounds = 0; rounds < 3; ++rounds) {
        EXPECT_EQ(height(0), 49);
        EXPECT_EQ(height(1), 49);
        QTest::qWait(50);
    }
}

TEST_F(OpenRowTest, ARowKeepsItsTopWhereItFits)
{
    shown.press(*persons[2]);
    const int before = top(2);
    waitForRest(2, 421);
    EXPECT_EQ(top(2), before);
}

TEST_F(OpenRowTest, TheLastVisibleRowEndsWhollyInView)
{
    const int last = shown.table().rowAt(visibleHeight() - 10);
    shown.press(*persons[static_cast<std::size_t>(last)]);
    waitForRest(last, 421);
    EXPECT_GE(top(last), 0);
    EXPECT_LE(top(last) + 421, visibleHeight());
}

TEST_F(OpenRowTest, ARowFarAwayIsBroughtIntoViewAtOnce)
{
    shown.list->select(*persons[55]);
    EXPECT_GE(top(55), 0);
    EXPECT_LT(top(55), visibleHeight());
    waitForRest(55, 421);
    EXPECT_LE(top(55) + 421, visibleHeight());
}

TEST_F(OpenRowTest, ARowThatIsPressedStaysUnderThePointerWhileTheOneAboveCloses)
{
    shown.list->select(*persons[20]);
    waitForRest(20, 421);
    auto* const scrollBar = shown.table().verticalScrollBar();
    scrollBar->setValue(scrollBar->value() + top(22) - 200);
    ASSERT_EQ(top(22), 200);
    shown.press(*persons[22]);
    for (int times = 0; times < 10; ++times) {
        QTest::qWait(40);
        EXPECT_EQ(top(22), 200);
    }
    waitForRest(22, 421);
    EXPECT_EQ(height(20), 49);
    EXPECT_EQ(top(22), 200);
}

TEST_F(OpenRowTest, WhoScrollsMeanwhileIsNotPulledBack)
{
    shown.list->select(*persons[40]);
    QTest::qWait(100);
    shown.table().verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    waitForRest(40, 421);
    EXPECT_EQ(shown.table().verticalScrollBar()->value(), 0);
}

TEST_F(OpenRowTest, RowsHaveTheirGroundInTheFirstPicture)
{
    shown.list->setReducedMotion(true);
    shown.select(*persons[0]);
    EXPECT_EQ(groundAt(0), QColor(Qt::white).rgb());
    EXPECT_EQ(groundAt(1), QColor::fromRgbF(0.95f, 0.95f, 0.95f).rgb());
    shown.table().verticalScrollBar()->setValue(shown.table().verticalScrollBar()->maximum());
    shown.table().viewport()->grab();
    shown.table().verticalScrollBar()->setValue(0);
    EXPECT_EQ(groundAt(0), QColor(Qt::white).rgb());
    EXPECT_TRUE(shown.cell()->isExpanded());
    EXPECT_EQ(top(1), 421);
}

TEST_F(OpenRowTest, WithReducedMotionEverythingIsDoneAtOnce)
{
    shown.list->setReducedMotion(true);
    shown.list->select(*persons[3]);
    EXPECT_EQ(height(3), 421);
    shown.list->select(*persons[4]);
    EXPECT_EQ(height(3), 49);
    EXPECT_EQ(height(4), 421);
    shown.list->deselectAll();
    EXPECT_EQ(height(4), 49);
}

TEST_F(OpenRowTest, TheOpenRowStandsStillWhileOthersComeAndGo)
{
    shown.list->setReducedMotion(true);
    shown.list->select(*persons[30]);
    const int before = top(30);
    shown.list->removeObject(*persons[2]);
    EXPECT_EQ(top(29), before);
    for (int number = 40; number < 60; ++number)
        persons[static_cast<std::size_t>(number)]->setGeneration(7);
    shown.list->rearrangeObjects();
    EXPECT_EQ(top(shown.rowOf(*persons[30])), before);
}

TEST_F(OpenRowTest, RemovingARowInTheMiddleOfItsMotionLeavesTheOthersRight)
{
    shown.list->select(*persons[0]);
    QTest::qWait(100);
    shown.list->select(*persons[1]);
    QTest::qWait(100);
    shown.list->removeObject(*persons[1]);
    shown.list->removeObject(*persons[0]);
    shown.list->select(*persons[2]);
    waitForRest(0, 421);
    EXPECT_EQ(height(1), 49);
    EXPECT_EQ(height(2), 49);
}
