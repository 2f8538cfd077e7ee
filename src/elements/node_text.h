#pragma once

#include "advance_table.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace lineara {

/// The two fonts of a node and what follows from them. Made when first used, after the application object.
struct NodeFonts
{
    AdvanceTable name;
    AdvanceTable era;
    double usualEraWidth; ///< no life span of two years of up to four digits is wider
};
const NodeFonts& nodeFonts();

/// How a name fits into the panel: in one line, or in two, broken at a space.
struct NameFit
{
    double width = 0;                 ///< of the wider line, at most the greatest width asked for
    std::optional<qsizetype> breakAt; ///< the space where the second line begins
    bool isElided = false;
};
NameFit fitName(const AdvanceTable& font, QStringView name, double greatestWidth);

/// The name without what can't be shown in a line: outer and repeated blanks, line ends, controls; and without the end
/// of an endless one.
QString shownName(const std::optional<QString>& name);

/// Whether the year has at most four characters.
bool isUsualYear(std::optional<std::int32_t> year);

} // namespace lineara
