#pragma once

#include <string_view>

namespace lineara {

/// Tags of lines in 7.0 that keep what 5.5.1 says and 7.0 has no place for, so that 5.5.1 gets it again. Tags with
/// shorter names may be those of other programs, which mean by them what they want.
inline constexpr std::string_view keptTagStart = "_LINEARA_";

/// The name of a file (below the FILE that is its address, and in the header, where 7.0 has no FILE), words for a
/// format that can be no media type, and for a language that has no tag.
inline constexpr std::string_view keptFileTag = "_LINEARA_FILE";
inline constexpr std::string_view keptFormatTag = "_LINEARA_FORM";
inline constexpr std::string_view keptLanguageTag = "_LINEARA_LANG";

inline constexpr bool isKeptTag(std::string_view tag)
{
    return tag.starts_with(keptTagStart);
}

} // namespace lineara
