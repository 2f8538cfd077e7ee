#pragma once

namespace lineara {

/// Where painters cut a mitre short: at twice the width of the line, measured along its edge. Files measure across.
inline constexpr const char* miterLimit = "4.12";

/// No page of a PDF file may be longer, in points.
inline constexpr double longestPdfPage = 14'400;

} // namespace lineara
