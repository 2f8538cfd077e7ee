#include "numbers.h"

#include <charconv>

namespace lineara::store {

std::optional<Number> parseNumber(std::string_view text)
{
    if (text.empty() || text.front() == '0')
        return std::nullopt;
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number > highestNumber + 1)
        return std::nullopt;
    return number;
}

std::optional<Number> parseObjectId(std::string_view text)
{
    const auto number = text.starts_with('z') ? parseNumber(text.substr(1)) : std::nullopt;
    return number && *number <= highestNumber ? number : std::nullopt;
}

} // namespace lineara::store
