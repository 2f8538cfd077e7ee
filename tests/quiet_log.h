#pragma once

#include "platform/log.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>

namespace lineara {

/// Keeps what the program logs during a test to itself, and tells it where the test fails: thousands of lines of tests
/// that pass would hide the few of the one that does not.
class QuietLog : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { log_.emplace(); }
    void OnTestEnd(const testing::TestInfo& test) override
    {
        if (test.result()->Failed())
            std::fputs(log_->text().c_str(), stderr);
        log_.reset();
    }

    std::optional<LogCapture> log_;
};

} // namespace lineara
