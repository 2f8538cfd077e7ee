#include "platform/log.h"

#include <gtest/gtest.h>

using namespace lineara;

TEST(Log, CaptureReceivesWholeLinesInOrder)
{
    const LogCapture capture;
    writeLog("one\ntwo\n");
    writeLog("three\n");
    EXPECT_EQ(capture.text(), "one\ntwo\nthree\n");
}

TEST(Log, ANewCaptureStartsEmpty)
{
    {
        const LogCapture capture;
        writeLog("old\n");
    }
    const LogCapture capture;
    EXPECT_EQ(capture.text(), "");
}
