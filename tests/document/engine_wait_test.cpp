#include "engine_wait.h"

#include "document/document_window.h"
#include "edited_document.h"

#include <QPushButton>
#include <QTest>

namespace lineara {

namespace {

using namespace std::chrono_literals;

class WaitingWindow : public testing::Test
{
protected:
    QWidget* bar() const { return window_.findChild<QWidget*>(QStringLiteral("notice")); }

    DocumentWindow window_;
    EngineWait wait_{window_};
};

} // namespace

TEST_F(WaitingWindow, TellsNothingOfAnEngineThatIsQuick)
{
    wait_.begin(1ms, [] {});
    wait_.end();
    QTest::qWait(20);
    EXPECT_EQ(bar(), nullptr);
    wait_.begin(1h, [] {});
    QTest::qWait(20);
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(WaitingWindow, LetsTheUserFinishAtOnce)
{
    bool isHurried = false;
    wait_.begin(1ms, [&] { isHurried = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar() != nullptr; }));
    EXPECT_FALSE(isHurried);
    QTest::mouseClick(bar()->findChild<QPushButton*>(QStringLiteral("noticeCommand")), Qt::LeftButton);
    EXPECT_TRUE(isHurried);
    wait_.end();
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(WaitingWindow, HurriesTheEngineWhereNobodyIsLeftToBeTold)
{
    bool isHurried = false;
    wait_.setHurried(true);
    wait_.begin(1ms, [&] { isHurried = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return isHurried; }));
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(WaitingWindow, HurriesTheEngineThatItHasToldOfOnceNobodyIsLeft)
{
    bool isHurried = false;
    wait_.begin(1ms, [&] { isHurried = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar() != nullptr; }));
    wait_.setHurried(true);
    EXPECT_TRUE(isHurried);
}

TEST_F(WaitingWindow, TellsNothingAnyMoreOnceTheEngineHasEnded)
{
    wait_.begin(1ms, [] {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar() != nullptr; }));
    wait_.end();
    EXPECT_EQ(bar(), nullptr);
}

} // namespace lineara
