#include "file_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace lineara {

void appendNumber(QByteArray& text, double number, int decimals)
{
    static constexpr std::array<double, 7> powers{1, 10, 100, 1'000, 10'000, 100'000, 1'000'000};
    // Digits are put down from the last one.
    std::array<char, 32> digits{};
    char* begin = digits.end();
    const auto scaled = std::llround(number * powers[static_cast<std::size_t>(decimals)]);
    auto rest = static_cast<unsigned long long>(std::abs(scaled));
    for (; decimals > 0 && rest % 10 == 0; --decimals)
        rest /= 10;
    for (const bool hasPoint = decimals > 0; rest > 0 || decimals > 0 || begin == digits.end(); rest /= 10) {
        *--begin = static_cast<char>('0' + rest % 10);
        if (hasPoint && --decimals == 0) {
            *--begin = '.';
            if (rest < 10)
                break;
        }
    }
    if (scaled < 0)
        *--begin = '-';
    text.append(begin, digits.end() - begin);
}

// Two sums after Fowler, Noll and Vo, of eight bytes at a time, that differ in where they begin and by what they are
// multiplied.
void Fingerprint::add(std::uint64_t number)
{
    first = (first ^ number) * 0x100000001b3;
    first ^= first >> 29;
    second = (second ^ number) * 0xd6e8feb86659fd93;
    second ^= second >> 32;
}

void Fingerprint::add(std::string_view bytes)
{
    add(bytes.size());
    while (!bytes.empty()) {
        std::uint64_t number = 0;
        const std::size_t length = std::min(bytes.size(), sizeof(number));
        std::memcpy(&number, bytes.data(), length);
        add(number);
        bytes.remove_prefix(length);
    }
}

} // namespace lineara
