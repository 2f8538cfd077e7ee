#pragma once

#include <gtest/gtest.h>

#include <ctime>

namespace lineara {

/// Fails if its scope takes more processor time than anything of a sane growth could: it catches what hangs, walks
/// exponentially many paths or grows with the square of a large family. How fast things are, the benchmarks say.
class HangGuard
{
public:
    HangGuard() = default;
    ~HangGuard() { EXPECT_LT(static_cast<double>(std::clock() - start_) / CLOCKS_PER_SEC, mostSeconds); }
    HangGuard(const HangGuard&) = delete;
    HangGuard& operator=(const HangGuard&) = delete;

private:
#ifdef LINEARA_SANITIZED
    static constexpr double mostSeconds = 240;
#else
    static constexpr double mostSeconds = 30;
#endif

    std::clock_t start_ = std::clock();
};

} // namespace lineara
