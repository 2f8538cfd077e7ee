#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <set>

class QRawFont;

namespace lineara {

/// A font file of TrueType outlines with those glyphs alone, which keep their numbers; what they are put together from
/// comes along. No value if the font has no such outlines, or not fixed ones, or is damaged.
std::optional<QByteArray> trueTypeSubset(const QRawFont& font, const std::set<std::uint32_t>& glyphs);

} // namespace lineara
