#include "advance_table.h"

#include <QString>

#include <cmath>

namespace lineara {

namespace {

constexpr double unitsOfAPoint = 64;

}

AdvanceTable::AdvanceTable(const QFont& font) : font_(font), metrics_(font_), advances_{}
{
    for (std::size_t at = 0; at < advances_.size(); ++at) {
        const QChar letter(static_cast<char16_t>(firstLetter + at));
        advances_[at] = static_cast<std::int32_t>(std::lround(metrics_.horizontalAdvance(letter) * unitsOfAPoint));
    }
}

double AdvanceTable::advance(QStringView text) const
{
    std::int64_t sum = 0;
    for (const QChar letter : text) {
        const char16_t code = letter.unicode();
        if (code < firstLetter || code >= endOfLetters)
            return metrics_.horizontalAdvance(text.toString());
        sum += advances_[static_cast<std::size_t>(code - firstLetter)];
    }
    return static_cast<double>(sum) / unitsOfAPoint;
}

} // namespace lineara
