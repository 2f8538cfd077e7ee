#include "file_text.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

namespace lineara {
namespace {

QByteArray written(double number, int decimals = 2)
{
    QByteArray text;
    appendNumber(text, number, decimals);
    return text;
}

TEST(AppendNumber, IsAsShortAsItGets)
{
    EXPECT_EQ(written(0), "0");
    EXPECT_EQ(written(-0.001), "0");
    EXPECT_EQ(written(12), "12");
    EXPECT_EQ(written(-12.5), "-12.5");
    EXPECT_EQ(written(0.25), ".25");
    EXPECT_EQ(written(0.05), ".05");
    EXPECT_EQ(written(-0.1), "-.1");
    EXPECT_EQ(written(100), "100");
    EXPECT_EQ(written(10.01), "10.01");
    EXPECT_EQ(written(1234567.899), "1234567.9");
    EXPECT_EQ(written(0.000123, 6), ".000123");
    EXPECT_EQ(written(17.6, 0), "18");
}

TEST(AppendNumber, ReadsAsTheNumberItWas)
{
    std::mt19937 random(3);
    for (int round = 0; round < 20'000; ++round) {
        const int decimals = round % 7;
        const double number = std::uniform_real_distribution(-20'000.0, 20'000.0)(random) / (1 + round % 50);
        bool isNumber = false;
        const double read = written(number, decimals).toDouble(&isNumber);
        ASSERT_TRUE(isNumber) << number;
        EXPECT_NEAR(read, number, 0.5000001 * std::pow(10, -decimals));
    }
}

} // namespace
} // namespace lineara
