#pragma once

#include "raw_family.h"

#include <optional>
#include <string_view>

namespace lineara::store {

/// The highest number that an object may have; the next object number may be one more.
inline constexpr Number highestNumber = 999'999'999'999'999'999;

/// The whole text as a decimal number without leading zeros, from 1 to highestNumber + 1.
std::optional<Number> parseNumber(std::string_view text);

/// Calls `take` with each word of the text until it returns false; whether it never did.
template<class Take>
bool everyWord(std::string_view text, Take take)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    for (std::size_t at = 0; at < text.size();) {
        if (isBlank(text[at])) {
            ++at;
            continue;
        }
        const auto begin = at;
        while (at < text.size() && !isBlank(text[at]))
            ++at;
        if (!take(text.substr(begin, at - begin)))
            return false;
    }
    return true;
}

/// The number of an object id such as "z102".
std::optional<Number> parseObjectId(std::string_view text);

} // namespace lineara::store
