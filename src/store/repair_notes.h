#pragma once

#include "store_texts.h"

#include <QString>
#include <QStringList>

namespace lineara::store {

/// Adds a sentence about something that was mended. After a hundred thousand of them the list ends with one that says
/// so: nobody would read more, and a file made to fill the memory with them gains nothing.
inline void tellRepair(QStringList& repairs, const QString& what)
{
    constexpr qsizetype mostSentences = 100'000;
    if (repairs.size() < mostSentences)
        repairs += what;
    else if (repairs.size() == mostSentences)
        repairs += StoreTexts::tr("More was mended in the same ways; the list ends here.");
}

} // namespace lineara::store
