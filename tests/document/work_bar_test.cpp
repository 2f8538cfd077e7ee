// Long work that its user looks at and may give up.

#include "document/document_window.h"
#include "work_bar.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace lineara {
namespace {

class WorkIsShown : public testing::Test
{
protected:
    WorkIsShown() { window.show(); }

    QWidget* shown() const { return window.findChild<QWidget*>(QStringLiteral("workBar")); }

    DocumentWindow window;
    WorkBar bar{window};
    WatchedWork work;
};

TEST_F(WorkIsShown, OnlyIfItTakesLongerThanAMoment)
{
    bar.begin(QStringLiteral("Counting"), work);
    QApplication::processEvents();
    EXPECT_EQ(shown(), nullptr);
    bar.end();
    QTest::qWait(400);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(WorkIsShown, WithHowMuchIsDone)
{
    bar.begin(QStringLiteral("Counting"), work);
    work.run({}, [](const Progress& progress) { progress.report(0.5); });
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown() != nullptr; }));
    const auto* const done = shown()->findChild<QProgressBar*>();
    EXPECT_EQ(done->value() * 2, done->maximum());
    EXPECT_EQ(done->accessibleName(), QStringLiteral("Counting"));
    bar.end();
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(WorkIsShown, AndGivenUpByAButton)
{
    bar.begin(QStringLiteral("Counting"), work);
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown() != nullptr; }));
    shown()->findChild<QPushButton*>(QStringLiteral("giveUpWork"))->click();
    bool goesOn = true;
    work.run({}, [&](const Progress& progress) { goesOn = progress.goesOn(0.5); });
    EXPECT_FALSE(goesOn);
}

TEST(WatchedWork, IsStoppedWhenItsDocumentCloses)
{
    std::stop_source closing;
    bool goesOn = true;
    WatchedWork().run(closing.get_token(), [&](const Progress& progress) {
        EXPECT_TRUE(progress.goesOn(0.1));
        closing.request_stop();
        goesOn = progress.goesOn(0.2);
    });
    EXPECT_FALSE(goesOn);
}

} // namespace
} // namespace lineara
