#pragma once

#include <QCoreApplication>

namespace lineara {

/// What the editor of a person says.
struct CellTexts
{
    Q_DECLARE_TR_FUNCTIONS(CellTexts)
};

} // namespace lineara
