#pragma once

#include "platform/progress.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <stop_token>
#include <vector>

namespace lineara {

/// Writes down what long work tells of how far it is, and stops it after so many reports.
class HeardProgress
{
public:
    static constexpr std::size_t never = 0;

    explicit HeardProgress(std::size_t reportsUntilStop) : reportsUntilStop_(reportsUntilStop) {}
    HeardProgress(const HeardProgress&) = delete;
    HeardProgress& operator=(const HeardProgress&) = delete;

    /// To be handed to the work. This has to outlive it.
    Progress progress()
    {
        return Progress(
            [this](double part) {
                parts_.push_back(part);
                if (parts_.size() == reportsUntilStop_)
                    stop_.request_stop();
            },
            stop_.get_token());
    }
    std::size_t reports() const { return parts_.size(); }

    void expectPartsAscendToOne() const
    {
        EXPECT_TRUE(std::is_sorted(parts_.begin(), parts_.end(), std::less_equal<>()));
        ASSERT_GT(parts_.size(), 10U);
        EXPECT_GE(parts_.front(), 0);
        EXPECT_EQ(parts_.back(), 1);
    }

private:
    std::size_t reportsUntilStop_;
    std::stop_source stop_;
    std::vector<double> parts_;
};

/// What ends at the report that is answered by a stop, whichever that is. `work` takes a Progress and returns an
/// outcome, which tells of the file and that it was cancelled.
template<class Work>
void expectEndAtAnyStop(const Work& work, const char* messageOfFile)
{
    HeardProgress all(HeardProgress::never);
    ASSERT_TRUE(work(all.progress()));
    for (std::size_t stopAt = 1; stopAt <= all.reports(); ++stopAt) {
        HeardProgress heard(stopAt);
        const auto result = work(heard.progress());
        ASSERT_TRUE(result.failed()) << stopAt;
        EXPECT_EQ(heard.reports(), stopAt);
        EXPECT_THAT(result.failure().message.toStdString(), testing::HasSubstr(messageOfFile));
        EXPECT_THAT(result.failure().message.toStdString(), testing::HasSubstr("cancelled"));
    }
}

} // namespace lineara
