#pragma once

#include <cstddef>
#include <string_view>

namespace lineara::store {

/// What separates words of markup, and may stand between elements.
inline constexpr std::string_view blanks = " \t\r\n";

/// The position after the markup that starts at `start` with '<': a comment, a CDATA section, a processing
/// instruction or a single tag. The text must be well formed; the end of the text if it is not.
std::size_t markupEnd(std::string_view text, std::size_t start);

/// The position after the element whose start tag begins at `start`.
std::size_t elementEnd(std::string_view text, std::size_t start);

} // namespace lineara::store
