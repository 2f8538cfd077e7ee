#pragma once

#include <cstdint>

namespace lineara {

/// Character sets of one byte a character whose lower half is ASCII.
enum class CodePage : std::uint8_t
{
    Ansel, ///< with the characters that GEDCOM adds; marks stand before the letter they belong to
    Windows1252,
    Dos437,
    Dos850,
    Macintosh
};

/// The character of a byte, or 0 where the character set has none.
char16_t unicodeOf(CodePage page, char byte);

/// Whether ANSEL takes the byte for a mark on the next letter.
bool isAnselMark(char byte);

} // namespace lineara
