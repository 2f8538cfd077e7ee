#pragma once

#include <gtest/gtest.h>

#include <ctime>

namespace lineara::engine {

/// Expects that its scope takes no more than so many seconds of processor time, which other programs don't disturb.
class Deadline
{
public:
    explicit Deadline(double seconds) : seconds_(seconds * slower) {}
    ~Deadline() { EXPECT_LT(static_cast<double>(std::clock() - start_) / CLOCKS_PER_SEC, seconds_); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

private:
#ifdef LINEARA_SANITIZED
    static constexpr double slower = 10;
#elif !defined(NDEBUG)
    static constexpr double slower = 5;
#else
    static constexpr double slower = 1;
#endif

    double seconds_;
    std::clock_t start_ = std::clock();
};

} // namespace lineara::engine
