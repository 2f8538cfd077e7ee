#pragma once

#include <QCoreApplication>

namespace lineara {

/// What is told of files that are read and written.
struct StoreTexts
{
    Q_DECLARE_TR_FUNCTIONS(StoreTexts)
};

} // namespace lineara
