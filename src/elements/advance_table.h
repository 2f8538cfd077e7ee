#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QStringView>

#include <array>
#include <cstdint>

namespace lineara {

/// Widths of texts in one font. Text in Latin letters is added up from a table, without shaping, because a big family
/// needs a hundred thousand widths at once; anything else is measured as it will be drawn.
class AdvanceTable
{
public:
    explicit AdvanceTable(const QFont& font);

    const QFont& font() const { return font_; }
    const QFontMetricsF& metrics() const { return metrics_; }

    /// Width in points.
    double advance(QStringView text) const;

private:
    static constexpr char16_t firstLetter = 0x20;
    static constexpr char16_t endOfLetters = 0x250; // the end of Latin Extended-B

    QFont font_;
    QFontMetricsF metrics_;
    std::array<std::int32_t, endOfLetters - firstLetter> advances_; // in 64ths of a point, as fonts have them
};

} // namespace lineara
