#include "stored_date.h"

#include <charconv>
#include <cmath>

namespace lineara::store {

std::optional<QDateTime> parseDate(std::string_view text)
{
    // Milliseconds of any date must fit into 64 bits, the days of a year more at either end included.
    constexpr double farthest = 9e15;
    constexpr qint64 beginningOf2001 = 978'307'200;
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isNumber = end == text.data() + text.size() && !text.empty() && error != std::errc::invalid_argument;
    if (!isNumber || (error == std::errc() && !std::isfinite(seconds)))
        return std::nullopt;
    if (error != std::errc() || std::abs(seconds) > farthest)
        return QDateTime();
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(seconds)) + beginningOf2001, Qt::UTC);
}

} // namespace lineara::store
