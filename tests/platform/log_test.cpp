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

TEST(Log, TheCaptureThatWasMadeLastReceivesUntilItGoes)
{
    const LogCapture outer;
    {
        const LogCapture inner;
        writeLog("inner\n");
        EXPECT_EQ(inner.text(), "inner\n");
    }
    writeLog("outer\n");
    EXPECT_EQ(outer.text(), "outer\n");
}
