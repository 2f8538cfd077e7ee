#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lineara {

/// Why a line can't be read as "level [@xref@] tag [value]".
enum class LineDefect : std::uint8_t
{
    None,
    NoLevel,
    UnterminatedXref,
    NoTag
};

/// One line of a GEDCOM text. The views look into the text that was read.
struct GedcomLine
{
    std::uint32_t number = 0;          ///< physical line in the file, from 1, blank lines counted
    std::optional<std::uint8_t> level; ///< known for some unreadable lines, too
    LineDefect defect = LineDefect::None;
    bool isPointer = false;
    std::string_view xref;  ///< without its @ signs; empty if the line defines none
    std::string_view tag;   ///< empty if the line is unreadable
    std::string_view value; ///< the target without its @ signs if the line is a pointer; the whole line if unreadable
};

/// Cuts a text into lines and each line into its parts. Knows nothing about what tags mean.
///
/// A line ends with CR, LF, CRLF or LFCR, in any mixture. Blank lines, blanks before the level and any number of blanks
/// between the parts are accepted; blanks in and after a value are kept, because joined texts need them.
class GedcomLineReader
{
public:
    /// `text` is ASCII-compatible and outlives the reader and its lines, which are counted from `firstLine` on.
    explicit GedcomLineReader(std::string_view text, std::uint32_t firstLine = 1) : rest_(text), number_(firstLine - 1)
    {}

    /// The next line that is not blank, or no value at the end.
    std::optional<GedcomLine> next();

private:
    std::string_view takePhysicalLine();

    std::string_view rest_;
    std::uint32_t number_;
};

} // namespace lineara
