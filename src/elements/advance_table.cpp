#include "advance_table.h"

#include <QString>

namespace lineara {

AdvanceTable::AdvanceTable(const QFont& font) : font_(font), metrics_(font_)
{
    for (char16_t letter = firstLetter; letter < endOfLetters; ++letter)
        advances_[static_cast<std::size_t>(letter - firstLetter)] =
            static_cast<float>(metrics_.horizontalAdvance(QChar(letter)));
}

double AdvanceTable::advance(QStringView text) const
{
    double sum = 0;
    for (const QChar letter : text) {
        const char16_t code = letter.unicode();
        if (code < firstLetter || code >= endOfLetters)
            return metrics_.horizontalAdvance(text.toString());
        sum += static_cast<double>(advances_[static_cast<std::size_t>(code - firstLetter)]);
    }
    return sum;
}

} // namespace lineara
