#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace lineara {

/// Bytes of the character of UTF-8 that begins here and is not ASCII; 0 if none does.
std::size_t utf8Length(std::string_view text);

/// The text with each character whole that programs cut which count bytes where they break lines: what stands of it at
/// the beginning of a CONC line goes to the end of the line before. No value if none is cut.
std::optional<QByteArray> withWholeCharacters(std::string_view text);

/// UTF-8 of a text, its lines ended by LF, that is UTF-8 but for some bytes. Those that make sense in Windows-1252
/// where they stand, in a word, are read so, and `lines` gets the number of each such line; the others become U+FFFD.
QByteArray mendedUtf8(std::string_view text, std::vector<std::uint32_t>& lines);

} // namespace lineara
