#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace lineara::store {

/// What was wrong with a text; the worst that was met.
enum class TextFlaw
{
    None,
    Replaced,     ///< characters that no XML file can hold became U+FFFD
    BadReference, ///< an entity or character reference that means nothing
};

struct DecodedText
{
    QString text;
    TextFlaw flaw = TextFlaw::None;
};

/// Decodes what stands before the first zero byte or '<', if that needs no closer look: if there are no references,
/// carriage returns or other control characters in it. `end` is set to where it ends.
std::optional<QString> decodeSimpleText(std::string_view text, std::size_t& end);

/// Whether the text is what it says: no references, carriage returns or other control characters in it.
bool isSimpleText(std::string_view text);

/// Decodes character data that ends at a zero byte: references are resolved and line ends become "\n".
/// The bytes must be valid UTF-8.
DecodedText decodeText(const char* text);

/// Decodes the whole content of an element, which may mix character data, CDATA sections, comments and processing
/// instructions (the latter two are left out). No value if it holds an element.
std::optional<DecodedText> decodeMixedContent(std::string_view content);

} // namespace lineara::store
