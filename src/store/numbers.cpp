#include "numbers.h"

#include <charconv>

namespace lineara::store {

std::optional<Number> parseNumber(std::string_view text)
{
    // Larger numbers could not be followed by new ones without end.
    constexpr std::size_t mostDigits = 18;
    if (text.empty() || text.size() > mostDigits || text.front() == '0')
        return std::nullopt;
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::optional<Number> parseObjectId(std::string_view text)
{
    return text.starts_with('z') ? parseNumber(text.substr(1)) : std::nullopt;
}

} // namespace lineara::store
