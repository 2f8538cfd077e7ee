#pragma once

#include <QCoreApplication>

namespace lineara {

/// What is told of files of other programs.
struct ImportTexts
{
    Q_DECLARE_TR_FUNCTIONS(ImportTexts)
};

} // namespace lineara
