#pragma once

#include "raw_family.h"

#include <optional>
#include <string_view>

/// The short way to the values of members that stand exactly as the writer writes them. `rest` is what follows the
/// start tag in the parsed text. False leaves everything as it was.
namespace lineara::store {

/// Whether the text that ends at this position is the whole content of its attribute element.
bool isWholeContent(std::string_view rest, std::size_t end);

bool takeWrittenText(std::optional<QString>& value, std::string_view rest);
/// The bytes themselves, where they need no decoding.
bool takeWrittenUtf8(QByteArray& value, std::string_view rest);
bool takeWrittenNumber(std::optional<std::int32_t>& value, std::string_view rest);
bool takeWrittenReference(Number& number, std::string_view rest);

} // namespace lineara::store
