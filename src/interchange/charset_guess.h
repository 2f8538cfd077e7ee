#pragma once

#include "gedcom_codepages.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace lineara {

/// How well bytes fit a character set: characters that make sense where they stand less those that do not, each of
/// which counts as often as `weightOfMisfit` says.
std::int64_t fitOf(CodePage page, std::string_view text, std::int64_t weightOfMisfit = 1);

/// The same for UTF-8.
std::int64_t fitOfUtf8(std::string_view text);

/// Whether a byte that is not ASCII, nor a mark, is a letter or an apostrophe of the word that it stands in.
bool isInWord(CodePage page, std::string_view text, std::size_t at);

/// The character set that a declaration means; no value for those of other kinds and unknown ones.
std::optional<CodePage> declaredPage(std::string_view declaration);

/// The character set of a text that is not UTF-8: the declared one unless the bytes do not fit it at all and fit
/// another one.
CodePage bestPage(std::optional<CodePage> declared, std::string_view text);

} // namespace lineara
