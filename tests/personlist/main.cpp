#include "quiet_log.h"
#include "quiet_platform.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    lineara::quietPlatform();
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new lineara::QuietLog);
    return RUN_ALL_TESTS();
}
